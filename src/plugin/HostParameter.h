#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

class BasePlugin;

/** One entry of the host's numbered parameter list. It holds no value of its own: every question
    goes through the plug-in's host map to the Parameter at that host index (or to the placeholder's
    stored value). Its id ("hostParam" + number from 1) and its position never change, so projects
    that automate it stay valid. Thread: any, as the host calls. */
class HostParameter : public juce::HostedAudioProcessorParameter
{
public:
    HostParameter(BasePlugin& plugin, int hostIndex);

    juce::String getParameterID() const override;
    float getValue() const override;
    void setValue(float newValue) override;
    float getDefaultValue() const override;
    juce::String getName(int maximumStringLength) const override;
    juce::String getLabel() const override { return {}; }
    int getNumSteps() const override;
    bool isDiscrete() const override;
    bool isBoolean() const override;
    juce::String getText(float normalisedValue, int maximumStringLength) const override;
    float getValueForText(const juce::String& text) const override;
    bool isAutomatable() const override;
    bool isMetaParameter() const override;

    int getHostIndex() const noexcept { return hostIndex; }

private:
    BasePlugin& plugin;
    const int hostIndex;
};
