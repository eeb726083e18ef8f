#pragma once

#include "Clock.h"
#include "SampleRateContext.h"

#include <cstdint>

/** One low-frequency oscillator: a phase in radians stepped once per sample, shaped into one of
    seven waves, with a free rate in Hz or a rate locked to the host's tempo through its Clock.
    The engine selects the triangle (wave 0); the other waves, `inverted`, `oneShot` and
    `curvePower` are general facilities of the oscillator.
    Thread: all calls under the effect's core lock; `next` on the audio thread. */
class LfoOscillator
{
public:
    enum Wave
    {
        triangle = 0,
        sine = 1,
        square = 2,
        sawDown = 3,
        sawUp = 4,
        randomSteps = 5,
        curvedTriangle = 6
    };

    /** One sample of output in -1..1 (left as it was for an unknown wave); advances the phase. */
    void next(float& out) noexcept;
    /** Recomputes `rate` (from the clock's note rate and tempo when synced, else `freeRate`) and
        `phaseStep`. */
    void updateRate() noexcept;
    /** A new note code: note rate from the table, refreshed, clock marked dirty, rate updated. */
    void setNoteCode(int code) noexcept;
    /** One step of the random generator, as the random wave takes at each new cycle. */
    void stepRandom() noexcept;

    const SampleRateContext* context = nullptr;
    int waveform = triangle;
    bool inverted = false;
    double phase = 0.0;
    double phaseOffset = 0.0;
    double wavePhase = 0.0;
    double phaseStep = 0.0;
    std::uint32_t randomA = 0x67452301u;
    std::uint32_t randomB = 0xEFCDAB89u;
    float randomValue = 0.0f;
    bool gateNow = false;
    bool gateBefore = false;
    float curvePower = 2.0f;
    bool tempoSynced = false;
    bool oneShot = false;
    double rate = 0.0;
    double freeRate = 0.0;
    Clock clock;
};
