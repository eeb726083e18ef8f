#pragma once

#include <cmath>

/** One channel's input conditioning for the auto mix: a first-order high-pass at 71.2 Hz, then a
    low shelf made from a one-pole low-pass at 58.41 Hz of the high-passed signal.
    Thread: audio thread, under the effect's core lock. */
class InputConditioner
{
public:
    void setSampleRate(float sampleRate) noexcept
    {
        highPassCoefficient = std::exp(-447.36279f / sampleRate);
        highPassGain = (highPassCoefficient + 1.0f) * 0.5f;
        shelfCoefficient = std::exp(-367.00085f / sampleRate);
    }

    void reset() noexcept { highPass = previous = shelf = 0.0f; }

    float process(float x) noexcept
    {
        highPass = (x - previous) * highPassGain + highPassCoefficient * highPass;
        previous = x;
        shelf = highPass - (highPass - shelf) * shelfCoefficient;
        return highPass + shelf * 0.9639f;
    }

private:
    float highPass = 0.0f, previous = 0.0f, shelf = 0.0f;
    float highPassCoefficient = 0.0f, highPassGain = 0.0f, shelfCoefficient = 0.0f;
};

/** One channel's make-up of the low end that the "Mistress" low cut takes away: the wet signal plus
    20 times its one-pole low-pass at 19.21 Hz.
    Thread: audio thread, under the effect's core lock. */
class LowEndMakeUp
{
public:
    void setSampleRate(float sampleRate) noexcept { coefficient = std::exp(-120.69999f / sampleRate); }
    void reset() noexcept { state = 0.0f; }

    float process(float w) noexcept
    {
        state = w - (w - state) * coefficient;
        return w + state * 20.0f;
    }

private:
    float state = 0.0f;
    float coefficient = 0.0f;
};
