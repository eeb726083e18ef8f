#include "InternalParameters.h"

#include "content/Preset.h"
#include "parameters/ParameterManager.h"

namespace InternalParameters
{
void readPair(const juce::XmlElement& presetElement, ParameterManager& parameters, int first, int second)
{
    Preset values;
    values.readXml(&presetElement, parameters, false);
    for (int i = 0; i < values.getNumValues(); ++i)
    {
        const auto& v = values.getValue(i);
        if (v.index == first || v.index == second)
            parameters.setText(v.index, v.value);
    }
}

std::unique_ptr<juce::XmlElement> createPairXml(ParameterManager& parameters, int first, int second)
{
    Preset values;
    values.addValue(parameters.getParameter(first));
    values.addValue(parameters.getParameter(second));
    return values.createXml(parameters, true);
}
} // namespace InternalParameters
