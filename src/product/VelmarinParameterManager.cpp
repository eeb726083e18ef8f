#include "VelmarinParameterManager.h"

#include "engine/VelmarinParameterIndex.h"

#include <cmath>

namespace
{
namespace P = VelmarinParameter;

/** floor(x + 0.5) in float. */
int floorRound(float x)
{
    return static_cast<int>(std::floor(x + 0.5f));
}

/** Rounds halves away from zero, in the precision of its argument. */
template <typename Real> Real awayRound(Real x)
{
    return x >= Real(0) ? std::trunc(x + Real(0.5)) : std::trunc(x - Real(0.5));
}

juce::String percentText(float n)
{
    return juce::String(floorRound(n * 100.0f)) + "%";
}

juce::String splitText(float n, const char* suffix)
{
    const int r = floorRound(n * 100.0f);
    return juce::String(100 - r) + "/" + juce::String(r) + suffix;
}

/** The parameter that takes over from a parameter when it is on (a link or the auto mix mode), or -1.
    Only the R/S side of a linked pair is ever inactive. */
int masterOf(int index)
{
    switch (index)
    {
    case P::delayOffsetRight:
        return P::delayOffsetLink;
    case P::lfoRateRight:
        return P::lfoRateLink;
    case P::lfoDepthRight:
        return P::lfoDepthLink;
    case P::feedbackRight:
        return P::feedbackLink;
    case P::gainLeft:
    case P::gainRight:
    case P::fxAmount:
        return P::autoMixMode;
    default:
        return -1;
    }
}
} // namespace

juce::String VelmarinParameterManager::format(const Parameter& parameter)
{
    const int index = parameter.getIndex();
    if (const int master = masterOf(index); master >= 0 && getBool(master))
        return "Inactive";

    // An int parameter with a single value answers NaN (0 / 0); it shows as its only value. No NaN
    // may reach the conversions to int below.
    const float normalized = parameter.getNormalized();
    const float n = std::isnan(normalized) ? 0.0f : normalized;
    switch (index)
    {
    case P::preamp:
    {
        const float x = n * 24.0f;
        return (x > 0.0f ? "+" : "") + juce::String(static_cast<double>(x), 1) + "dB";
    }
    case P::channelsCrossfade:
        return splitText(n, "%");
    case P::delayOffsetLeft:
    case P::delayOffsetRight:
    case P::lfoDepthLeft:
    case P::lfoDepthRight:
    case P::gainLeft:
    case P::gainRight:
        return percentText(n);
    case P::lfoRateLeft:
    case P::lfoRateRight:
    {
        const double hertz = std::exp(static_cast<double>(n) * 7.37626162510092) * 0.025037454253099462;
        return juce::String(awayRound(hertz * 1000.0) * 0.001, 0) + "Hz";
    }
    case P::feedbackLeft:
    case P::feedbackRight:
    {
        const auto p = static_cast<int>(awayRound((n * 1.9f - 0.95f) * 105.26316f));
        return (p > 0 ? "+" : "") + juce::String(p) + "%";
    }
    case P::lfoPhaseShift:
        return juce::String(static_cast<int>(awayRound(n * 180.0f))) + " deg";
    case P::bbdFrequencyRange:
        return "x " + juce::String(static_cast<int>(n * 5.0f * 100.0f + 100.5f) * 0.01, 0);
    case P::fxAmount:
        return splitText(n, "% (Dry/Wet)");
    case P::outputVolume:
    {
        const double v = static_cast<double>(n) * n * 4.0;
        if (v > 0.0)
        {
            const double dB = 20.0 * std::log10(v);
            if (dB > -320.0)
                return (dB > 0.01 ? "+" : "") + juce::String(dB, 1) + "dB";
        }
        return "-Inf.";
    }
    default:
        return {};
    }
}

ParameterFormatter* VelmarinParameterManager::getFormatter(int index)
{
    switch (index)
    {
    case P::preamp:
    case P::channelsCrossfade:
    case P::delayOffsetLeft:
    case P::delayOffsetRight:
    case P::lfoRateLeft:
    case P::lfoRateRight:
    case P::lfoDepthLeft:
    case P::lfoDepthRight:
    case P::feedbackLeft:
    case P::feedbackRight:
    case P::lfoPhaseShift:
    case P::bbdFrequencyRange:
    case P::gainLeft:
    case P::gainRight:
    case P::fxAmount:
    case P::outputVolume:
        return this;
    default:
        return nullptr;
    }
}
