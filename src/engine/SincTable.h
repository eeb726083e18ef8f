#pragma once

#include <array>
#include <memory>

/** A windowed-sinc interpolator of `taps` taps at 1024 phases, used to sample the input ring at a
    clock tick's fractional time. `raw` holds the windowed sinc in time order (centre at
    (N - 2) / 2 of N = taps * 1024 entries); `polyphase` holds the same values so that the taps of
    one phase form a contiguous row that runs backwards in time: row p starts at p * taps.
    Rows are not normalised. Built once, read only afterwards. */
struct SincTable
{
    explicit SincTable(int tapCount);

    int taps;
    std::unique_ptr<float[]> raw;
    std::unique_ptr<float[]> polyphase;
};

/** The band-limited step: 512 sub-sample phases of 8 output samples. Row r, column k holds the
    part of a unit jump, made at fraction r / 512 of a sample, that has arrived k samples later;
    it rises from about 0 to about 1 with k and reaches one half at k = 3 + r / 512. */
using StepTable = std::array<std::array<float, 8>, 512>;

void buildStepTable(StepTable& table);
