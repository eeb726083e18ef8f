#pragma once

#include "gui/editor/MarrowgateEffectEditor.h"

class GFXKnob;
class GFXSwitch;
class Velmarin;

/** Velmarin's editor. It shows the right channel's own controls while a link is off and their
    linked twins (bound to the left channel, which the right then follows) while it is on; the LFO
    panel of free rates or of note rates as "LFO Sync" says; and it writes the BBD clock read-out
    into "Current BBD Frequency" on every tick, for any display bound to it. Thread: message
    thread. */
class VelmarinEditor : public MarrowgateEffectEditor
{
public:
    explicit VelmarinEditor(Velmarin& velmarin);

    void parameterChanged(Parameter& parameter) override;

protected:
    void skinLoaded() override;
    void timerTick(bool visible) override;

private:
    /** Shows `shown` when the condition holds and `hidden` otherwise; either may be missing. */
    static void showEither(juce::Component* whenOff, juce::Component* whenOn, bool on);

    Velmarin& velmarin;
    GFXPanel* freePanel = nullptr;
    GFXPanel* syncPanel = nullptr;
    GFXKnob *delayOffsetRight = nullptr, *lfoRateRight = nullptr, *lfoDepthRight = nullptr, *feedbackRight = nullptr;
    GFXSwitch* noteRateRight = nullptr;
    GFXKnob *delayOffsetLinked = nullptr, *lfoRateLinked = nullptr, *lfoDepthLinked = nullptr,
            *feedbackLinked = nullptr;
    GFXSwitch* noteRateLinked = nullptr;
};
