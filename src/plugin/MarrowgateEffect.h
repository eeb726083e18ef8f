#pragma once

#include "BasePlugin.h"
#include "MidiEventQueue.h"
#include "engine/MarrowgateEffectCore.h"

/** The effect family's plug-in: owns the DSP core, its lock and the MIDI queue, and cuts each block
    into runs at MIDI Control Change events so that a controller takes effect at its exact sample.
    Thread: `process` on the audio thread; `parameterChanged` on any parameter writer's thread;
    both reach the core only under `coreLock`. */
class MarrowgateEffect : public BasePlugin
{
public:
    using BasePlugin::BasePlugin;
    ~MarrowgateEffect() override;

    /** Tells the core under `coreLock`, then lets the framework forward the change to the host. */
    void parameterChanged(Parameter& parameter) override;
    /** 1 in and 2 out, 2 in and 2 out, 1 in and 1 out; nothing else. */
    bool isBusesLayoutSupported(const juce::AudioProcessor::BusesLayout& layout) const override;
    /** Makes the core by the factory, replacing (and deleting) any old one. */
    void createCore() override;
    void prepare(bool rateChanged, bool blockChanged) override;
    void process(ProcessContext& context) override;

    /** The core; null only between construction steps. */
    MarrowgateEffectCore* getCore() const noexcept { return core.get(); }
    juce::CriticalSection& getCoreLock() noexcept { return coreLock; }
    float getHostTempo() const noexcept { return hostTempo.load(); }

    /** A Control Change, on any channel, at its sample position in the block: the MIDI control map
        takes it. Audio thread, between two runs. */
    virtual void handleController(const juce::MidiMessage& message) { getMidiMap().handleController(message); }

protected:
    /** The factory operation: a plain core that does nothing. */
    virtual std::unique_ptr<MarrowgateEffectCore> createEffectCore();

private:
    void flushRun(bool bypassed);

    int pendingSamples = 0;
    int samplesHandedOver = 0;
    float* channel0 = nullptr;
    float* channel1 = nullptr;
    bool stereoInput = false;
    bool stereoOutput = false;
    MidiEventQueue midiQueue;
    juce::CriticalSection coreLock;
    std::unique_ptr<MarrowgateEffectCore> core;
    std::atomic<float> hostTempo{120.0f};
};
