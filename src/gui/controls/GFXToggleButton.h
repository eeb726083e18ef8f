#pragma once

#include "gui/core/BaseGFXController.h"

/** An on/off button drawn from a strip of 2 frames (off, on) in the 2D style, or 4 (off, off
    pressed, on, on pressed) in the 3D style, whatever `framesNum` says. A click inverts it and
    writes its parameter; Shift and the right button are left to the editor. Ctrl-click also fires
    "onClickWithCtrl". Thread: message thread. */
class GFXToggleButton : public BaseGFXController, public juce::Button
{
public:
    enum Look
    {
        flat = 0,
        raised = 1
    };

    explicit GFXToggleButton(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void bindAction(const juce::String& type, int eventId, const juce::String& eventName) override;
    void updateFromParameter(Parameter& parameter) override;

    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDrag(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;
    void clicked(const juce::ModifierKeys& modifiers) override;
    void paintButton(juce::Graphics& g, bool over, bool down) override;

    /** The frame shown for the button's state and the mouse. */
    int frameFor(bool over, bool down) const;
    int getLook() const noexcept { return look; }

private:
    static bool leftToTheEditor(const juce::MouseEvent& event);

    int look = flat;
    bool inverted = false;
    int ctrlClickEventId = -1;
    bool gestureOpen = false;
};
