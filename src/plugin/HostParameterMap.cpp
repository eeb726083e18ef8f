#include "HostParameterMap.h"

#include "parameters/BoolParameter.h"
#include "parameters/IntParameter.h"
#include "parameters/ParameterManager.h"
#include "parameters/ValueText.h"

namespace
{
// A detached copy of a parameter whose value and cached normalized value both match the original,
// so that reading texts at other values never touches the live parameter or its listeners.
std::unique_ptr<Parameter> makeScratchCopy(const Parameter& original)
{
    std::unique_ptr<Parameter> scratch(original.clone(original.getIndex(), original.getName()));
    scratch->setUnit(original.getUnit());
    const float n = original.getNormalized();
    // A fresh float clone caches normalized 0: moving it away first makes the next write store both.
    scratch->setNormalized(n < 0.5f ? 1.0f : 0.0f, false);
    scratch->copyFrom(original, false);
    return scratch;
}
} // namespace

HostParameterMap::HostParameterMap(ParameterManager& manager, std::function<int()> count,
                                   std::function<void()> tellDisplay)
    : parameters(manager), hostCount(std::move(count)), tellHostDisplay(std::move(tellDisplay))
{
    hostParameters.insertMultiple(0, nullptr, maxHostParameters);
    for (auto& v : hostValues)
        v.store(0.0f);
    for (auto& g : hostWriteGuards)
        g.store(0);
}

bool HostParameterMap::isValid(int hostIndex) const
{
    return hostIndex >= 0 && hostIndex < hostCount();
}

Parameter* HostParameterMap::getParameter(int hostIndex) const
{
    if (hostIndex < 0 || hostIndex >= maxHostParameters)
        return nullptr;
    const juce::ScopedLock lock(hostParametersLock);
    return hostParameters[hostIndex];
}

int HostParameterMap::getHostIndex(int parameterIndex) const
{
    const juce::ScopedLock lock(hostIndicesLock);
    return hostIndices.contains(parameterIndex) ? hostIndices[parameterIndex] : -1;
}

float HostParameterMap::getValue(int hostIndex) const
{
    if (! isValid(hostIndex))
        return 0.0f;
    if (auto* p = getParameter(hostIndex))
        return p->getNormalized();
    return hostValues[static_cast<size_t>(hostIndex)].load();
}

juce::String HostParameterMap::getText(int hostIndex) const
{
    if (! isValid(hostIndex))
        return {};
    if (auto* p = getParameter(hostIndex))
        return p->getDisplayText();
    return juce::String(static_cast<double>(hostValues[static_cast<size_t>(hostIndex)].load()), 8);
}

juce::String HostParameterMap::getTextForValue(int hostIndex, float normalizedValue) const
{
    if (! isValid(hostIndex))
        return {};
    auto* p = getParameter(hostIndex);
    if (p == nullptr)
        return juce::String(static_cast<double>(normalizedValue), 8);
    auto scratch = makeScratchCopy(*p);
    scratch->setNormalized(normalizedValue, false);
    return scratch->getDisplayText();
}

float HostParameterMap::getValueForText(int hostIndex, const juce::String& text) const
{
    if (! isValid(hostIndex))
        return 0.0f;
    auto* p = getParameter(hostIndex);
    if (p == nullptr)
    {
        const auto number = ValueText::parseNumber(text);
        return number ? juce::jlimit(0.0f, 1.0f, static_cast<float>(*number)) : getValue(hostIndex);
    }
    // The host shows display texts, so a typed text is read as one: "+6.0dB", "6 dB", "On", an item.
    auto scratch = makeScratchCopy(*p);
    int steps = 0;
    if (dynamic_cast<BoolParameter*>(p) != nullptr)
        steps = 2;
    else if (auto* ip = dynamic_cast<IntParameter*>(p))
        steps = ip->getMaximum() - ip->getMinimum() + 1;
    return ValueText::normalizedForDisplayText(text, p->getNormalized(), steps,
                                               [&scratch](float n)
                                               {
                                                   scratch->setNormalized(n, false);
                                                   return scratch->getDisplayText();
                                               });
}

float HostParameterMap::getDefaultValue(int hostIndex) const
{
    if (! isValid(hostIndex))
        return 0.0f;
    auto* p = getParameter(hostIndex);
    float value = 0.0f;
    if (p == nullptr || ! parameters.getDefaultValue(p->getIndex(), value))
        return 0.0f;
    return value;
}

bool HostParameterMap::isMeta(int hostIndex) const
{
    if (! isValid(hostIndex))
        return false;
    auto* p = getParameter(hostIndex);
    return p != nullptr && p->isMeta();
}

void HostParameterMap::setValue(int hostIndex, float value)
{
    if (! isValid(hostIndex))
        return;
    const auto h = static_cast<size_t>(hostIndex);
    hostValues[h].store(value);
    if (auto* p = getParameter(hostIndex))
    {
        hostWriteGuards[h].store(1);
        p->setNormalized(value, true);
        hostWriteGuards[h].store(0);
    }
}

void HostParameterMap::placeSilently(int hostIndex, Parameter& parameter)
{
    {
        const juce::ScopedLock lock(hostParametersLock);
        hostParameters.set(hostIndex, &parameter);
    }
    const juce::ScopedLock lock(hostIndicesLock);
    hostIndices.set(parameter.getIndex(), hostIndex);
}

void HostParameterMap::clear(int hostIndex)
{
    if (! isValid(hostIndex))
        return;
    Parameter* p = nullptr;
    {
        const juce::ScopedLock lock(hostParametersLock);
        p = hostParameters[hostIndex];
        if (p == nullptr)
            return;
        hostParameters.set(hostIndex, nullptr);
    }
    {
        const juce::ScopedLock lock(hostIndicesLock);
        hostIndices.remove(p->getIndex());
    }
    hostMapChanges.sendChangeMessage();
}

void HostParameterMap::place(int hostIndex, Parameter* p, bool tellHost)
{
    if (p == nullptr)
    {
        clear(hostIndex);
        return;
    }
    const int oldIndex = getHostIndex(p->getIndex());
    if (oldIndex >= 0 && oldIndex != hostIndex)
        clear(oldIndex);
    if (! p->isAutomatable() || ! isValid(hostIndex))
        return;

    Parameter* displaced = nullptr;
    {
        const juce::ScopedLock lock(hostParametersLock);
        displaced = hostParameters[hostIndex];
        if (displaced == p)
            return;
        hostParameters.set(hostIndex, p);
    }
    {
        const juce::ScopedLock lock(hostIndicesLock);
        if (displaced != nullptr)
            hostIndices.remove(displaced->getIndex());
        hostIndices.set(p->getIndex(), hostIndex);
    }
    if (tellHost)
    {
        tellHostDisplay();
        hostMapChanges.sendChangeMessage();
    }
}

void HostParameterMap::clearAll()
{
    {
        const juce::ScopedLock lock(hostParametersLock);
        hostParameters.clearQuick();
        hostParameters.insertMultiple(0, nullptr, maxHostParameters);
    }
    {
        const juce::ScopedLock lock(hostIndicesLock);
        hostIndices.clear();
    }
    hostMapChanges.sendChangeMessage();
}

void HostParameterMap::readAssignments(const juce::XmlElement& root)
{
    clearAll();
    for (auto* child : root.getChildIterator())
    {
        if (! child->getTagName().equalsIgnoreCase("assign"))
            continue;
        // Host numbers count from 1: a missing or zero number is -1 and lands nowhere.
        const int hostIndex = child->getIntAttribute("hostParam", 0) - 1;
        place(hostIndex, parameters.getParameter(child->getStringAttribute("pluginParam")), true);
    }
    hostMapChanges.sendChangeMessage();
}
