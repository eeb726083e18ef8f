#include "FrequencyReadout.h"

#include <cmath>

juce::String bbdFrequencyText(float hertz)
{
    const double f = hertz;
    if (f == 0.0)
        return {};
    if (f < 10000.0)
        return juce::String(static_cast<juce::int64>(std::lround(f))).paddedLeft(' ', 5);
    if (f < 99999.0)
        return juce::String(f * 0.001, 1) + "k";
    if (f < 999999.0)
        return " " + juce::String(static_cast<juce::int64>(std::floor(f * 0.001))) + "k";
    return juce::String(f * 1e-6, 2) + "M";
}
