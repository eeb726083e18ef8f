#pragma once

#include <array>
#include <cstddef>

/** Four one-pole parameter smoothers stepped together, once per sample: each entry glides towards
    its target by `coefficient` of the distance, a time constant of about 500 samples at 44100 Hz.
    Entries and targets start at 0, so the first run after construction glides every quantity up
    from 0. Thread: audio thread, under the effect's core lock. */
class SmootherBank
{
public:
    static constexpr float baseCoefficient = 0.002f;

    /** The glide per sample: `baseCoefficient` times the rate's speed scale. */
    void setCoefficient(float c) noexcept { coefficient = c; }
    void setTargets(const std::array<float, 4>& targets) noexcept { target = targets; }

    void step() noexcept
    {
        for (size_t i = 0; i < 4; ++i)
            current[i] -= (current[i] - target[i]) * coefficient;
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

    /** The smoothed value of entry i, 0..3. */
    float value(size_t i) const noexcept { return current[i]; }

private:
    std::array<float, 4> current{};
    std::array<float, 4> target{};
    float coefficient = baseCoefficient;
};
