#pragma once

// A folder of one test's own: new under the temporary folder with a unique id in its name, so that
// test programs running side by side never share one, and gone with all it holds when it ends.
#include <juce_core/juce_core.h>

class TempFolder
{
public:
    explicit TempFolder(const juce::String& prefix)
        : folder(juce::File::getSpecialLocation(juce::File::tempDirectory)
                     .getNonexistentChildFile(prefix + juce::Uuid().toDashedString(), {}, false))
    {
        folder.createDirectory();
    }
    ~TempFolder() { folder.deleteRecursively(); }

    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const juce::File folder;
};
