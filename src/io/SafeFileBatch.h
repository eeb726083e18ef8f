#pragma once

#include <juce_core/juce_core.h>

#include <memory>
#include <vector>

/** Several files written all or nothing, the way SafeFile writes one.

    `add` writes each regular target's bytes to a hidden temporary file beside it (through symbolic
    links, as SafeFile does) and keeps the bytes of a special target (a device, a FIFO) in memory.
    `commit` renames every temporary file over its target and only then writes the special targets
    directly. A batch destroyed before `commit`, or an `add` that fails, leaves every target as it
    was and removes the temporary files. Thread: any thread but the audio thread; one owner. */
class SafeFileBatch
{
public:
    SafeFileBatch();
    ~SafeFileBatch();

    /** False when the target is a folder or its temporary file cannot be written whole. */
    bool add(const juce::File& target, const void* data, size_t size);
    bool add(const juce::File& target, const juce::MemoryBlock& data)
    {
        return add(target, data.getData(), data.getSize());
    }

    /** Puts everything in place: false when a rename or a direct write failed. */
    bool commit();

private:
    struct Staged;
    std::vector<std::unique_ptr<Staged>> staged;

    JUCE_DECLARE_NON_COPYABLE(SafeFileBatch)
};
