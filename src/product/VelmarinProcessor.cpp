#include "VelmarinProcessor.h"

#include "Velmarin.h"

VelmarinProcessor::VelmarinProcessor()
    : PluginAudioProcessor(std::make_unique<Velmarin>())
{
}
