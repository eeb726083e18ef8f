#pragma once

// What many tests need: a temporary folder of their own, and a way to let asynchronous work on
// the message thread run.

#include <juce_events/juce_events.h>

namespace juce
{
// JUCE's own message loop step (Linux): dispatches what is waiting, or returns false at once.
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
} // namespace juce

namespace testsupport
{
/** A new folder under the system's temporary folder, with a unique name, removed with everything
    in it when this ends. */
class TemporaryFolder
{
public:
    explicit TemporaryFolder(const juce::String& prefix = "velmarin-test")
        : folder(juce::File::getSpecialLocation(juce::File::tempDirectory)
                     .getNonexistentChildFile(prefix + "-" + juce::Uuid().toDashedString(), {}, false))
    {
        folder.createDirectory();
    }
    ~TemporaryFolder() { folder.deleteRecursively(); }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const juce::File& get() const noexcept { return folder; }
    juce::File operator/(const juce::String& child) const { return folder.getChildFile(child); }

    const juce::File folder;
};

/** Message thread: runs every message that is waiting (asynchronous listeners and updates). */
inline void dispatchPendingMessages()
{
    while (juce::dispatchNextMessageOnSystemQueue(true))
    {
    }
}
} // namespace testsupport
