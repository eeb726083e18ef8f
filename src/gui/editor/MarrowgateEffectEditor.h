#pragma once

#include "BasePluginEditor.h"

class MarrowgateEffect;

/** The editor of the effects of the family: the skin's level meters ("LeftVUMeter" and
    "RightVUMeter"), fed from the core while the plug-in processes and falling to rest otherwise.
    Thread: message thread. */
class MarrowgateEffectEditor : public BasePluginEditor
{
public:
    /** Shown levels fall by this factor per tick while nothing is processed, and to 0 below the
        floor. */
    static constexpr float decay = 0.675f;
    static constexpr float decayFloor = 0.01f;

    explicit MarrowgateEffectEditor(MarrowgateEffect& effect);

    float getShownLevel(int channel) const noexcept { return shown[channel]; }

protected:
    void skinLoaded() override;
    void timerTick(bool visible) override;
    juce::Rectangle<int> getFloatingWindowSize() override;

    MarrowgateEffect& effect;

private:
    GFXAnimation* meters[2] = {nullptr, nullptr};
    float shown[2] = {0.0f, 0.0f};
};
