#pragma once

// A VelmarinCore on its own sample-rate context, with the product's parameters set by index the way
// the plug-in's listener chain delivers them.
#include "engine/SampleRateContext.h"
#include "engine/VelmarinCore.h"
#include "engine/VelmarinParameterIndex.h"
#include "parameters/BoolParameter.h"
#include "parameters/EnumParameter.h"
#include "parameters/FloatParameter.h"

#include <vector>

namespace Param = VelmarinParameter;

struct Stereo
{
    std::vector<float> left, right;
};

class CoreRig
{
public:
    explicit CoreRig(double sampleRate = 44100.0)
    {
        context.set(sampleRate);
        core.context = &context;
        // The product's defaults for everything the run reads.
        setFloat(Param::preamp, 0.0f);
        setBool(Param::msMode, false);
        setFloat(Param::channelsCrossfade, 0.0f);
        setFloat(Param::delayOffsetLeft, 0.2f);
        setFloat(Param::lfoRateLeft, 0.216f);
        setFloat(Param::lfoRateRight, 0.216f);
        setChoice(Param::lfoNoteRateLeft, 7); // "1/4"
        setChoice(Param::lfoNoteRateRight, 7);
        setFloat(Param::lfoDepthLeft, 0.332f);
        setFloat(Param::feedbackLeft, 0.5f); // no feedback
        setChoice(Param::lfoSync, 0);        // "Off"
        setFloat(Param::lfoPhaseShift, 0.0f);
        setChoice(Param::lfoVoltageCurve, 0); // "Mistress"
        setChoice(Param::bbdLength, 4);       // 256 stages
        setFloat(Param::bbdFrequencyRange, 0.6f);
        setChoice(Param::lowCut, 2); // "Mistress"
        setFloat(Param::gainLeft, 1.0f);
        setFloat(Param::gainRight, 1.0f);
        setBool(Param::autoMixMode, true);
        setFloat(Param::fxAmount, 0.5f);
        setFloat(Param::outputVolume, 0.5f);    // unity
        setChoice(Param::processingQuality, 1); // "Normal"
        core.reset(true);
    }

    void setFloat(int index, float normalized)
    {
        FloatParameter p(index, "p", 0.0f, 1.0f, normalized);
        core.parameterChanged(p);
    }
    void setBool(int index, bool on)
    {
        StateParameter p(index, "p", on);
        core.parameterChanged(p);
    }
    void setChoice(int index, int item)
    {
        EnumParameter p(index, "p");
        p.setItems("0;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15");
        p.setInt(item, false);
        core.parameterChanged(p);
    }

    /** A prepare: reset, with the rate-dependent part only when the rate changed. */
    void prepare(double sampleRate) { core.reset(context.set(sampleRate)); }

    /** Runs the input through processStereo in runs of `runLength` samples. */
    Stereo runStereo(const Stereo& input, int runLength = 512, bool bypassed = false)
    {
        Stereo out{input.left, input.right};
        for (size_t start = 0; start < out.left.size(); start += static_cast<size_t>(runLength))
        {
            const int n = static_cast<int>(std::min(out.left.size() - start, static_cast<size_t>(runLength)));
            core.processStereo(out.left.data() + start, out.right.data() + start, out.left.data() + start,
                               out.right.data() + start, n, bypassed);
        }
        return out;
    }

    std::vector<float> runMono(std::vector<float> buffer, int runLength = 512, bool bypassed = false)
    {
        for (size_t start = 0; start < buffer.size(); start += static_cast<size_t>(runLength))
        {
            const int n = static_cast<int>(std::min(buffer.size() - start, static_cast<size_t>(runLength)));
            core.processMono(buffer.data() + start, n, bypassed);
        }
        return buffer;
    }

    SampleRateContext context;
    VelmarinCore core;
};

/** A deterministic, full-band test signal: a decaying chord of partials plus a little noise. */
inline Stereo testSignal(int length, double sampleRate = 44100.0)
{
    Stereo s{std::vector<float>(static_cast<size_t>(length)), std::vector<float>(static_cast<size_t>(length))};
    unsigned seed = 12345u;
    for (int i = 0; i < length; ++i)
    {
        seed = seed * 1664525u + 1013904223u;
        const double noise = (static_cast<double>(seed >> 8) / 16777216.0 - 0.5) * 0.05;
        const double t = i / sampleRate;
        const double tone =
            0.3 * std::sin(2.0 * 3.141592653589793 * 220.0 * t) + 0.2 * std::sin(2.0 * 3.141592653589793 * 1330.0 * t);
        s.left[static_cast<size_t>(i)] = static_cast<float>(tone + noise);
        s.right[static_cast<size_t>(i)] = static_cast<float>(0.8 * tone - noise);
    }
    return s;
}

inline Stereo silence(int length)
{
    return {std::vector<float>(static_cast<size_t>(length)), std::vector<float>(static_cast<size_t>(length))};
}
