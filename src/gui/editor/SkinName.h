#pragma once

#include <juce_core/juce_core.h>

/** A skin name that one thread may replace while another reads it (a host restores a state on its
    own thread while the message thread loads a skin). The text is exchanged whole: a reader copies
    the reference-counted string, a writer swaps in a new one, each under a spin lock held only for
    that pointer exchange, never while a string is built or freed. The audio thread never touches
    it. (The standard library's atomic shared pointer of GCC 12 releases its lock with relaxed order
    after a read, which the memory model counts as a race.) Thread: any. */
class SkinName
{
public:
    juce::String get() const
    {
        const juce::SpinLock::ScopedLockType hold(lock);
        return text;
    }

    void set(const juce::String& newText)
    {
        juce::String replaced(newText);
        {
            const juce::SpinLock::ScopedLockType hold(lock);
            text.swapWith(replaced);
        }
        // The old text is released here, outside the lock.
    }

private:
    mutable juce::SpinLock lock;
    juce::String text;
};
