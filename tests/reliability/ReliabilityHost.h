#pragma once

// What the soak and the stress share of a host: the run length from the environment, a transport,
// the message thread's work, controllers mapped to every preset parameter, and the output check.

#include "TestSupport.h"
#include "plugin/BasePlugin.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <atomic>
#include <cmath>
#include <cstdlib>

namespace reliability
{
/** Controllers 20 to 47 drive the 28 preset parameters, as after a MIDI learn of each. */
constexpr int firstMappedController = 20;
constexpr int numMappedControllers = 28;

/** Seconds from an environment variable, or the fallback when it is unset or not a positive number. */
inline double secondsFromEnvironment(const char* name, double fallback)
{
    const char* text = std::getenv(name);
    const double value = text != nullptr ? std::atof(text) : 0.0;
    return value > 0.0 ? value : fallback;
}

using testsupport::dispatchPendingMessages;

/** Message thread, before audio runs. */
inline void mapControllers(BasePlugin& plugin)
{
    for (int i = 0; i < numMappedControllers; ++i)
        plugin.getMidiMap().assign(plugin.getParameterManager().getParameter(i), firstMappedController + i);
}

/** A host transport: tempo always, position while playing. Written by the host, read by the audio thread. */
class Transport : public juce::AudioPlayHead
{
public:
    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setBpm(bpm.load());
        info.setIsPlaying(playing.load());
        info.setPpqPosition(ppq.load());
        return info;
    }

    /** Moves the position on by a block when playing. */
    void advance(int numSamples, double sampleRate)
    {
        if (playing.load())
            ppq.store(ppq.load() + numSamples / sampleRate * bpm.load() / 60.0);
    }

    std::atomic<double> bpm{120.0};
    std::atomic<bool> playing{true};
    std::atomic<double> ppq{0.0};
};

/** The largest output magnitude a sound instance can give after input peaks of `recentInputPeak`.
    The wet path starts at the line's clipper (magnitude at most 1.15 with its bias); the step
    reconstruction and the low cut can at most double that, and then come gains of at most 21
    (shelf) x 2 (M/S decode) x 2.2 (feedback compensation) x 4 (output volume): about 850. The dry
    path passes the recent input through at most 4 (output volume) plus the auto-mix conditioning's
    overshoot. Any runaway (feedback or filter state growing without bound) crosses this. */
inline float outputLimit(float recentInputPeak)
{
    return 16.0f * recentInputPeak + 2000.0f;
}

/** The first output sample that is not finite or beyond `limit` in magnitude, or -1. */
inline int firstBadSample(const juce::AudioBuffer<float>& buffer, int numSamples, float limit)
{
    for (int ch = 0; ch < buffer.getNumChannels(); ++ch)
        for (int i = 0; i < numSamples; ++i)
        {
            const float y = buffer.getSample(ch, i);
            if (! std::isfinite(y) || std::abs(y) > limit)
                return i;
        }
    return -1;
}
} // namespace reliability
