#include "EventsMap.h"

#include "PluginResources.h"

void EventsMap::clear()
{
    uidsByName.clear();
    namesByUid.clear();
}

bool EventsMap::add(int uid, const juce::String& name)
{
    if (namesByUid.count(uid) != 0 || uidsByName.count(name) != 0)
        return false;
    namesByUid[uid] = name;
    uidsByName[name] = uid;
    return true;
}

juce::String EventsMap::getName(int uid) const
{
    const auto found = namesByUid.find(uid);
    return found != namesByUid.end() ? found->second : juce::String();
}

int EventsMap::getUid(const juce::String& name) const
{
    const auto found = uidsByName.find(name);
    return found != uidsByName.end() ? found->second : -1;
}

juce::String EventsMap::getDisplayName(int uid) const
{
    const auto name = getName(uid);
    return name.substring(0, 1).toUpperCase() + name.substring(1).toLowerCase();
}

void EventsMap::loadFromResource(const PluginResources& resources, const juce::String& resourceName)
{
    clear();
    if (auto root = juce::parseXML(resources.getText(resourceName)))
        readXml(*root);
}

void EventsMap::readXml(const juce::XmlElement& root)
{
    clear();
    if (! root.getTagName().equalsIgnoreCase("EventsMap"))
        return;
    for (auto* child : root.getChildIterator())
        if (child->getTagName().equalsIgnoreCase("event"))
            add(child->getIntAttribute("uid", 0), child->getStringAttribute("name"));
}

void EventsMap::addBuiltInEvents()
{
    static const char* const names[] = {
        "Options",
        "About",
        "Select Next Preset",
        "Select Previous Preset",
        "Browse Presets",
        "Save Preset",
        "Save preset as",
        "Copy current preset",
        "Paste copied preset",
        "Store current preset",
        "Toggle Midi Learn",
        "Restore Default Preset",
        "Restore Current Preset",
    };
    int uid = 1000;
    for (auto* name : names)
        add(uid++, name);
}

void EventsMap::addDebugEvents()
{
    for (int i = 0; i < 12; ++i)
        add(10000 + i, "Debug Event " + juce::String(i));
}
