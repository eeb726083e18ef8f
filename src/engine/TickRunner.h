#pragma once

#include "SincTable.h"

#include <emmintrin.h>

#include <cstdint>

/** The fast tick loop of one channel for one host sample, for a fixed number of sinc taps.

    Each tick reads the input ring through one row of the polyphase sinc table (four running sums,
    four taps at a time), pushes the result into the line, takes out the oldest stage and adds the
    staircase's jump to the eight step sums as a band-limited step. The input ring does not change
    within a host sample, so the dot products of several ticks are independent: `run<n>` works n
    ticks side by side, which hides the adds' latency, and loads the ring's taps once when every
    tick of the group reads from the same ring position (the usual case when the clock is fast).
    Each tick keeps its own four sums and is pushed in order, so the output is exactly that of
    ticks run one by one.

    Built by `BbdLine::tick` on the stack; the line copies its state back.
    Thread: audio thread. */
template <int taps> struct TickRunner
{
    static_assert(taps % 4 == 0, "the tick loop works four taps at a time");

    const float* table; // polyphase rows of `taps` floats, 1024 of them
    const float* ring;  // the first tap of a tick whose whole read position is 0
    double readDelayFraction;
    const StepTable& stepTable;
    double* stages;
    int stageCount;
    int index;
    double last;
    double delta;
    __m128 stepLow, stepHigh; // the eight step sums this sample's ticks add into
    std::uint64_t ticks = 0;

    /** Where a tick at a given phase reads: the sinc table's row for its fraction, and the ring. */
    void locate(double tickTime, const float*& row, const float*& tapStart) const noexcept
    {
        // t is never negative and t * 1024 is exact, so one conversion gives both the whole part
        // (the top bits) and the row of the fraction, exactly as converting each one alone would.
        const auto scaled = static_cast<int>((tickTime + readDelayFraction) * 1024.0);
        row = table + (scaled & 1023) * taps;
        tapStart = ring + (scaled >> 10);
    }

    /** One tick's move through the line with the value `v` its dot product gave. */
    void push(float v, double tickTime) noexcept
    {
        stages[index] = static_cast<double>(v);
        if (++index == stageCount)
            index = 0;
        const double u = stages[index];
        delta = u - last;
        last = u;
        const float* step = stepTable[static_cast<size_t>(static_cast<int>(tickTime * 512.0))].data();
        const __m128 jump = _mm_set1_ps(static_cast<float>(delta));
        stepLow = _mm_add_ps(stepLow, _mm_mul_ps(jump, _mm_loadu_ps(step)));
        stepHigh = _mm_add_ps(stepHigh, _mm_mul_ps(jump, _mm_loadu_ps(step + 4)));
    }

    /** Runs n ticks at the given phases, in order. */
    template <int n> void run(const double* phases) noexcept
    {
        const float* rows[n];
        const float* tapStarts[n];
        bool shared = true;
        for (int j = 0; j < n; ++j)
        {
            locate(phases[j], rows[j], tapStarts[j]);
            shared = shared && tapStarts[j] == tapStarts[0];
        }

        float values[n];
        if (shared)
            dotProducts<n, true>(rows, tapStarts, values);
        else
            dotProducts<n, false>(rows, tapStarts, values);

        for (int j = 0; j < n; ++j)
            push(values[j], phases[j]);
        ticks += static_cast<std::uint64_t>(n);
    }

    /** Runs `count` ticks, 1 <= count <= n, as one group. */
    template <int n> void runUpTo(int count, const double* phases) noexcept
    {
        if constexpr (n > 1)
        {
            if (count < n)
            {
                runUpTo<n - 1>(count, phases);
                return;
            }
        }
        run<n>(phases);
    }

private:
    /** (s0 + s1) + (s2 + s3) of the four lanes, in that order. */
    static float sumLanes(__m128 s) noexcept
    {
        const __m128 pairs = _mm_add_ps(s, _mm_shuffle_ps(s, s, _MM_SHUFFLE(2, 3, 0, 1))); // s0+s1, _, s2+s3, _
        return _mm_cvtss_f32(_mm_add_ss(pairs, _mm_movehl_ps(pairs, pairs)));
    }

    template <int n, bool sharedTaps>
    static void dotProducts(const float* const* rows, const float* const* tapStarts, float* values) noexcept
    {
        __m128 sums[n];
        for (int j = 0; j < n; ++j)
            sums[j] = _mm_setzero_ps();
        for (int k = 0; k < taps; k += 4)
        {
            if constexpr (sharedTaps)
            {
                const __m128 x = _mm_loadu_ps(tapStarts[0] + k);
                for (int j = 0; j < n; ++j)
                    sums[j] = _mm_add_ps(sums[j], _mm_mul_ps(_mm_loadu_ps(rows[j] + k), x));
            }
            else
            {
                for (int j = 0; j < n; ++j)
                    sums[j] =
                        _mm_add_ps(sums[j], _mm_mul_ps(_mm_loadu_ps(rows[j] + k), _mm_loadu_ps(tapStarts[j] + k)));
            }
        }
        for (int j = 0; j < n; ++j)
            values[j] = sumLanes(sums[j]);
    }
};
