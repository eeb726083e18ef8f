#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

/** MIDI events waiting to be handed to the effect at their sample positions, across blocks.
    Events beyond the end of a block move into the next block with their position reduced.
    Thread: audio thread (and prepare, while no audio runs). Allocates only if a block brings more
    MIDI than the reserved space. */
class MidiEventQueue
{
public:
    MidiEventQueue();

    /** Empties both buffers and forgets any waiting event. */
    void clear();
    /** Appends a block's events (those at negative positions are dropped) and restarts reading. */
    void append(const juce::MidiBuffer& blockEvents);
    /** True while unread events remain. */
    bool hasPendingEvents() const noexcept { return hasEvents; }
    /** Reads the next event into `waiting` unless one is already waiting; false when none is left. */
    bool peek(int& position);
    /** The waiting event; valid after peek returned true. */
    const juce::MidiMessageMetadata& current() const noexcept { return waiting; }
    /** Marks the waiting event as consumed. */
    void consume() noexcept
    {
        eventWaiting = false;
        waitingPosition = -1;
    }
    /** Keeps only the events at or beyond numSamples, moved back by numSamples. */
    void carryOver(int numSamples);
    /** Number of events held, read or not. */
    int size() const noexcept { return buffers[currentBuffer].getNumEvents(); }

private:
    std::array<juce::MidiBuffer, 2> buffers;
    int currentBuffer = 0;
    juce::MidiBufferIterator iterator;
    juce::MidiMessageMetadata waiting;
    bool hasEvents = false;
    bool eventWaiting = false;
    int waitingPosition = -1;
};
