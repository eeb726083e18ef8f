#include "PresetChangeDetector.h"

#include "parameters/ParameterManager.h"

PresetChangeDetector::PresetChangeDetector(const juce::SparseSet<int>& ranges, ParameterManager& managerToWatch)
    : manager(managerToWatch)
{
    for (int r = 0; r < ranges.getNumRanges(); ++r)
    {
        const auto range = ranges.getRange(r);
        for (int index = range.getStart(); index < range.getEnd(); ++index)
        {
            positions.set(index, snapshots.size());
            snapshots.add({});
            if (auto* p = manager.getParameter(index))
                p->addListener(this);
        }
    }
    changed.calloc(static_cast<size_t>(juce::jmax(1, snapshots.size())));
    watched.insertMultiple(0, nullptr, snapshots.size());
    for (juce::HashMap<int, int>::Iterator it(positions); it.next();)
        watched.set(it.getValue(), manager.getParameter(it.getKey()));
}

PresetChangeDetector::~PresetChangeDetector()
{
    const juce::ScopedReadLock read(manager.getLock());
    for (auto* p : watched)
        if (p != nullptr)
            p->removeListener(this);
}

void PresetChangeDetector::parameterChanged(Parameter& parameter)
{
    if (manager.isParameterProtected(parameter.getIndex()))
        return;
    // The map is complete before any listener is registered and never changes afterwards, so the
    // lookup needs no lock. An index the detector does not know counts as position 0.
    const int position = positions.contains(parameter.getIndex()) ? positions[parameter.getIndex()] : 0;
    if (position >= snapshots.size())
        return;

    const bool wasChanged = changed[position] != 0;
    const bool isChanged = ! (snapshots.getReference(position) == parameter.getVar());
    changed[position] = isChanged ? 1 : 0;
    if (isChanged != wasChanged)
        changedCount.fetch_add(isChanged ? 1 : -1);
}

void PresetChangeDetector::reset(const Preset* loaded)
{
    if (loaded == nullptr)
        return;
    for (int i = 0; i < snapshots.size(); ++i)
    {
        changed[i] = 0;
        auto* p = watched.getUnchecked(i);
        snapshots.set(i, p != nullptr ? p->getVar() : juce::var());
    }
    changedCount.store(0);
}
