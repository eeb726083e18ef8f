#pragma once

// Checks a skin package the way the editor will read it, and names every problem a skin author
// can fix: a package or digest the editor refuses, a skin document it cannot use, images and fonts
// the document names that the package lacks, filmstrips whose frames do not divide the image, control
// words the panel builder would skip, and links and actions that name nothing of the plug-in.

#include <juce_core/juce_core.h>

class BasePlugin;

/** Thread: message thread (decodes images and fonts). */
namespace SkinLint
{
/** One line per problem of the package file; empty when there is none. Given the plug-in the skin
    is for, parameter links and event actions are checked against its own definitions too. */
juce::StringArray check(const juce::File& packageFile, const BasePlugin* plugin = nullptr);
/** The same for a package held in memory under the name `skinName`. */
juce::StringArray check(const juce::String& skinName, const juce::MemoryBlock& package,
                        const BasePlugin* plugin = nullptr);
} // namespace SkinLint
