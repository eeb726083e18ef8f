#include "BbdLine.h"

#include "TickRunner.h"

#include <emmintrin.h>

#include <algorithm>

void BbdLine::prepare(double sampleRate) noexcept
{
    // The read delay grows with the rate so that the interpolator's read stays clear of the newest
    // input: sr / 3150 - 14 samples, split into a whole part and a fraction.
    const double z = sampleRate * 0.00031746031746031746 - 14.0;
    const auto w = static_cast<int>(z);
    readDelayWhole = w + 1;
    readDelayFraction = 1.0 - (z - w);

    // A tick's first tap lies readDelayWhole + 17 - tapOffset samples behind the newest input, and
    // "Ultra" (tapOffset -8) reaches deepest. The short ring serves every rate it can, so that its
    // reads (those of the widest rows past the newest sample included) stay exactly as they are;
    // the long one takes the rates beyond. The plug-in hands over no rate above 768 kHz, where the
    // deepest tap lies 255 samples back; the bound below only keeps a wilder caller in memory.
    const int deepestTap = readDelayWhole + 17 + 8;
    ringLength = deepestTap < shortRingLength ? shortRingLength : longRingLength;
    readDelayWhole = std::min(readDelayWhole, longRingLength - 1 - 17 - 8);
}

void BbdLine::clear() noexcept
{
    inputRing.clear();
    stages.fill(0.0);
    tickPhase = 0.0;
    index = 0;
}

void BbdLine::reset(int count) noexcept
{
    setStages(count);
    lastDelta = 0.0;
    lastOutput = 0.0;
}

void BbdLine::setStages(int count) noexcept
{
    stageCount = count;
    stageScale = stageCount * 0.001953125;
    clear();
}

void BbdLine::setQuality(const float* newTable, int taps, int offset) noexcept
{
    table = newTable;
    tapCount = taps;
    tapOffset = offset;
}

template <int taps, int group> void BbdLine::runFast(double tickStep, int ringBase, int o) noexcept
{
    float* steps = stepRing.data();
    TickRunner<taps> runner{table,
                            inputRing.data() + tapOffset - readDelayWhole - 17 + ringBase,
                            readDelayFraction,
                            stepTable,
                            stages.data(),
                            stageCount,
                            index,
                            lastOutput,
                            lastDelta,
                            _mm_loadu_ps(steps + o + 64),
                            _mm_loadu_ps(steps + o + 68)};

    // The phases of the next ticks come from the same running sum the ticks advance by, so a
    // group's ticks sit exactly where ticks run one by one would.
    double phases[group];
    double phase = tickPhase;
    while (phase < 1.0)
    {
        phases[0] = phase;
        int n = 1;
        phase += tickStep;
        while (n < group && phase < 1.0)
        {
            phases[n++] = phase;
            phase += tickStep;
        }

        runner.template runUpTo<group>(n, phases);
    }

    _mm_storeu_ps(steps + o + 64, runner.stepLow);
    _mm_storeu_ps(steps + o + 68, runner.stepHigh);
    _mm_storeu_ps(steps + o, runner.stepLow);
    _mm_storeu_ps(steps + o + 4, runner.stepHigh);
    tickPhase = phase;
    index = runner.index;
    lastOutput = runner.last;
    lastDelta = runner.delta;
    ticksRun += runner.ticks;
}

void BbdLine::runPlain(double tickStep, int ringBase, int o) noexcept
{
    const float* ring = inputRing.data();
    float* steps = stepRing.data();
    double phase = tickPhase;
    const int firstTap = tapOffset - readDelayWhole - 17 + ringBase;

    while (phase < 1.0)
    {
        const double t = phase + readDelayFraction;
        const auto whole = static_cast<int>(t);
        const float* row = table + static_cast<int>((t - whole) * 1024.0) * tapCount;
        const float* taps = ring + firstTap + whole;
        // Four running sums, one per lane of the fast loop, added as (s0 + s1) + (s2 + s3).
        float s[4] = {0.0f, 0.0f, 0.0f, 0.0f};
        for (int k = 0; k < tapCount; k += 4)
            for (int lane = 0; lane < 4; ++lane)
                s[lane] += row[k + lane] * taps[k + lane];
        const float v = (s[0] + s[1]) + (s[2] + s[3]);

        stages[static_cast<size_t>(index)] = static_cast<double>(v);
        if (++index == stageCount)
            index = 0;
        const double u = stages[static_cast<size_t>(index)];
        const double delta = u - lastOutput;
        lastOutput = u;
        lastDelta = delta;

        const auto& step = stepTable[static_cast<size_t>(static_cast<int>(phase * 512.0))];
        const auto jump = static_cast<float>(delta);
        for (int k = 0; k < 8; ++k)
        {
            const float sum = steps[o + 64 + k] + jump * step[static_cast<size_t>(k)];
            steps[o + 64 + k] = sum;
            steps[o + k] = sum;
        }
        phase += tickStep;
        ++ticksRun;
    }

    tickPhase = phase;
}

template void BbdLine::runFast<4, 2>(double, int, int) noexcept;
template void BbdLine::runFast<8, 2>(double, int, int) noexcept;
template void BbdLine::runFast<16, 8>(double, int, int) noexcept;
template void BbdLine::runFast<32, 8>(double, int, int) noexcept;
