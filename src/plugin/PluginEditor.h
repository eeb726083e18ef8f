#pragma once

// What the plug-in object knows of its editor. The editor stands in a layer above the plug-in
// object (it is made of skins and controls); the plug-in makes it through the product's factory,
// owns it for its whole life and reaches it only through these operations.

#include <juce_gui_basics/juce_gui_basics.h>

/** Thread: message thread, except the state operations, which run where the host saves and
    restores state (they only read and store names). */
class PluginEditor
{
public:
    virtual ~PluginEditor() = default;

    /** The one component the host's window wraps. */
    virtual juce::Component& getComponent() = 0;
    /** The second stage of construction: settings, skins. */
    virtual void initialise() = 0;
    /** Runs once the plug-in has initialised its editor, before the tick starts: a product's hook. */
    virtual void afterInitialise() {}
    /** Starts and stops the editor's periodic tick. */
    virtual void startTicking() = 0;
    virtual void stopTicking() = 0;
    /** Loads the skin asked for, if any, before the window shows. */
    virtual void settlePendingSkin() = 0;

    /** The editor's element in the settings file and in the state chunk. */
    virtual bool isSettingsTag(const juce::XmlElement& element) = 0;
    virtual std::unique_ptr<juce::XmlElement> createUserSettings() = 0;
    virtual void applyUserSettings(const juce::XmlElement& element) = 0;
    virtual std::unique_ptr<juce::XmlElement> createStateXml() = 0;
    virtual void applyStateXml(const juce::XmlElement& element) = 0;
};
