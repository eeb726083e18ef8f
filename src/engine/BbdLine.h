#pragma once

#include "SincTable.h"

#include <array>
#include <cstdint>

/** A ring of `length` samples (128 or 256) kept in three consecutive copies, so that a read up to
    one copy behind or ahead of the write position needs no wrap. The write index runs 0..length-1
    and is kept by the owner, who shares it between rings. */
struct TripleRing
{
    static constexpr int maxLength = 256;

    void write(int index, int length, float value) noexcept
    {
        samples[static_cast<size_t>(index)] = value;
        samples[static_cast<size_t>(index + length)] = value;
        samples[static_cast<size_t>(index + 2 * length)] = value;
    }
    float read(int position) const noexcept { return samples[static_cast<size_t>(position)]; }
    void clear() noexcept { samples.fill(0.0f); }
    const float* data() const noexcept { return samples.data(); }

private:
    std::array<float, 3 * maxLength> samples{};
};

/** Which tick loop a line runs. `fast` works four taps at a time and two or eight ticks side by
    side; `plain` is the straightforward one-tick-at-a-time loop of the same arithmetic and the same
    order of sums, so both give the same output bit for bit. The product runs `fast`; `plain` stays
    for the tests and benchmarks that hold the fast loop to it. */
enum class TickLoop
{
    fast,
    plain
};

/** One channel of the bucket-brigade line with its own clock inside the host's samples.

    Per host sample: `push` writes the line's input into the input ring; `tick` runs every clock tick
    that falls in the sample (each samples the ring through the windowed-sinc table, moves the line
    by one stage and adds the output staircase's jump as a band-limited step to the step ring);
    `read` gives the raw wet sample; `storeWet` keeps the wet sample after the low cut, and `wetTap`
    reads it two samples later. The ring positions are the caller's: the input ring index (shared
    with the dry ring) and the output ring index.

    Thread: audio thread, under the effect's core lock; `prepare`, `setStages` and `setQuality`
    also from a parameter writer under that lock. No allocation: the tables are the caller's and
    outlive the line. */
class BbdLine
{
public:
    /** Samples per copy of the input ring up to about 365 kHz, and above. */
    static constexpr int shortRingLength = 128;
    static constexpr int longRingLength = 256;
    static constexpr int maxStages = 512;

    explicit BbdLine(const StepTable& steps) noexcept : stepTable(steps) {}

    /** Sets the read delay and the ring length for a sample rate. */
    void prepare(double sampleRate) noexcept;
    /** Clears the input ring and the line, and restarts the clock at the sample's start. */
    void clear() noexcept;
    /** The number of stages, 16..512; clears the line. */
    void setStages(int count) noexcept;
    /** `setStages`, and forgets the line's last output. */
    void reset(int count) noexcept;
    /** The interpolator: a polyphase sinc table of `taps` taps (4, 8, 16 or 32) and the tap offset
        that keeps its read centred. */
    void setQuality(const float* table, int taps, int offset) noexcept;
    /** Puts the next tick at the start of the sample, as the other line's after the same call. */
    void alignClock() noexcept { tickPhase = 0.0; }

    void push(int ringIndex, float input) noexcept { inputRing.write(ringIndex, ringLength, input); }
    /** Runs the ticks of one host sample, `tickStep` host samples apart. */
    template <TickLoop loop> void tick(double tickStep, int ringIndex, int outputIndex) noexcept;
    /** The raw wet sample: the steps still in progress plus the level reached eight samples ago. */
    float read(int outputIndex) noexcept
    {
        tickPhase -= 1.0;
        const auto level = static_cast<float>(lastOutput);
        levelRing[static_cast<size_t>(outputIndex + 64)] = level;
        levelRing[static_cast<size_t>(outputIndex)] = level;
        return stepRing[static_cast<size_t>(outputIndex + 64)] + levelRing[static_cast<size_t>(outputIndex + 56)];
    }
    /** Keeps the wet sample after the low cut in the step ring. */
    void storeWet(int outputIndex, float wet) noexcept
    {
        stepRing[static_cast<size_t>(outputIndex)] = stepRing[static_cast<size_t>(outputIndex + 64)] = wet;
    }
    /** The wet sample stored two samples ago. */
    float wetTap(int outputIndex) const noexcept { return stepRing[static_cast<size_t>(outputIndex + 62)]; }

    int getRingLength() const noexcept { return ringLength; }
    int getStages() const noexcept { return stageCount; }
    /** The clock scale of the stage count: 1 at 512 stages. */
    double getStageScale() const noexcept { return stageScale; }
    int getTaps() const noexcept { return tapCount; }
    std::uint64_t getTicksRun() const noexcept { return ticksRun; }

private:
    static constexpr int lineSize = 3072;
    static constexpr int outputRingSize = 200; // 64 samples in two copies and 8 more

    template <int taps, int group> void runFast(double tickStep, int ringBase, int o) noexcept;
    void runPlain(double tickStep, int ringBase, int o) noexcept;

    const StepTable& stepTable;
    const float* table = nullptr;
    int tapCount = 4, tapOffset = 0;
    int readDelayWhole = 1;
    double readDelayFraction = 1.0;
    int ringLength = shortRingLength;
    int stageCount = 256;
    double stageScale = 0.5;

    TripleRing inputRing;
    std::array<double, lineSize> stages{};
    int index = 0;
    double tickPhase = 0.0;
    double lastOutput = 0.0, lastDelta = 0.0;
    std::array<float, outputRingSize> stepRing{};
    std::array<float, outputRingSize> levelRing{};
    std::uint64_t ticksRun = 0;
};

// Inline: the run calls it once per sample and channel; the loops themselves are out of line.
template <TickLoop loop> inline void BbdLine::tick(double tickStep, int ringIndex, int o) noexcept
{
    const auto ou = static_cast<size_t>(o);
    stepRing[ou + 72] = 0.0f;
    stepRing[ou + 8] = 0.0f;
    const int ringBase = ringIndex + ringLength;

    if constexpr (loop == TickLoop::plain)
    {
        runPlain(tickStep, ringBase, o);
    }
    else
    {
        // Short rows leave little to overlap: two ticks side by side are enough. Long rows take
        // eight, so that eight chains of adds hide each other's latency.
        switch (tapCount)
        {
        case 4:
            runFast<4, 2>(tickStep, ringBase, o);
            break;
        case 8:
            runFast<8, 2>(tickStep, ringBase, o);
            break;
        case 16:
            runFast<16, 8>(tickStep, ringBase, o);
            break;
        default:
            runFast<32, 8>(tickStep, ringBase, o);
            break;
        }
    }
}
