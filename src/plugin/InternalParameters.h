#pragma once

// The framework's own parameters, added after the product's definition: the preset name and the
// quality settings. The live "Processing Quality" is the product's; these four are its copies.

#include <juce_core/juce_core.h>

#include <memory>

class ParameterManager;

namespace InternalParameters
{
constexpr int presetName = 100000;
/** The quality used while the host plays in real time, and while it renders offline. */
constexpr int realtimeQuality = 100001;
constexpr int offlineQuality = 100003;
/** The user's defaults for new instances, kept in the settings file. */
constexpr int defaultRealtimeQuality = 100002;
constexpr int defaultOfflineQuality = 100004;
constexpr int firstDebugParameter = 300000;
constexpr int numDebugParameters = 12;

/** Sets, by their texts, the values of the two given indices that a saved preset element holds;
    its other values are ignored. Message thread. */
void readPair(const juce::XmlElement& presetElement, ParameterManager& parameters, int first, int second);
/** A preset element holding the two given parameters, with its header. Message thread. */
std::unique_ptr<juce::XmlElement> createPairXml(ParameterManager& parameters, int first, int second);
} // namespace InternalParameters
