#include "IntParameter.h"

#include <cmath>

IntParameter::IntParameter(int newIndex, const juce::String& newName, int newMinimum, int newMaximum, int initialValue)
    : Parameter(newIndex, newName), minimum(newMinimum), maximum(newMaximum)
{
    value.store(clampToBounds(initialValue));
}

IntParameter::IntParameter(const IntParameter& source, int newIndex, const juce::String& newName)
    : Parameter(source, newIndex, newName), minimum(source.minimum), maximum(source.maximum)
{
    value.store(source.value.load());
}

Parameter* IntParameter::clone(int newIndex, const juce::String& newName) const
{
    return new IntParameter(*this, newIndex, newName);
}

float IntParameter::getNormalized() const
{
    return static_cast<float>(value.load() - minimum) / static_cast<float>(maximum - minimum);
}

int IntParameter::clampToBounds(int v) const noexcept
{
    if (v < minimum)
        return minimum;
    if (v > maximum)
        return maximum;
    return v;
}

void IntParameter::store(int newValue, bool notify)
{
    if (value.exchange(newValue) == newValue)
        return;
    if (notify)
        notifyListeners();
}

void IntParameter::setFloat(float newValue, bool notify)
{
    store(clampToBounds(truncateToInt(newValue)), notify);
}

void IntParameter::setNormalized(float newValue, bool notify)
{
    const float scaled = static_cast<float>(maximum - minimum) * clamp01(newValue) + 0.5f;
    const double result = static_cast<double>(minimum) + std::floor(static_cast<double>(scaled));
    store(truncateToInt(result), notify);
}

void IntParameter::setInt(int newValue, bool notify)
{
    store(clampToBounds(newValue), notify);
}

void IntParameter::setBool(bool newValue, bool notify)
{
    store(newValue ? maximum : minimum, notify);
}

void IntParameter::setText(const juce::String& text, bool notify)
{
    if (finiteValueOf(text))
        store(clampToBounds(text.getIntValue()), notify);
}

void IntParameter::copyFrom(const Parameter& other, bool notify)
{
    store(clampToBounds(other.getInt()), notify);
}

void IntParameter::setMinimum(int m)
{
    if (maximum < 0 || m == minimum)
        return;
    minimum = m;
    reclampAfterBoundsChange();
}

void IntParameter::setMaximum(int m)
{
    if (m < minimum || m == maximum)
        return;
    maximum = m;
    reclampAfterBoundsChange();
}

void IntParameter::reclampAfterBoundsChange()
{
    const int current = value.load();
    const int clamped = clampToBounds(current);
    if (clamped != current)
        store(clamped, true);
}
