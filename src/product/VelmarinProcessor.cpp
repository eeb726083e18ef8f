#include "VelmarinProcessor.h"

#include "Velmarin.h"

VelmarinProcessor::VelmarinProcessor(const FolderRule& folders)
    : PluginAudioProcessor(std::make_unique<Velmarin>(folders))
{
}
