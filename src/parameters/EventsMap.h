#pragma once

#include <juce_core/juce_core.h>

#include "PluginResources.h"

#include <map>

/** Named user actions by uid (1000..1012 built in, 10000 up for debug events), in both directions.
    Thread: filled at start-up on the constructing thread; read on the message thread. */
class EventsMap
{
public:
    void clear();
    /** False, with nothing changed, when the uid or the name is already present. */
    bool add(int uid, const juce::String& name);
    /** The name of a uid, or empty. */
    juce::String getName(int uid) const;
    /** The uid of a name, or -1. */
    int getUid(const juce::String& name) const;
    /** The name with its first character in upper case and the rest in lower case. */
    juce::String getDisplayName(int uid) const;
    int size() const noexcept { return static_cast<int>(uidsByName.size()); }

    /** Reads an `EventsMap` document from the plug-in's resources. */
    void loadFromResource(const PluginResources& resources, const juce::String& resourceName);
    /** Clears, then adds each `event` child's uid and name. Another root leaves the map empty. */
    void readXml(const juce::XmlElement& root);

    /** Adds the thirteen built-in events (Options .. Restore Current Preset). */
    void addBuiltInEvents();
    /** Adds "Debug Event 0".."Debug Event 11" with uids 10000..10011. */
    void addDebugEvents();

private:
    std::map<juce::String, int> uidsByName;
    std::map<int, juce::String> namesByUid;
};
