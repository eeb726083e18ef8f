#pragma once

#include "content/Preset.h"

#include <array>
#include <atomic>

class ParameterManager;

/** The plug-in's preset slots: for each, the parameter indices that belong to a preset and the
    parameter that holds its name, and for slot 0 the two presets every load starts from: the
    default preset (the values at start-up) and the current one (what the user last loaded or
    saved, the baseline of change detection). `loadingSlot` is the slot a preset is being applied
    to, -1 when idle.
    Thread: message thread; `getLoadingSlot` from any thread. */
class PresetSlots
{
public:
    /** The parameter indices that belong to one preset, and the parameter that holds its name. */
    struct PresetSlot
    {
        int nameParameter = -1;
        juce::SparseSet<int> ranges;
    };

    static constexpr int numPresetSlots = 16;

    explicit PresetSlots(ParameterManager& parameters);

    bool isSlot(int slot) const noexcept { return slot >= 0 && slot < numPresetSlots; }
    /** A valid slot's record. */
    const PresetSlot& getSlot(int slot) const { return presetSlots[static_cast<size_t>(slot)]; }
    /** Gives a valid slot its name parameter and the indices [0, count). */
    void setUp(int slot, int nameParameter, int count);

    /** The values of a valid slot's parameters, into a preset (its name is left alone). */
    void collect(Preset& preset, int slot) const;
    /** The text of a slot's name parameter; empty for an invalid slot. */
    juce::String getName(int slot) const;
    /** Sets a valid slot's name parameter; an invalid slot changes nothing. */
    void setName(const juce::String& name, int slot);
    /** Sets a valid slot's parameters from a preset: what it holds (unless protected), and what it
        lacks from the defaults when given, so no parameter keeps an old value. */
    void applyValues(const Preset& preset, const Preset* defaults, int slot);

    Preset& getDefaultPreset() noexcept { return defaultPreset; }
    Preset& getCurrentPreset() noexcept { return currentPreset; }

    int getLoadingSlot() const noexcept { return loadingSlot.load(); }
    void setLoadingSlot(int slot) noexcept { loadingSlot.store(slot); }

private:
    ParameterManager& parameters;
    std::array<PresetSlot, numPresetSlots> presetSlots;
    Preset defaultPreset;
    Preset currentPreset;
    std::atomic<int> loadingSlot{-1};

    JUCE_DECLARE_NON_COPYABLE(PresetSlots)
};
