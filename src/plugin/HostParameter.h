#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

class BasePlugin;

/** One entry of the host's numbered parameter list. It holds no value of its own: every question
    goes through the plug-in's host map to the Parameter at that host index (or to the placeholder's
    stored value). Its id ("hostParam" + number from 1) and its position never change, so projects
    that automate it stay valid. The id is carried the way JUCE's format wrappers read it (they ask
    only an AudioProcessorParameterWithID for its id and number every other parameter), so VST3
    parameter ids and LV2 parameter URIs are made from it. The name given to the base is not used:
    the name is looked up through the host map at each question. Thread: any, as the host calls. */
class HostParameter : public juce::AudioProcessorParameterWithID
{
public:
    HostParameter(BasePlugin& plugin, int hostIndex);

    /** "hostParam1" .. for host index 0 .. */
    static juce::String idFor(int hostIndex);

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
