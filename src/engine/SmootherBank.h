#pragma once

#include <array>

/** Four one-pole parameter smoothers stepped together, once per sample: each `current` glides
    towards its `target` by `coefficient` of the distance, a time constant of about 500 samples at
    44100 Hz. `current` and `target` start at 0, so the first run after construction glides every
    quantity up from 0. Thread: audio thread, under the effect's core lock. */
struct SmootherBank
{
    static constexpr float baseCoefficient = 0.002f;

    void step() noexcept
    {
        for (int i = 0; i < 4; ++i)
            current[static_cast<size_t>(i)] -= (current[static_cast<size_t>(i)] - target[static_cast<size_t>(i)]) * coefficient;
    }

    /** True when a step would change no entry: the bank has come to rest, and stays there until a
        target or the coefficient changes. */
    bool isAtRest() const noexcept
    {
        for (size_t i = 0; i < 4; ++i)
            if (current[i] - (current[i] - target[i]) * coefficient != current[i])
                return false;
        return true;
    }

    /** Jumps every entry to its target. */
    void settle() noexcept { current = target; }

    std::array<float, 4> current {};
    std::array<float, 4> target {};
    float coefficient = baseCoefficient;
};
