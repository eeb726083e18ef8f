#include "StringParameter.h"

StringParameter::StringParameter(int newIndex, const juce::String& newName, const juce::String& initialValue)
    : Parameter(newIndex, newName), value(initialValue)
{
}

StringParameter::StringParameter(const StringParameter& source, int newIndex, const juce::String& newName)
    : Parameter(source, newIndex, newName), value(source.getText())
{
}

Parameter* StringParameter::clone(int newIndex, const juce::String& newName) const
{
    return new StringParameter(*this, newIndex, newName);
}

juce::String StringParameter::getText() const
{
    const juce::ScopedReadLock read(lock);
    return value;
}

float StringParameter::getFloat() const
{
    return static_cast<float>(getText().getDoubleValue());
}

float StringParameter::getNormalized() const
{
    const double v = getText().getDoubleValue();
    if (! (v >= 0.0))
        return 0.0f;
    return v > 1.0 ? 1.0f : static_cast<float>(v);
}

int StringParameter::getInt() const
{
    return getText().getIntValue();
}

bool StringParameter::getBool() const
{
    return getText().getIntValue() == 0;
}

void StringParameter::setText(const juce::String& text, bool notify)
{
    if (getText() == text)
        return;
    {
        const juce::ScopedWriteLock write(lock);
        value = text;
    }
    if (notify)
        notifyListeners();
}

void StringParameter::setFloat(float newValue, bool notify)
{
    setText(juce::String(static_cast<double>(newValue), 0), notify);
}

void StringParameter::setNormalized(float newValue, bool notify)
{
    setFloat(newValue, notify);
}

void StringParameter::setInt(int newValue, bool notify)
{
    setText(juce::String(newValue), notify);
}

void StringParameter::setBool(bool newValue, bool notify)
{
    setText(newValue ? "true" : "false", notify);
}

void StringParameter::copyFrom(const Parameter& other, bool notify)
{
    setText(other.getText(), notify);
}
