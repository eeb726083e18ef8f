#pragma once

#include "plugin/PluginAudioProcessor.h"

/** The plug-in as a host makes it: a PluginAudioProcessor that owns a Velmarin. The plug-in's
    entry point makes it with the product's folder rule; tests, benchmarks and tools give folders
    of their own. Thread: as juce::AudioProcessor. */
class VelmarinProcessor : public PluginAudioProcessor
{
public:
    explicit VelmarinProcessor(const FolderRule& folders = {});
};
