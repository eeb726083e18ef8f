#include "StateChunk.h"

#include "InternalParameters.h"
#include "io/XmlInput.h"

#include <juce_audio_processors/juce_audio_processors.h>

StateChunk::StateChunk(ParameterManager& manager) : parameters(manager) {}

bool StateChunk::isStateFor(const juce::XmlElement& element, const juce::String& codeName)
{
    return element.getTagName().equalsIgnoreCase("PluginState") &&
           element.getStringAttribute("application").equalsIgnoreCase(codeName);
}

std::unique_ptr<juce::XmlElement> StateChunk::createDocument(const juce::String& codeName, bool withQualities) const
{
    auto root = std::make_unique<juce::XmlElement>("PluginState");
    root->setAttribute("application", codeName);
    if (withQualities)
        root->createNewChildElement("ProcessingQuality")
            ->addChildElement(InternalParameters::createPairXml(parameters, InternalParameters::realtimeQuality,
                                                                InternalParameters::offlineQuality)
                                  .release());
    return root;
}

void StateChunk::readQualities(const juce::XmlElement& root) const
{
    if (auto* quality = root.getChildByName("ProcessingQuality"))
        if (auto* presetXml = quality->getChildByName("Preset"))
            InternalParameters::readPair(*presetXml, parameters, InternalParameters::realtimeQuality,
                                         InternalParameters::offlineQuality);
}

void StateChunk::writeToBlock(const juce::XmlElement* state, juce::MemoryBlock& block)
{
    // The formats this build ships (VST3, LV2, Standalone) always receive the full XML state, even
    // before any state was given to the instance (the single zero byte for that case belongs to a
    // format this build does not ship). The one-byte block stands only for a state that
    // copyXmlToBinary could not serialise; it is never parsed when it comes back.
    block.reset();
    if (state != nullptr)
        juce::AudioProcessor::copyXmlToBinary(*state, block);
    if (block.isEmpty())
        block.setSize(1, true);
    ++stateReadCount;
}

std::unique_ptr<juce::XmlElement> StateChunk::readFromBlock(const void* data, int size)
{
    if (data != nullptr && size > 1)
        return XmlInput::parseBinaryState(data, size);
    return nullptr;
}
