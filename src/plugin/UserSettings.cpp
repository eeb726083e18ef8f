#include "UserSettings.h"

#include "InternalParameters.h"

UserSettings::UserSettings(ParameterManager& manager) : parameters(manager) {}

bool UserSettings::isSettingsFor(const juce::XmlElement& element, const juce::String& codeName)
{
    return element.getTagName().equalsIgnoreCase("UserSettings") &&
           element.getStringAttribute("application").equalsIgnoreCase(codeName);
}

void UserSettings::read(const juce::XmlElement& root)
{
    for (auto* child : root.getChildIterator())
    {
        const bool midi = child->getTagName().equalsIgnoreCase("MidiControlMap");
        const bool host = child->getTagName().equalsIgnoreCase("HostParametersMap");
        if (! midi && ! host)
            continue;
        const bool useAsDefault = child->getStringAttribute("default").equalsIgnoreCase("yes");
        const auto path = child->getStringAttribute("file");
        // A relative or empty path names no document: the map's load then finds nothing.
        const auto file = juce::File::isAbsolutePath(path) ? juce::File(path) : juce::File();
        (midi ? midiMapDefault : hostParameterMapDefault) = useAsDefault;
        (midi ? midiMapFile : hostParameterMapFile) = file;
    }

    if (auto* quality = root.getChildByName("DefaultProcessingQuality"))
        if (auto* presetXml = quality->getChildByName("Preset"))
            InternalParameters::readPair(*presetXml, parameters, InternalParameters::defaultRealtimeQuality,
                                         InternalParameters::defaultOfflineQuality);
}

std::unique_ptr<juce::XmlElement> UserSettings::createXml(const juce::String& codeName, bool withQualities) const
{
    auto root = std::make_unique<juce::XmlElement>("UserSettings");
    root->setAttribute("application", codeName);
    root->createNewChildElement("Presets")->createNewChildElement("Author");

    const auto addMap = [&root](const char* tag, bool useAsDefault, const juce::File& file)
    {
        auto* map = root->createNewChildElement(tag);
        map->setAttribute("default", useAsDefault ? "yes" : "no");
        if (file != juce::File())
            map->setAttribute("file", file.getFullPathName());
    };
    addMap("MidiControlMap", midiMapDefault, midiMapFile);
    addMap("HostParametersMap", hostParameterMapDefault, hostParameterMapFile);

    if (withQualities)
        root->createNewChildElement("DefaultProcessingQuality")
            ->addChildElement(InternalParameters::createPairXml(parameters, InternalParameters::defaultRealtimeQuality,
                                                                InternalParameters::defaultOfflineQuality)
                                  .release());
    return root;
}
