#include "StereoBiquad.h"

#include <algorithm>
#include <cmath>

StereoBiquad::StereoBiquad(int filterType, float minimumHz, float maximumHz, float minimumQValue, float maximumQValue,
                           int entries)
    : type(filterType), minimumFrequency(minimumHz), maximumFrequency(maximumHz), frequencySpan(maximumHz - minimumHz),
      minimumQ(minimumQValue), maximumQ(maximumQValue), qSpan(maximumQValue - minimumQValue), tableSize(entries),
      sineTable(new float[static_cast<size_t>(entries)]()), cosineTable(new float[static_cast<size_t>(entries)]())
{
}

void StereoBiquad::fillTables(const SampleRateContext& designContext)
{
    cornerLimit = static_cast<float>(designContext.sampleRate * 0.45);
    for (int i = 0; i < tableSize; ++i)
    {
        const double w = i * 0.5 * designContext.samplePeriod * 6.283185307179586;
        sineTable[i] = static_cast<float>(std::sin(w));
        cosineTable[i] = static_cast<float>(std::cos(w));
    }
    clearState();
}

void StereoBiquad::clearState() noexcept
{
    x0 = x1 = x2 = y1 = y2 = {};
}

void StereoBiquad::setCoefficients(float newFrequencyAmount, float newResonanceAmount) noexcept
{
    frequencyAmount = newFrequencyAmount;
    resonanceAmount = newResonanceAmount;

    const float f = std::min(frequencyAmount * frequencySpan + minimumFrequency, cornerLimit);
    const int i = std::clamp(static_cast<int>(2.0f * f), 0, tableSize - 1);
    const float s = sineTable[i];
    const float c = cosineTable[i];
    const float q = minimumQ + resonanceAmount * qSpan;
    const float alpha = s / (2.0f * q);

    float b0, b1;
    if (type == lowPass)
    {
        b0 = (1.0f - c) / 2.0f;
        b1 = 1.0f - c;
    }
    else if (type == highPass)
    {
        b0 = (1.0f + c) / 2.0f;
        b1 = -(1.0f + c);
    }
    else
    {
        return;
    }
    const float b2 = b0;
    const float a0 = 1.0f + alpha;
    const float a1 = -2.0f * c;
    const float a2 = 1.0f - alpha;

    c0.fill(b0 / a0);
    c1.fill(b1 / a0);
    c2.fill(b2 / a0);
    c3.fill(-a1 / a0);
    c4.fill(a2 / a0);
}
