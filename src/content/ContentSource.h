#pragma once

// A content store: anything the browser can list. The user's folder of presets and each signed
// factory package are stores; each holds a list of items and the union of their tags. Names are
// compared ignoring letter case everywhere. No operation shows a message: failures come back as
// return values and the browser decides what to tell the user.

#include "ContentItem.h"
#include "TagRegistry.h"

/** Base of every store. Thread: message thread (file-system work included). */
class ContentSource
{
public:
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /** The store's item list changed. */
        virtual void contentChanged(ContentSource& source) = 0;
    };

    explicit ContentSource(const juce::String& storeName);
    virtual ~ContentSource() = default;

    virtual bool isReadOnly() const { return true; }
    virtual bool canImportFiles() const { return false; }
    virtual bool canCreateItems() const { return false; }
    /** Loads the item into the plug-in; false when the store cannot produce it. */
    virtual bool openItem(const juce::String& itemName) = 0;
    /** The file behind an item; a non-existent file for stores without files. */
    virtual juce::File getItemFile(const juce::String& itemName) const;
    virtual void collectTags(ContentTags& out) { (void)out; }
    virtual void loadItems(juce::OwnedArray<ContentItem>& out, TagRegistry* tagRegistry)
    {
        (void)out, (void)tagRegistry;
    }
    virtual bool deleteStoredItem(const juce::String& itemName)
    {
        (void)itemName;
        return false;
    }
    virtual bool renameStoredItem(const juce::String& oldName, const juce::String& newName)
    {
        (void)oldName, (void)newName;
        return false;
    }
    virtual bool writeItemTags(const juce::String& itemName, const ContentTags& tags)
    {
        (void)itemName, (void)tags;
        return false;
    }
    virtual bool createItem(const juce::String& itemName, const ContentTags& tags)
    {
        (void)itemName, (void)tags;
        return false;
    }
    virtual bool importFile(const juce::File& file, const juce::String& itemName, const ContentTags& tags)
    {
        (void)file, (void)itemName, (void)tags;
        return false;
    }
    virtual juce::String getExtension() const { return {}; }
    virtual ContentTags readItemTags(const juce::String& itemName)
    {
        (void)itemName;
        return {};
    }
    virtual ContentItem* makeItem(const juce::String& itemName, TagRegistry* tagRegistry, const ContentTags& tags);

    bool contains(const juce::String& itemName) const { return find(itemName) != nullptr; }
    /** The item of exactly that name, else the first whose name differs only in letter case. */
    ContentItem* find(const juce::String& itemName) const;
    /** Whether a name may become a stored file's name: not empty, no "/" or NUL, not starting with
        "." (which also refuses "." and ".."). Stores refuse to make files for other names. */
    static bool isStorableName(const juce::String& itemName);
    /** The name itself when free, else "name (n)" for the first free n up to 1000, else
        "name - Copy (h:mm:ssam)". */
    juce::String uniqueName(const juce::String& itemName) const;
    /** Creates a new stored item from the plug-in's present values; null when the name is taken
        or the write failed. */
    ContentItem* addNew(const juce::String& itemName, const ContentTags& tags);
    /** Stores a document read from a stream under a new name (atomic write); null when the name
        is taken (ignoring case) or not storable, its file exists, the stream holds more than any
        document may (XmlInput::maximumDocumentBytes), or the write failed. */
    ContentItem* importItem(juce::InputStream& stream, const juce::String& itemName);
    /** Deletes the item and its stored form for good. */
    bool remove(ContentItem* item);
    bool renameItem(ContentItem* item, const juce::String& newName);
    /** Writes new tags into the item's stored form; on success the item's tags and ids follow and
        the store's union is recomputed. False (nothing changed) for a read-only store. */
    bool setItemTags(ContentItem* item, const ContentTags& tags);
    /** Disabling drops every item; enabling rescans the store. */
    void setEnabled(bool shouldBeEnabled);
    /** Joins a browser's tag registry and loads the items. */
    void attach(TagRegistry* tagRegistry);

    const juce::String& getName() const noexcept { return name; }
    bool isEnabled() const noexcept { return enabled; }
    bool isSelected() const noexcept { return selected; }
    void setSelected(bool shouldBeSelected) noexcept { selected = shouldBeSelected; }
    const juce::OwnedArray<ContentItem>& getItems() const noexcept { return items; }
    const ContentTags& getAllTags() const noexcept { return allTags; }
    TagRegistry* getRegistry() const noexcept { return registry; }

    void addListener(Listener* listener) { listeners.addIfNotAlreadyThere(listener); }
    void removeListener(Listener* listener) { listeners.removeFirstMatchingValue(listener); }

protected:
    /** Collects the tags, registers them and loads the items anew. */
    void reload();
    void notifyListeners();
    /** The union of the items' tags, registered again. */
    void recomputeTags();
    void registerTags(const ContentTags& tags);
    /** A newly stored item joins the list, its tags the union and the registry. */
    ContentItem* appendItem(const juce::String& itemName, const ContentTags& tags);

private:
    juce::String name;
    bool enabled = true;
    bool selected = false;
    juce::OwnedArray<ContentItem> items;
    TagRegistry* registry = nullptr;
    ContentTags allTags;
    juce::Array<Listener*> listeners;

    JUCE_DECLARE_NON_COPYABLE(ContentSource)
};
