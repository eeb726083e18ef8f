#pragma once

#include "Preset.h"

class ParameterManager;

/** What a preset store needs of the plug-in it serves: its parameters, and the plug-in's preset
    load and store for a slot. A plug-in object holds an adapter that implements this and hands it
    to its stores, so the stores never see the plug-in itself. Thread: message thread. */
class PresetHost
{
public:
    virtual ~PresetHost() = default;

    virtual ParameterManager& getParameterManager() = 0;
    /** Loads the preset into the slot, as a preset load does. */
    virtual void loadPreset(const Preset* preset, int slot) = 0;
    /** Fills the preset with the slot's present values. */
    virtual void storeToPreset(Preset& preset, int slot) = 0;
};
