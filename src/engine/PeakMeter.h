#pragma once

#include <algorithm>
#include <array>

/** One channel's peak meter: each output sample's meter position from a table of 400 entries (one
    per 0.01 of signal value from -2 to 2), held at its highest and decaying by `decay` per sample.
    Thread: audio thread, under the effect's core lock. */
class PeakMeter
{
public:
    using Table = std::array<double, 400>;

    /** The decay per sample for a rate's speed scale (1 at 44100 Hz): 1 - speedScale * 0.0001. */
    void setSpeedScale(double speedScale) noexcept { decay = 1.0 - speedScale * 0.0001; }
    void reset() noexcept { state = last = 0.0; }

    /** Takes one output sample. */
    void take(float output, const Table& table) noexcept
    {
        const float position = output * 100.0f + 200.0f;
        const int k = position >= 0.0f ? std::min(static_cast<int>(std::min(position, 399.0f)), 399) : 0;
        last = table[static_cast<size_t>(k)];
        if (last > state)
            state = last;
        state *= decay;
    }

    /** The held level, 0..1. */
    float level() const noexcept { return static_cast<float>(std::clamp(state, 0.0, 1.0)); }

private:
    double state = 0.0, last = 0.0;
    double decay = 0.9999;
};
