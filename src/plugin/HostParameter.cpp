#include "HostParameter.h"

#include "BasePlugin.h"
#include "parameters/BoolParameter.h"
#include "parameters/IntParameter.h"

HostParameter::HostParameter(BasePlugin& owner, int index)
    : juce::AudioProcessorParameterWithID(idFor(index), idFor(index)), plugin(owner), hostIndex(index)
{
}

juce::String HostParameter::idFor(int hostIndex)
{
    return "hostParam" + juce::String(hostIndex + 1);
}

float HostParameter::getValue() const
{
    return plugin.getParameter(hostIndex);
}

void HostParameter::setValue(float newValue)
{
    plugin.setParameter(hostIndex, newValue);
}

float HostParameter::getDefaultValue() const
{
    return plugin.getParameterDefaultValue(hostIndex);
}

juce::String HostParameter::getName(int maximumStringLength) const
{
    return plugin.getParameterName(hostIndex).substring(0, maximumStringLength);
}

int HostParameter::getNumSteps() const
{
    auto* p = plugin.getHostParameter(hostIndex);
    if (dynamic_cast<BoolParameter*>(p) != nullptr)
        return 2;
    if (auto* ip = dynamic_cast<IntParameter*>(p))
        return juce::jmax(2, ip->getMaximum() - ip->getMinimum() + 1);
    return juce::AudioProcessor::getDefaultNumParameterSteps();
}

bool HostParameter::isDiscrete() const
{
    auto* p = plugin.getHostParameter(hostIndex);
    return dynamic_cast<IntParameter*>(p) != nullptr || dynamic_cast<BoolParameter*>(p) != nullptr;
}

bool HostParameter::isBoolean() const
{
    return dynamic_cast<BoolParameter*>(plugin.getHostParameter(hostIndex)) != nullptr;
}

juce::String HostParameter::getText(float normalisedValue, int maximumStringLength) const
{
    return plugin.getParameterTextForValue(hostIndex, normalisedValue).substring(0, maximumStringLength);
}

float HostParameter::getValueForText(const juce::String& text) const
{
    return plugin.getParameterValueForText(hostIndex, text);
}

bool HostParameter::isAutomatable() const
{
    return plugin.isParameterAutomatable(hostIndex);
}

bool HostParameter::isMetaParameter() const
{
    return plugin.isMetaParameter(hostIndex);
}
