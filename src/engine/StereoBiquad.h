#pragma once

#include "SampleRateContext.h"

#include <array>
#include <memory>

/** A two-lane biquad whose coefficients come from sine and cosine tables instead of sin and cos
    calls, so that a run can re-tune it cheaply. Entry i of the tables stands for i / 2 Hz at the
    design rate of its context (twice the host's rate in this engine). Type 1 is a low-pass and
    type 4 a high-pass; other types are not used by this product and leave the coefficients as
    they are. A corner is kept below 0.45 times the design rate (nine tenths of its Nyquist
    frequency): beyond Nyquist the design turns unstable, so at low host rates a fixed corner is
    pulled down instead. Thread: audio thread, under the effect's core lock; `fillTables` at reset. */
class StereoBiquad
{
public:
    static constexpr int lowPass = 1;
    static constexpr int highPass = 4;

    StereoBiquad(int type, float minimumFrequency, float maximumFrequency, float minimumQ, float maximumQ,
                 int tableSize);

    /** Fills the tables from the context's rate and clears the signal state. */
    void fillTables(const SampleRateContext& designContext);
    /** Tunes the filter: frequency and Q move between their minimum and maximum with the amounts. */
    void setCoefficients(float frequencyAmount, float resonanceAmount) noexcept;
    void clearState() noexcept;

    /** One step of both lanes; the outputs replace the inputs. */
    void process(float& left, float& right) noexcept
    {
        left = processLane(0, left);
        right = processLane(1, right);
    }

    /** The last input of a lane. */
    float lastInput(int lane) const noexcept { return x1[static_cast<size_t>(lane)]; }

    int type;

private:
    float processLane(int lane, float input) noexcept
    {
        const auto i = static_cast<size_t>(lane);
        x0[i] = input;
        const float y = c0[i] * x0[i] + c1[i] * x1[i] + c2[i] * x2[i] + c3[i] * y1[i] - c4[i] * y2[i];
        x2[i] = x1[i];
        x1[i] = x0[i];
        y2[i] = y1[i];
        y1[i] = y;
        return y;
    }

    float frequencyAmount = 0.0f;
    float cornerLimit = 0.0f; // Hz at the design rate, set by fillTables
    float minimumFrequency, maximumFrequency, frequencySpan;
    float resonanceAmount = 0.0f;
    float minimumQ, maximumQ, qSpan;
    int tableSize;
    std::unique_ptr<float[]> sineTable;
    std::unique_ptr<float[]> cosineTable;
    std::array<float, 2> x0{}, x2{}, x1{}, y1{}, y2{};
    std::array<float, 2> c0{}, c1{}, c2{}, c3{}, c4{};
};
