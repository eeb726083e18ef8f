#pragma once

// Knows whether the user has moved away from the loaded preset: it watches every parameter of a
// preset slot, keeps a snapshot of each value and a changed flag per parameter, and counts the
// flags that are set. Moving a knob back to its exact stored value clears its flag again.

#include "parameters/Parameter.h"

#include <atomic>

class ParameterManager;
class Preset;

/** Change detection over a set of parameter indices.
    Thread: `parameterChanged` on whichever thread writes a parameter (audio thread included): no
    lock, no allocation, it touches only its own position and the atomic counter. `reset` and
    construction on the message thread. Two threads writing the same parameter at the same moment
    can leave the count off by one until the next `reset`. */
class PresetChangeDetector : public Parameter::Listener
{
public:
    /** Watches every index of the ranges (ascending) and registers on each parameter. */
    PresetChangeDetector(const juce::SparseSet<int>& ranges, ParameterManager& manager);
    ~PresetChangeDetector() override;

    void parameterChanged(Parameter& parameter) override;
    void parameterChangeStarted(Parameter&) override {}
    void parameterChangeEnded(Parameter&) override {}

    /** True while any watched parameter differs from its snapshot. */
    virtual bool hasChanged() const { return changedCount.load() > 0; }
    /** Takes new snapshots of the live values and clears every flag. The preset is not read: a
        non-null pointer is the request, null does nothing. */
    virtual void reset(const Preset* loaded);

    int getChangedCount() const noexcept { return changedCount.load(); }

private:
    ParameterManager& manager;
    juce::HashMap<int, int> positions{101};
    juce::Array<juce::var> snapshots;
    juce::HeapBlock<char> changed;
    juce::Array<Parameter*> watched;
    std::atomic<int> changedCount{0};

    JUCE_DECLARE_NON_COPYABLE(PresetChangeDetector)
};
