#include "Parameter.h"

#include "ParameterFormatter.h"

#include <cmath>
#include <limits>

Parameter::Parameter(int newIndex, const juce::String& newName) : index(newIndex), name(newName) {}

Parameter::Parameter(const Parameter& source, int newIndex, const juce::String& newName)
    : formatter(source.formatter), index(newIndex), name(newName), automatable(source.automatable), meta(source.meta),
      format(source.format)
{
}

Parameter::~Parameter()
{
    cancelPendingUpdate();
}

// Walks a listener list from the last entry to the first. The position is re-checked against the
// list's size before every call, so a listener may remove itself (or others) while it is called.
template <typename Call> void Parameter::walkBackwards(juce::Array<Listener*>& list, Call&& call)
{
    for (int i = list.size() - 1; i >= 0; --i)
    {
        const int size = list.size();
        if (size == 0)
            return;
        if (i >= size)
            i = size - 1;
        if (auto* listener = list[i])
            call(*listener);
    }
}

void Parameter::handleAsyncUpdate()
{
    walkBackwards(asyncListeners, [this](Listener& l) { l.parameterChanged(*this); });
}

void Parameter::notifyListeners()
{
    walkBackwards(listeners, [this](Listener& l) { l.parameterChanged(*this); });
    triggerAsyncUpdate();
}

namespace
{
juce::String decimals(double x, int places)
{
    return juce::String(x, places);
}

/** Thousands of an integer value: the last digit is dropped before the scaling, in float. */
float thousandsOf(int i)
{
    return static_cast<float>(i / 10) * 0.01f;
}

juce::String kilo(int i, int places, const juce::String& suffix)
{
    const float k = thousandsOf(i);
    const bool whole = k - std::trunc(k) == 0.0f;
    return decimals(k, whole ? 0 : places) + suffix;
}
} // namespace

juce::String Parameter::getDisplayText() const
{
    // Signed numbers: exactly 0 shows as "0" without decimals, negatives carry their own sign.
    const auto signedText = [this](const juce::String& number)
    {
        const float f = getFloat();
        if (f == 0.0f)
            return "0" + unit;
        return (f < 0.0f ? juce::String() : juce::String("+")) + number + unit;
    };

    switch (format)
    {
    case 0:
        return formatter != nullptr ? formatter->format(*this) : getText() + unit;
    case 1:
        return juce::String(getInt()) + unit;
    case 2:
        return decimals(getFloat(), 1) + unit;
    case 3:
        return decimals(getFloat(), 2) + unit;
    case 4:
        return signedText(juce::String(getInt()));
    case 5:
        return signedText(decimals(getFloat(), 1));
    case 6:
        return signedText(decimals(getFloat(), 2));
    case 7:
        return signedText(decimals(getFloat(), 3));
    case 8:
        if (getNormalized() < 1e-8f)
            return "-inf.";
        return signedText(decimals(getFloat(), 1));
    case 9:
        return kilo(getInt(), 1, unit);
    case 10:
        return kilo(getInt(), 2, unit);
    case 11:
    {
        const float f = getFloat();
        if (f < 1000.0f)
            return juce::String(truncateToInt(f)) + unit;
        return decimals(f * 0.001f, 0) + "k" + unit;
    }
    case 12:
    case 13:
    {
        const int i = getInt();
        if (i / 10 < 100)
            return juce::String(i) + unit;
        return kilo(i, format == 12 ? 1 : 2, "k" + unit);
    }
    case 14:
    {
        const int a = truncateToInt(getNormalized() * 100.0f);
        return juce::String(100 - a) + "/" + juce::String(a) + unit;
    }
    default:
        return {};
    }
}

void Parameter::addListener(Listener* listener)
{
    if (listener != nullptr)
        listeners.addIfNotAlreadyThere(listener);
}

void Parameter::removeListener(Listener* listener)
{
    listeners.removeAllInstancesOf(listener);
}

void Parameter::addAsyncListener(Listener* listener)
{
    if (listener != nullptr)
        asyncListeners.addIfNotAlreadyThere(listener);
}

void Parameter::removeAsyncListener(Listener* listener)
{
    asyncListeners.removeAllInstancesOf(listener);
}

void Parameter::beginChange()
{
    if (gestureActive.exchange(1) == 0)
        walkBackwards(listeners, [this](Listener& l) { l.parameterChangeStarted(*this); });
}

void Parameter::endChange()
{
    if (gestureActive.exchange(0) == 1)
        walkBackwards(listeners, [this](Listener& l) { l.parameterChangeEnded(*this); });
}

float Parameter::clamp01(float value) noexcept
{
    if (! (value >= 0.0f))
        return 0.0f;
    return value > 1.0f ? 1.0f : value;
}

std::optional<double> Parameter::finiteValueOf(const juce::String& text)
{
    const double v = text.getDoubleValue();
    if (! std::isfinite(v))
        return std::nullopt;
    return v;
}

int Parameter::truncateToInt(double value) noexcept
{
    if (std::isnan(value))
        return 0;
    if (value >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= static_cast<double>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}
