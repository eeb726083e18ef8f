#include "Parameter.h"

#include "ParameterFormatter.h"

#include <cmath>
#include <limits>

Parameter::Parameter(int newIndex, const juce::String& newName)
    : index(newIndex), name(newName)
{
}

Parameter::Parameter(const Parameter& source, int newIndex, const juce::String& newName)
    : formatter(source.formatter),
      index(newIndex),
      name(newName),
      automatable(source.automatable),
      meta(source.meta),
      format(source.format)
{
}

Parameter::~Parameter()
{
    cancelPendingUpdate();
}

// Walks a listener list from the last entry to the first. The position is re-checked against the
// list's size before every call, so a listener may remove itself (or others) while it is called.
template <typename Call>
void Parameter::walkBackwards(juce::Array<Listener*>& list, Call&& call)
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

juce::String Parameter::getDisplayText() const
{
    if (formatter != nullptr)
        return formatter->format(*this);
    return getText() + unit;
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
