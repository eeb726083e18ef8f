#pragma once

#include <juce_core/juce_core.h>

#include <memory>

class ParameterManager;

/** One user's settings, kept between instances in one XML file of the user folder: whether and
    which MIDI control map and host parameter map a new instance loads, and the default processing
    qualities (parameters 100002 and 100004, which live in the manager). The plug-in reads the file
    once at start-up and writes it once at teardown; this class holds the map choices in between and
    knows the document's form.
    Thread: message thread (the thread that creates and destroys the plug-in). */
class UserSettings
{
public:
    explicit UserSettings(ParameterManager& parameters);

    /** A `UserSettings` document whose `application` is the code name (both ignoring case). */
    static bool isSettingsFor(const juce::XmlElement& element, const juce::String& codeName);
    /** Takes the map choices (a later element of one tag wins) and the default qualities from a
        settings document; what it lacks stays as it was. */
    void read(const juce::XmlElement& root);
    /** The document of this moment, without the product's extra elements: the presets container,
        both map choices and, with a quality, the default qualities. */
    std::unique_ptr<juce::XmlElement> createXml(const juce::String& codeName, bool withQualities) const;

    bool midiMapDefault = false;
    juce::File midiMapFile;
    bool hostParameterMapDefault = false;
    juce::File hostParameterMapFile;

private:
    ParameterManager& parameters;

    JUCE_DECLARE_NON_COPYABLE(UserSettings)
};
