#pragma once

#include <array>
#include <cmath>

/** Per-channel silence gate. A channel whose input stays below about -96 dBFS for about 0.63 s at
    44100 Hz fades out over 100 ms and then shuts; the engine stops working only when both channels
    are shut. Any input above the threshold reopens a channel at once.
    Three states per channel: running (`active`, not `fading`), fading, shut (not `active`).
    Thread: audio thread, under the effect's core lock. */
struct SilenceGate
{
    static constexpr float armThreshold = 1.52587e-5f;
    static constexpr double holdThreshold = 1.5258699932019226e-5;

    /** An input sample above the threshold holds channel i open. */
    void arm(int i, float input) noexcept
    {
        if (std::abs(input) > armThreshold)
        {
            active[static_cast<size_t>(i)] = true;
            hold[static_cast<size_t>(i)] = 1.0;
            fading[static_cast<size_t>(i)] = false;
            fadePhase[static_cast<size_t>(i)] = 0.0;
        }
    }

    /** Lets channel i's hold decay and applies the fade to its output sample. */
    float fade(int i, float output) noexcept
    {
        const auto c = static_cast<size_t>(i);
        hold[c] *= decay;
        if (! (hold[c] >= holdThreshold))
            fading[c] = true;
        if (fading[c])
        {
            const double g = (std::cos(fadePhase[c]) + 1.0) * 0.5;
            fadePhase[c] += fadeStep;
            output = static_cast<float>(output * g);
            if (! (g >= holdThreshold))
            {
                active[c] = false;
                fading[c] = false;
                fadePhase[c] = 0.0;
            }
        }
        return output;
    }

    /** What `fade(i, 0.0f)` does to a shut channel, without the cosine while the fade is far from
        its end: below a phase of 3.13 the gain is at least 6e-5, clear of the threshold. */
    void idle(int i) noexcept
    {
        const auto c = static_cast<size_t>(i);
        hold[c] *= decay;
        if (! (hold[c] >= holdThreshold))
            fading[c] = true;
        if (fading[c])
        {
            const double phase = fadePhase[c];
            fadePhase[c] += fadeStep;
            if (phase > 3.13 && ! ((std::cos(phase) + 1.0) * 0.5 >= holdThreshold))
            {
                active[c] = false;
                fading[c] = false;
                fadePhase[c] = 0.0;
            }
        }
    }

    bool isShut() const noexcept { return ! active[0] && ! active[1]; }

    std::array<bool, 2> active { true, true };
    std::array<double, 2> hold {};
    double decay = 0.9996;
    std::array<bool, 2> fading {};
    double fadeStep = 0.0;
    std::array<double, 2> fadePhase {};
};
