#pragma once

#include "plugin/PluginAudioProcessor.h"

/** The plug-in as a host makes it: a PluginAudioProcessor that owns a Velmarin. The plug-in's
    entry point, the render tool and the tests make this one. Thread: as juce::AudioProcessor. */
class VelmarinProcessor : public PluginAudioProcessor
{
public:
    VelmarinProcessor();
};
