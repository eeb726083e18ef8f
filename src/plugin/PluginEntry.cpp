// The entry point through which JUCE's VST3, LV2 and Standalone clients create the plug-in.
#include "PluginAudioProcessor.h"

juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    return new PluginAudioProcessor();
}
