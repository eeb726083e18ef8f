#pragma once

#include "gui/core/BaseGFXController.h"

/** A push button drawn from a two-frame strip (up, down). Bound to a parameter it is momentary: the
    parameter is on just while the button is held, and it triggers on the press. Unbound it fires
    its events ("onClick", "onClickWithCtrl", "onRightClick") on the release, or on the press with
    `clickEvent="onPress"`, repeating while held with `autorepeat="yes"`. Every press is one gesture
    on its parameter. Thread: message thread. */
class GFXButton : public BaseGFXController, public juce::Button
{
public:
    explicit GFXButton(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void bindAction(const juce::String& type, int eventId, const juce::String& eventName) override;

    void mouseDown(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;
    void buttonStateChanged() override;
    void clicked(const juce::ModifierKeys& modifiers) override;
    void paintButton(juce::Graphics& g, bool over, bool down) override;

    int getClickEventId() const noexcept { return clickEventId; }

private:
    int clickEventId = -1;
    int ctrlClickEventId = -1;
    int rightClickEventId = -1;
    juce::String clickEventName, ctrlClickEventName, rightClickEventName;
    bool lastDown = false;
};
