#pragma once

// A VelmarinCore on its own sample-rate context, with the product's parameters set by index the way
// the plug-in's listener chain delivers them.
#include "engine/SampleRateContext.h"
#include "engine/VelmarinCore.h"
#include "parameters/BoolParameter.h"
#include "parameters/EnumParameter.h"
#include "parameters/FloatParameter.h"

#include <vector>

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
        setFloat(0, 0.0f);       // Preamp
        setBool(1, false);       // M/S Mode
        setFloat(2, 0.0f);       // Channels Crossfade
        setFloat(3, 0.2f);       // Delay Offset L/M
        setFloat(6, 0.216f);     // LFO Rate L/M
        setFloat(7, 0.216f);     // LFO Rate R/S
        setChoice(8, 7);         // LFO Note Rate L/M "1/4"
        setChoice(9, 7);
        setFloat(11, 0.332f);    // LFO Depth L/M
        setFloat(14, 0.5f);      // Feedback L/M: 0
        setChoice(17, 0);        // LFO Sync "Off"
        setFloat(18, 0.0f);      // LFO Phase Shift
        setChoice(19, 0);        // LFO Voltage Curve "Mistress"
        setChoice(20, 4);        // BBD Length 256
        setFloat(21, 0.6f);      // BBD Frequency Range
        setChoice(22, 2);        // Low Cut "Mistress"
        setFloat(23, 1.0f);
        setFloat(24, 1.0f);
        setBool(25, true);       // Mistress Auto Mix Mode
        setFloat(26, 0.5f);      // FX Amount
        setFloat(27, 0.5f);      // Output Volume: unity
        setChoice(29, 1);        // Processing Quality "Normal"
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
        Stereo out { input.left, input.right };
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
    Stereo s { std::vector<float>(static_cast<size_t>(length)), std::vector<float>(static_cast<size_t>(length)) };
    unsigned seed = 12345u;
    for (int i = 0; i < length; ++i)
    {
        seed = seed * 1664525u + 1013904223u;
        const double noise = (static_cast<double>(seed >> 8) / 16777216.0 - 0.5) * 0.05;
        const double t = i / sampleRate;
        const double tone = 0.3 * std::sin(2.0 * 3.141592653589793 * 220.0 * t) + 0.2 * std::sin(2.0 * 3.141592653589793 * 1330.0 * t);
        s.left[static_cast<size_t>(i)] = static_cast<float>(tone + noise);
        s.right[static_cast<size_t>(i)] = static_cast<float>(0.8 * tone - noise);
    }
    return s;
}

inline Stereo silence(int length)
{
    return { std::vector<float>(static_cast<size_t>(length)), std::vector<float>(static_cast<size_t>(length)) };
}
