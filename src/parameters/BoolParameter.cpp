#include "BoolParameter.h"

BoolParameter::BoolParameter(int newIndex, const juce::String& newName, bool initialValue)
    : Parameter(newIndex, newName)
{
    value.store(initialValue ? 1 : 0);
}

BoolParameter::BoolParameter(const BoolParameter& source, int newIndex, const juce::String& newName)
    : Parameter(source, newIndex, newName)
{
    value.store(source.value.load());
}

Parameter* BoolParameter::clone(int newIndex, const juce::String& newName) const
{
    return new BoolParameter(*this, newIndex, newName);
}

juce::String BoolParameter::getText() const
{
    return getBool() ? onWord() : offWord();
}

void BoolParameter::setBool(bool newValue, bool notify)
{
    const int stored = newValue ? 1 : 0;
    if (value.exchange(stored) == stored)
        return;
    if (notify)
        notifyListeners();
}

void BoolParameter::setFloat(float newValue, bool notify)
{
    setBool(newValue != 0.0f, notify);
}

void BoolParameter::setNormalized(float newValue, bool notify)
{
    setBool(clamp01(newValue) >= 0.5f, notify);
}

void BoolParameter::setInt(int newValue, bool notify)
{
    setBool(newValue != 0, notify);
}

void BoolParameter::copyFrom(const Parameter& other, bool notify)
{
    setBool(other.getBool(), notify);
}

void BoolParameter::setTextGeneric(const juce::String& text, bool notify)
{
    if (text == "true" || text == "1" || text == "on" || text == "yes")
        setBool(true, notify);
    else if (text == "false" || text == "0" || text == "off" || text == "no")
        setBool(false, notify);
    else if (const auto v = finiteValueOf(text))
        setNormalized(static_cast<float>(*v), notify);
}

void BoolParameter::setText(const juce::String& text, bool notify)
{
    setTextGeneric(text, notify);
}

StateParameter::StateParameter(const StateParameter& source, int newIndex, const juce::String& newName)
    : BoolParameter(source, newIndex, newName)
{
}

Parameter* StateParameter::clone(int newIndex, const juce::String& newName) const
{
    return new StateParameter(*this, newIndex, newName);
}

void StateParameter::setText(const juce::String& text, bool notify)
{
    if (text.equalsIgnoreCase("on"))
        setBool(true, notify);
    else if (text.equalsIgnoreCase("off"))
        setBool(false, notify);
    else
        setTextGeneric(text, notify);
}

LogicParameter::LogicParameter(const LogicParameter& source, int newIndex, const juce::String& newName)
    : BoolParameter(source, newIndex, newName)
{
}

Parameter* LogicParameter::clone(int newIndex, const juce::String& newName) const
{
    return new LogicParameter(*this, newIndex, newName);
}

void LogicParameter::setText(const juce::String& text, bool notify)
{
    // "1" and "0" are also generic words, so the generic rule covers this class's own words.
    setTextGeneric(text, notify);
}

AnswerParameter::AnswerParameter(const AnswerParameter& source, int newIndex, const juce::String& newName)
    : BoolParameter(source, newIndex, newName)
{
}

Parameter* AnswerParameter::clone(int newIndex, const juce::String& newName) const
{
    return new AnswerParameter(*this, newIndex, newName);
}

void AnswerParameter::setText(const juce::String& text, bool notify)
{
    // "yes" and "no" are also generic words, so the generic rule covers this class's own words.
    setTextGeneric(text, notify);
}
