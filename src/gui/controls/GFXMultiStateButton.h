#pragma once

#include "gui/core/BaseGFXController.h"

/** A button with two or more states, drawn from a strip of one frame per state (2D) or two (3D:
    released, pressed). It shows its parameter's value as a state and writes nothing: its clicks fire
    events ("onClick", "onClickWithCtrl", "onClickWithShift", "onRightClick"); clicks with Shift or
    the right button are left to the editor. Thread: message thread. */
class GFXMultiStateButton : public BaseGFXController, public juce::Button, private juce::Timer
{
public:
    explicit GFXMultiStateButton(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void bindAction(const juce::String& type, int eventId, const juce::String& eventName) override;
    void updateFromParameter(Parameter& parameter) override;
    void clicked(const juce::ModifierKeys& modifiers) override;
    void paintButton(juce::Graphics& g, bool over, bool down) override;

    int frameFor(bool over, bool down) const;
    int getState() const noexcept { return state; }
    int getStateCount() const noexcept { return stateCount; }

    /** Shows the flash frame until `milliseconds` have passed. */
    void flash(int milliseconds);

private:
    void timerCallback() override;

    int look = 0;
    int state = 0;
    int stateCount = 2;
    int clickEventId = -1;
    int ctrlClickEventId = -1;
    int shiftClickEventId = -1;
    int rightClickEventId = -1;
    bool flashing = false;
};
