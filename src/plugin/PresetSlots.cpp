#include "PresetSlots.h"

#include "parameters/ParameterManager.h"

PresetSlots::PresetSlots(ParameterManager& manager) : parameters(manager) {}

void PresetSlots::setUp(int slot, int nameParameter, int count)
{
    auto& record = presetSlots[static_cast<size_t>(slot)];
    record.nameParameter = nameParameter;
    record.ranges.clear();
    record.ranges.addRange({0, count});
}

void PresetSlots::collect(Preset& preset, int slot) const
{
    preset.collectParameters(parameters, getSlot(slot).ranges);
}

juce::String PresetSlots::getName(int slot) const
{
    if (! isSlot(slot))
        return {};
    return parameters.getText(getSlot(slot).nameParameter);
}

void PresetSlots::setName(const juce::String& name, int slot)
{
    if (! isSlot(slot))
        return;
    parameters.setText(getSlot(slot).nameParameter, name);
}

void PresetSlots::applyValues(const Preset& preset, const Preset* defaults, int slot)
{
    const auto& ranges = getSlot(slot).ranges;

    // What the preset lacks goes to the default, so no parameter keeps an old value.
    if (defaults != nullptr)
    {
        auto missing = defaults->getIndices();
        const auto& held = preset.getIndices();
        for (int r = 0; r < held.getNumRanges(); ++r)
            missing.removeRange(held.getRange(r));

        for (int r = missing.getNumRanges(); --r >= 0;)
        {
            const auto range = missing.getRange(r);
            for (int index = range.getStart(); index < range.getEnd(); ++index)
            {
                juce::String text;
                if (ranges.contains(index) && defaults->findValue(index, text))
                    parameters.setText(index, text);
            }
        }
    }

    for (int i = 0; i < preset.getNumValues(); ++i)
    {
        const auto& v = preset.getValue(i);
        if (ranges.contains(v.index) && ! parameters.isParameterProtected(v.index))
            parameters.setText(v.index, v.value);
    }
}
