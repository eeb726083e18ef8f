#pragma once

// ZIP archives in and out, the way every package format of the product uses them: entries read in
// bounded pieces (the size an entry declares is never trusted), archives written with a fixed entry
// time, so that the same files always give the same bytes.

#include <juce_core/juce_core.h>

#include <vector>

/** Thread: any; no state. */
namespace ZipArchive
{
/** One file of an archive to write. */
struct Entry
{
    juce::String name;
    juce::MemoryBlock bytes;
    /** 0 stores the bytes as they are, 1 to 9 deflates them. */
    int compression = 9;
};

/** The archive of the entries, in the order given, each stamped with `entryTime`. */
juce::MemoryBlock write(const std::vector<Entry>& entries);

/** The time every written entry carries: a fixed moment, so that builds are reproducible. */
juce::Time entryTime();

/** The bytes of the entry named exactly `entryName`, read as they come up to `limit` bytes.
    False, with `bytes` empty, when the entry is absent, unreadable or larger than the limit. */
bool readEntry(juce::ZipFile& zip, const juce::String& entryName, size_t limit, juce::MemoryBlock& bytes);
} // namespace ZipArchive
