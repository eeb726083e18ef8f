#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include "FolderRule.h"

class BasePlugin;
class HostParameter;

/** The juce::AudioProcessor that the host's wrapper drives. It owns one plug-in object (the
    product's, handed over at construction), sequences its start-up and teardown, and forwards
    every audio, parameter and state call to it. The host sees the plug-in's host parameter list as
    HostParameter objects. Thread: as juce::AudioProcessor. */
class PluginAudioProcessor : public juce::AudioProcessor, private juce::ChangeListener
{
public:
    explicit PluginAudioProcessor(std::unique_ptr<BasePlugin> productPlugin);
    ~PluginAudioProcessor() override;

    const juce::String getName() const override;
    void prepareToPlay(double sampleRate, int maximumExpectedSamplesPerBlock) override;
    void releaseResources() override;
    void processBlock(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi) override;
    void processBlockBypassed(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi) override;
    using juce::AudioProcessor::processBlock;
    using juce::AudioProcessor::processBlockBypassed;
    bool isBusesLayoutSupported(const BusesLayout& layouts) const override;

    double getTailLengthSeconds() const override { return 0.0; }
    bool acceptsMidi() const override { return true; }
    bool producesMidi() const override { return false; }

    bool hasEditor() const override { return true; }
    juce::AudioProcessorEditor* createEditor() override;

    int getNumPrograms() override { return 1; }
    int getCurrentProgram() override { return 0; }
    void setCurrentProgram(int) override {}
    const juce::String getProgramName(int) override { return {}; }
    void changeProgramName(int, const juce::String&) override {}

    void getStateInformation(juce::MemoryBlock& destData) override;
    void setStateInformation(const void* data, int sizeInBytes) override;

    /** A change from inside the plug-in (GUI, MIDI, presets) for the host. */
    void sendParameterValueToHost(int hostIndex, float normalizedValue);
    /** A change gesture of a mapped parameter for the host. */
    void sendGestureToHost(int hostIndex, bool starting);

    BasePlugin& getPlugin() noexcept { return *plugin; }

private:
    /** The host map changed: names, defaults and texts of host parameters are new to the host. */
    void changeListenerCallback(juce::ChangeBroadcaster*) override;
    HostParameter* getHostParameterObject(int hostIndex) const;

    std::unique_ptr<BasePlugin> plugin;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR(PluginAudioProcessor)
};
