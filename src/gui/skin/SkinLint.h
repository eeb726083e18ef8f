#pragma once

// Checks a skin package the way the editor will read it, and names every problem a skin author
// can fix: a package or digest the editor refuses, a skin document it cannot use, images and fonts
// the document names that the package lacks, and filmstrips whose frames do not divide the image.

#include <juce_core/juce_core.h>

/** Thread: message thread (decodes images and fonts). */
namespace SkinLint
{
/** One line per problem of the package file; empty when there is none. */
juce::StringArray check(const juce::File& packageFile);
/** The same for a package held in memory under the name `skinName`. */
juce::StringArray check(const juce::String& skinName, const juce::MemoryBlock& package);
} // namespace SkinLint
