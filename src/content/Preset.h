#pragma once

// A Preset is one complete set of parameter values, held as text by parameter index, with its
// descriptive metadata. Its XML element (`Preset`) is the .vmprs2 file and is also embedded in the
// host's state chunk. Values are never interpreted here: parameters convert themselves to and
// from text.

#include "ContentTags.h"

#include <juce_core/juce_core.h>

class Parameter;
class ParameterManager;

/** One stored value: a parameter index and its value text. */
struct PresetValue
{
    int index = -1;
    juce::String value;
};

/** Parameter values with metadata. Thread: belongs to one thread at a time (no lock of its own). */
class Preset
{
public:
    /** Orders values by ascending parameter index. */
    class Comparator
    {
    public:
        virtual int compareElements(const PresetValue* first, const PresetValue* second) const
        {
            return first->index - second->index;
        }
        virtual ~Comparator() = default;
    };

    Preset() = default;
    /** Reads a whole document from a stream (a preset inside a package), then takes the given
        name. A stream that holds no document gives a preset without values. */
    Preset(juce::InputStream& stream, const ParameterManager& manager, bool headerOnly, const juce::String& presetName);
    Preset(const Preset& other);
    Preset& operator=(const Preset& other);
    virtual ~Preset() = default;

    /** Reads a .vmprs2 file; with headerOnly only the outer element is parsed. A file that gives no
        element leaves the preset as it was. The name becomes the file's name without extension,
        always: a `name` attribute in a file has no effect. */
    virtual void loadFromFile(const juce::File& file, const ParameterManager& manager, bool headerOnly);
    /** Writes the document without the name, UTF-8. False when the write failed. */
    virtual bool saveToFile(const juce::File& file, const ParameterManager& manager) const;
    /** Replaces the values with every parameter of the manager in the ranges, in ascending index
        order. (The collection lives with the preset, so that the parameter layer needs no preset.) */
    void collectParameters(const ParameterManager& manager, const juce::SparseSet<int>& ranges);

    /** Extension points for products that keep more than parameters; empty here. */
    virtual void readExtraData(const juce::XmlElement&) {}
    virtual void writeExtraData(juce::XmlElement&) const {}

    /** Rewrites the `tags` attribute of an existing preset file, keeping every other attribute and
        child, known or not. The attribute is set even when the text is empty. False when the path
        is not a file, the document's root is not a `Preset`, or the write failed. */
    static bool writeTagsToFile(const juce::File& file, const ContentTags& tags);

    /** Reads a `Preset` element (tag compared ignoring case). Clears the values first; metadata
        missing from the element becomes empty. With headerOnly the parameters are not read. */
    void readXml(const juce::XmlElement* element, const ParameterManager& manager, bool headerOnly);
    /** A new element owned by the caller; `name` only when asked for and not empty. */
    std::unique_ptr<juce::XmlElement> createXml(const ParameterManager& manager, bool includeName) const;

    /** Appends the parameter's index and text; a null parameter is ignored. */
    void addValue(const Parameter* parameter);
    void addValue(const PresetValue& value);
    void clearValues();
    /** Sorts the values by ascending index (stable). */
    void sortValues();

    int getNumValues() const noexcept { return values.size(); }
    const PresetValue& getValue(int position) const { return *values.getUnchecked(position); }
    /** The value text stored for an index; false when the preset holds none (the last one wins). */
    bool findValue(int index, juce::String& text) const;
    const juce::SparseSet<int>& getIndices() const noexcept { return indices; }

    const juce::String& getName() const noexcept { return name; }
    void setName(const juce::String& newName) { name = newName; }
    const juce::String& getAuthor() const noexcept { return author; }
    void setAuthor(const juce::String& s) { author = s; }
    const juce::String& getId() const noexcept { return id; }
    void setId(const juce::String& s) { id = s; }
    const juce::String& getApplication() const noexcept { return application; }
    void setApplication(const juce::String& s) { application = s; }
    const juce::String& getCategory() const noexcept { return category; }
    void setCategory(const juce::String& s) { category = s; }
    const juce::String& getVersion() const noexcept { return version; }
    void setVersion(const juce::String& s) { version = s; }
    int getRating() const noexcept { return rating; }
    bool isRatingSet() const noexcept { return ratingSet; }
    /** Stores a rating of 1..5 and marks it as set; other values are ignored. */
    void setRating(int newRating);
    const ContentTags& getTags() const noexcept { return tags; }
    void setTags(const ContentTags& newTags) { tags = newTags; }

private:
    juce::OwnedArray<PresetValue> values;
    juce::SparseSet<int> indices;
    juce::String name, author, id, application, category;
    int rating = 3;
    bool ratingSet = false;
    juce::String version;
    ContentTags tags;
};
