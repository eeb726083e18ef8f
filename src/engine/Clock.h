#pragma once

#include <juce_core/juce_core.h>

#include <atomic>

/** A juce::ReadWriteLock whose list of readers is already at its resting size. JUCE shrinks that
    list (a heap call) the first time a reader leaves; taking the read side once here makes that
    happen at construction instead of in the first block that reads the lock. */
struct SettledReadWriteLock : juce::ReadWriteLock
{
    SettledReadWriteLock() noexcept
    {
        enterRead();
        exitRead();
    }
};

/** The note value a clock runs at: a note code from the note table and a dot type. The effective
    rate, in cycles per quarter note, is guarded by a read-write lock: the message thread may refresh
    it while the audio thread reads it once per block.
    Thread: writers run under the effect's core lock; readers take the read side of the lock. */
class ClockDivision
{
public:
    enum DotType
    {
        plain = 0,
        dotted = 1,
        triplet = 2
    };

    /** Cycles per quarter note for a note code: code 0 is 1/256, each code doubles it up to
        code 12 (16 cycles per quarter note); any other code gives 0. */
    static double noteRateForCode(int code) noexcept;
    /** 1.0 plain, 2/3 dotted, 1.5 triplet, 0 for any other type. */
    static double multiplierForDotType(int type) noexcept;

    /** Stores the code and its note rate; `refresh` makes it effective. */
    void setNoteCode(int code) noexcept;
    /** Stores the type and its multiplier; does nothing when the type is unchanged. Answers whether
        it changed anything. */
    bool setDotType(int type) noexcept;
    /** Recomputes the effective rate under the write side of the lock. */
    void refresh() noexcept;
    /** The effective rate, read under the lock. */
    double readEffectiveRate() const noexcept;

    int getNoteCode() const noexcept { return noteCode; }
    int getDotType() const noexcept { return dotType; }

private:
    int noteCode = 10;
    int dotType = plain;
    double noteRate = 4.0;
    double multiplier = 1.0;
    mutable SettledReadWriteLock rateLock;
    double effectiveRate = 4.0;
};

/** The beat clock inside each LFO: holds the note value, the tempo and the host position, and
    answers where in its cycle the position stands. This product uses the clock's data only, so the
    reduced clock carries no pulse generator, listeners or message-thread notifications; `dirty`
    still records every change of tempo, position or rate for a future pulse consumer.
    Thread: as ClockDivision. */
class Clock
{
public:
    /** Fraction of the current cycle at `position`: x - floor(x) with x = effective rate * position,
        exactly 0 for a whole x. */
    double phaseInCycle() const noexcept;
    /** True while the position is in the first half of its cycle. */
    bool isInFirstHalf() const noexcept;
    void markDirty() noexcept { dirty.store(1); }

    ClockDivision division;
    double position = 0.0;
    double sampleRate = 44100.0;
    double tempo = 0.0;
    std::atomic<int> dirty{0};
};
