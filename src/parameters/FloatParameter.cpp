#include "FloatParameter.h"

#include <algorithm>

FloatParameter::FloatParameter(int newIndex, const juce::String& newName, float a, float b, float initialValue)
    : Parameter(newIndex, newName), minimum(std::min(a, b)), maximum(std::max(a, b))
{
    float v = initialValue;
    if (v < a)
        v = a;
    else if (v > b)
        v = b;
    value.store(v);
    normalized.store(clamp01((v - minimum) / (maximum - minimum)));
}

FloatParameter::FloatParameter(const FloatParameter& source, int newIndex, const juce::String& newName)
    : Parameter(source, newIndex, newName), minimum(source.minimum), maximum(source.maximum)
{
    value.store(source.value.load());
}

Parameter* FloatParameter::clone(int newIndex, const juce::String& newName) const
{
    return new FloatParameter(*this, newIndex, newName);
}

int FloatParameter::getInt() const
{
    return truncateToInt(value.load());
}

juce::String FloatParameter::getText() const
{
    return juce::String(static_cast<double>(value.load()), 0);
}

float FloatParameter::normalizedToValue(float n) const
{
    return minimum + n * (maximum - minimum);
}

float FloatParameter::valueToNormalized(float v) const
{
    return (v - minimum) / (maximum - minimum);
}

float FloatParameter::clampToBounds(float v) const noexcept
{
    if (v < minimum)
        return minimum;
    if (v > maximum)
        return maximum;
    return v;
}

void FloatParameter::store(float newValue, float newNormalized, bool notify)
{
    const float old = value.exchange(newValue);
    // Neither less nor greater counts as unchanged, so a NaN on either side changes nothing more.
    if (! (old < newValue) && ! (old > newValue))
        return;
    normalized.store(newNormalized);
    if (notify)
        notifyListeners();
}

void FloatParameter::setFloat(float newValue, bool notify)
{
    const float clamped = clampToBounds(newValue);
    store(clamped, clamp01(valueToNormalized(clamped)), notify);
}

void FloatParameter::setNormalized(float newValue, bool notify)
{
    const float n = clamp01(newValue);
    store(clampToBounds(normalizedToValue(n)), n, notify);
}

void FloatParameter::setInt(int newValue, bool notify)
{
    setFloat(static_cast<float>(newValue), notify);
}

void FloatParameter::setBool(bool newValue, bool notify)
{
    if (newValue)
        store(maximum, 0.0f, notify);
    else
        store(minimum, 1.0f, notify);
}

void FloatParameter::setText(const juce::String& text, bool notify)
{
    if (const auto v = finiteValueOf(text))
        setFloat(static_cast<float>(*v), notify);
}

void FloatParameter::copyFrom(const Parameter& other, bool notify)
{
    setFloat(other.getFloat(), notify);
}
