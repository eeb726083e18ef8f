#include "EnumParameter.h"

EnumParameter::EnumParameter(int newIndex, const juce::String& newName) : IntParameter(newIndex, newName, 0, 0, 0) {}

EnumParameter::EnumParameter(const EnumParameter& source, int newIndex, const juce::String& newName)
    : IntParameter(source, newIndex, newName), items(source.items), itemsText(source.itemsText)
{
}

Parameter* EnumParameter::clone(int newIndex, const juce::String& newName) const
{
    return new EnumParameter(*this, newIndex, newName);
}

juce::String EnumParameter::getText() const
{
    const auto position = static_cast<unsigned int>(getInt());
    if (position >= static_cast<unsigned int>(items.size()))
        return {};
    return items[static_cast<int>(position)];
}

void EnumParameter::setText(const juce::String& text, bool notify)
{
    for (int i = 0; i < items.size(); ++i)
    {
        if (items[i] == text)
        {
            store(clampToBounds(i), notify);
            return;
        }
    }
    if (const auto v = finiteValueOf(text))
        setNormalized(static_cast<float>(*v), notify);
}

void EnumParameter::setItems(const juce::String& text)
{
    if (text == itemsText)
        return;
    itemsText = text;
    items.clear();
    items.addTokens(text, ";", "");
    setMinimum(0);
    setMaximum(items.size() - 1);
}
