#pragma once

#include "Clock.h"
#include "SampleRateContext.h"

#include <cmath>
#include <cstdint>

/** One low-frequency oscillator: a phase in radians stepped once per sample, shaped into one of
    seven waves, with a free rate in Hz or a rate locked to the host's tempo through its Clock.
    The engine selects the triangle (wave 0); the other waves, inversion, one-shot and the curve's
    power are general facilities of the oscillator.
    Thread: all calls under the effect's core lock; `next` on the audio thread. `updateRate` and, while
    synced, `setPosition` read the clock's rate under its read-write lock: the plug-in sets the
    position on every block while the transport plays, so a synced oscillator takes that lock once
    per block. */
class LfoOscillator
{
public:
    static constexpr double pi = 3.141592653589793;
    static constexpr double twoPi = 6.283185307179586;

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
    /** Recomputes the rate (from the clock's note rate and tempo when synced, else the free rate)
        and the phase step. Needs a context. */
    void updateRate() noexcept;
    /** A new note code: note rate from the table, refreshed, clock marked dirty, rate updated. */
    void setNoteCode(int code) noexcept;
    /** One step of the random generator, as the random wave takes at each new cycle. */
    void stepRandom() noexcept;

    /** The sample rate the phase step follows; not owned. */
    void setContext(const SampleRateContext* c) noexcept { context = c; }
    void setWaveform(int wave) noexcept { waveform = wave; }
    void setInverted(bool on) noexcept { inverted = on; }
    void setOneShot(bool on) noexcept { oneShot = on; }
    void setCurvePower(float power) noexcept { curvePower = power; }
    /** The free rate in Hz; the rate is recomputed when it changes. */
    void setFreeRate(double hz) noexcept;
    /** Locks the rate to the tempo or frees it; the rate is recomputed when it changes. */
    void setTempoSynced(bool on) noexcept;
    /** A new dot type (ClockDivision's plain, dotted, triplet): refreshed and marked dirty when it
        changed; the rate is recomputed in any case. */
    void setDotType(int type) noexcept;
    /** The host's tempo in beats per minute: clock marked dirty, rate updated. */
    void setTempo(double bpm) noexcept;
    /** The host's position in quarter notes; while synced, the phase locks to where the position
        stands in the clock's cycle (the phase offset stays on top). */
    void setPosition(double ppq) noexcept;
    /** The phase in radians, 0..2 pi. */
    void setPhase(double radians) noexcept { phase = radians; }
    /** Added to the phase for the wave, in radians. */
    void setPhaseOffset(double radians) noexcept { phaseOffset = radians; }

    double getPhase() const noexcept { return phase; }
    double getPhaseOffset() const noexcept { return phaseOffset; }
    /** The phase the last `next` shaped, 0..2 pi. */
    double getWavePhase() const noexcept { return wavePhase; }
    /** The rate in effect, in Hz. */
    double getRate() const noexcept { return rate; }
    double getFreeRate() const noexcept { return freeRate; }
    double getTempo() const noexcept { return clock.tempo; }
    int getNoteCode() const noexcept { return clock.division.getNoteCode(); }
    bool isTempoSynced() const noexcept { return tempoSynced; }

private:
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

// Inline: the engine calls it once per sample and channel.
inline void LfoOscillator::next(float& out) noexcept
{
    wavePhase = phase + phaseOffset;
    if (wavePhase > twoPi)
    {
        if (oneShot)
        {
            phase -= phaseStep;
            wavePhase = phase + phaseOffset;
        }
        else
        {
            phase -= twoPi;
        }
    }
    if (wavePhase > twoPi)
        wavePhase -= twoPi;
    if (! (wavePhase >= 0.0))
        wavePhase += twoPi;

    const double w = wavePhase;
    // 2 / pi and 1 / pi, and 3 pi / 2 where the triangle's falling half crosses 0.
    constexpr double twoOverPi = 0.6366197723675814;
    constexpr double oneOverPi = 0.3183098861837907;
    constexpr double threeHalvesPi = 4.71238898038469;
    const auto triangleAt = [](double x)
    { return static_cast<float>(x < pi ? x * twoOverPi - 1.0 : (threeHalvesPi - x) * twoOverPi); };

    switch (waveform)
    {
    case triangle:
        out = triangleAt(w);
        break;
    case sine:
        out = static_cast<float>(std::sin(w - 0.7853981633974483));
        break;
    case square:
        out = static_cast<float>(pi > w ? 1.0 : -1.0);
        break;
    case sawDown:
        out = static_cast<float>((twoPi - w) * oneOverPi - 1.0);
        break;
    case sawUp:
        out = static_cast<float>(w * oneOverPi - 1.0);
        break;
    case randomSteps:
        gateBefore = gateNow;
        gateNow = pi > w;
        if (gateNow && ! gateBefore)
            stepRandom();
        out = randomValue;
        break;
    case curvedTriangle:
    {
        const float h = triangleAt(w) * 0.5f;
        out = 1.0f - 2.0f * std::pow(0.5f - h, curvePower);
        break;
    }
    default:
        break;
    }

    if (inverted)
        out = -out;
    phase += phaseStep;
}
