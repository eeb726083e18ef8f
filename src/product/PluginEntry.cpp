// The entry point through which JUCE's VST3, LV2 and Standalone clients create the plug-in.
#include "VelmarinProcessor.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdio>
#include <cstdlib>

namespace
{
/** The Standalone program opens a window right after it has made the plug-in, and JUCE's window
    code takes a screen for granted. Without a display (no X server, DISPLAY unset) the program
    says so on one line and ends with status 1 instead of crashing. Plug-ins in a host never stop
    here: the host owns the screen. */
void requireDisplayForStandalone()
{
    if (juce::PluginHostType::getPluginLoadedAs() != juce::AudioProcessor::wrapperType_Standalone)
        return;
    if (juce::Desktop::getInstance().getDisplays().getPrimaryDisplay() != nullptr)
        return;
    std::fputs("Velmarin: the Standalone program needs a display (set DISPLAY to a running X server)\n", stderr);
    std::fflush(stderr);
    std::_Exit(1);
}
} // namespace

juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    requireDisplayForStandalone();
    // A plug-in in a host keeps its files where the product's folder rule puts them.
    return new VelmarinProcessor(FolderRule());
}
