#pragma once

// The engine layer: a DSP core sees a SampleRateContext, parameter changes and runs of samples.
// MarrowgateEffectCore is the interface every core of the effect family implements; VelmarinCore
// is this product's whole signal path. The engine does no file, GUI or XML work.

#include "SampleRateContext.h"

#include <array>
#include <atomic>

class BasePlugin;
class Parameter;

/** The interface of a DSP core. Every operation does nothing here.
    Thread: `parameterChanged`, `setTempo` and `setPosition` on any parameter writer's thread and
    the process calls on the audio thread, always under the effect's core lock; the meter fields
    are atomics that the editor reads without it. */
class MarrowgateEffectCore
{
public:
    MarrowgateEffectCore();
    virtual ~MarrowgateEffectCore() = default;

    // The unnamed hooks keep the family's interface order; no core of this product uses them.
    virtual void initialiseHook() {}
    /** Clears the signal state; rate-dependent tables are rebuilt when the rate changed. */
    virtual void reset(bool sampleRateChanged) { (void)sampleRateChanged; }
    virtual void releaseHook() {}
    /** Stores one parameter's value into the engine's quantities. */
    virtual void parameterChanged(Parameter& parameter) { (void)parameter; }
    /** The host's tempo in beats per minute. */
    virtual void setTempo(double bpm) { (void)bpm; }
    /** The host's position in quarter notes, while the transport plays. */
    virtual void setPosition(double ppq) { (void)ppq; }
    virtual void blockStartHook() {}
    /** Processes a run of samples; the outputs may be the inputs (processing is in place). */
    virtual void processStereo(const float* inLeft, const float* inRight, float* outLeft, float* outRight,
                               int numSamples, bool bypassed)
    {
        (void)inLeft, (void)inRight, (void)outLeft, (void)outRight, (void)numSamples, (void)bypassed;
    }
    virtual void blockEndHook() {}
    /** Processes a run of one channel in place. */
    virtual void processMono(float* buffer, int numSamples, bool bypassed)
    {
        (void)buffer, (void)numSamples, (void)bypassed;
    }
    virtual void suspendHook() {}
    virtual void resumeHook() {}
    virtual int tailSamplesHook() { return 0; }
    virtual void editorOpenedHook() {}
    virtual void editorClosedHook() {}
    virtual void idleHook() {}

    /** Not owned; point into the plug-in object. */
    SampleRateContext* context = nullptr;
    BasePlugin* plugin = nullptr;

    /** Peak levels of the last run, written by the audio thread, read by the editor. */
    std::atomic<float> peakLeft{0.0f};
    std::atomic<float> peakRight{0.0f};

    /** Meter position for a signal value: entry i holds clamp(L / 30 + 0.8, 0, 1) with
        x = (i - 200) * 0.01 and L = 20 log10 |x| (-320 at x = 0). */
    static constexpr int meterTableSize = 400;
    std::array<double, meterTableSize> meterTable{};
};
