#pragma once

#include <array>
#include <cmath>
#include <cstddef>

/** Per-channel silence gate. A channel whose input stays below about -96 dBFS for about 0.63 s at
    44100 Hz fades out over 100 ms and then shuts; the engine stops working only when both channels
    are shut. Any input above the threshold reopens a channel at once.
    Three states per channel: running (active, not fading), fading, shut (not active). A mono run
    arms and fades channel 0 only, so channel 1 stays active and the engine never stops.
    Thread: audio thread, under the effect's core lock. */
class SilenceGate
{
public:
    static constexpr float armThreshold = 1.52587e-5f;
    static constexpr double holdThreshold = 1.5258699932019226e-5;

    /** The hold's decay per sample and the fade's phase step per sample (the fade's gain is
        (cos(phase) + 1) / 2, from 1 at phase 0 to 0 at pi). */
    void setTiming(double holdDecay, double fadePhaseStep) noexcept
    {
        decay = holdDecay;
        fadeStep = fadePhaseStep;
    }

    /** An input sample above the threshold holds channel i open. */
    void arm(int i, float input) noexcept
    {
        if (std::abs(input) > armThreshold)
        {
            const auto c = static_cast<size_t>(i);
            active[c] = true;
            hold[c] = 1.0;
            fading[c] = false;
            fadePhase[c] = 0.0;
        }
    }

    /** Lets channel i's hold decay and applies the fade to its output sample. */
    float fade(int i, float output) noexcept
    {
        const auto c = static_cast<size_t>(i);
        decayHold(c);
        if (fading[c])
        {
            const double g = (std::cos(fadePhase[c]) + 1.0) * 0.5;
            fadePhase[c] += fadeStep;
            output = static_cast<float>(output * g);
            if (! (g >= holdThreshold))
                shut(c);
        }
        return output;
    }

    /** What `fade(i, 0.0f)` does to a shut channel, without the cosine while the fade is far from
        its end: below a phase of 3.13 the gain is at least 6e-5, clear of the threshold. */
    void idle(int i) noexcept
    {
        const auto c = static_cast<size_t>(i);
        decayHold(c);
        if (fading[c])
        {
            const double phase = fadePhase[c];
            fadePhase[c] += fadeStep;
            if (phase > 3.13 && ! ((std::cos(phase) + 1.0) * 0.5 >= holdThreshold))
                shut(c);
        }
    }

    bool isShut() const noexcept { return ! active[0] && ! active[1]; }
    bool isActive(int i) const noexcept { return active[static_cast<size_t>(i)]; }
    bool isFading(int i) const noexcept { return fading[static_cast<size_t>(i)]; }

private:
    void decayHold(size_t c) noexcept
    {
        hold[c] *= decay;
        if (! (hold[c] >= holdThreshold))
            fading[c] = true;
    }

    void shut(size_t c) noexcept
    {
        active[c] = false;
        fading[c] = false;
        fadePhase[c] = 0.0;
    }

    std::array<bool, 2> active{true, true};
    std::array<double, 2> hold{};
    double decay = 0.9996;
    std::array<bool, 2> fading{};
    double fadeStep = 0.0;
    std::array<double, 2> fadePhase{};
};
