#pragma once

// Builds skin packages from a folder of skin files. The same files always give the same bytes:
// entries stand in the order of their names and carry a fixed time.

#include <juce_core/juce_core.h>

#include <optional>

/** Thread: any. */
namespace SkinPacker
{
/** The package of the skin `skinName` holding every file under `folder` (sub-folders included,
    hidden files left out), named by its path relative to the folder with "/" between folders.
    Nothing, with `error` set to one line, for a folder that is missing, empty or unreadable. */
std::optional<juce::MemoryBlock> pack(const juce::File& folder, const juce::String& skinName, juce::String& error);

/** The package of the skin `skinName` whose inner archive is `skinArchive`: the archive and its
    digest, the MD5 of the archive in lower-case hexadecimal with nothing after it. */
juce::MemoryBlock wrap(const juce::String& skinName, const juce::MemoryBlock& skinArchive);
} // namespace SkinPacker
