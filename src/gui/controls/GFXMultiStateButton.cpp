#include "GFXMultiStateButton.h"

#include "DrawnLook.h"
#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"

GFXMultiStateButton::GFXMultiStateButton(const juce::String& name) : juce::Button(name) {}

void GFXMultiStateButton::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    readPlacement(element);
    if (element.getTagName().equalsIgnoreCase("MultiStateButton"))
    {
        look = element.getStringAttribute("style", "2D") == "3D" ? 1 : 0;
        const int states = SkinXml::integer(element, "states", 2);
        stateCount = states >= 2 ? states : 2;
        if (auto* gfx = SkinXml::child(element, "gfx"))
            setFilmstrip(skin.getImage(gfx->getStringAttribute("resource")), look == 1 ? stateCount * 2 : stateCount);
        setTriggeredOnMouseDown(element.getStringAttribute("clickEvent", "onRelease") == "onPress");
        setRadioGroupId(SkinXml::integer(element, "radioGroupId", 0));
    }
    setBounds(left, top, width, height);
}

void GFXMultiStateButton::bindAction(const juce::String& type, int eventId, const juce::String&)
{
    if (type == "onClick")
        clickEventId = eventId;
    else if (type == "onClickWithCtrl")
        ctrlClickEventId = eventId;
    else if (type == "onClickWithShift")
        shiftClickEventId = eventId;
    else if (type == "onRightClick")
        rightClickEventId = eventId;
}

void GFXMultiStateButton::updateFromParameter(Parameter& p)
{
    const int newState = frameOf(p.getNormalized(), stateCount);
    if (newState != state)
    {
        state = newState;
        repaint();
    }
}

void GFXMultiStateButton::clicked(const juce::ModifierKeys& modifiers)
{
    // Shift and right clicks belong to the editor; the rows for them below are kept in the order
    // of the tests a skin's bindings go through.
    if (modifiers.isShiftDown() || modifiers.isRightButtonDown())
        return;
    if (modifiers.isCtrlDown() && ctrlClickEventId >= 0)
        fireEvent(ctrlClickEventId);
    else if (modifiers.isShiftDown() && shiftClickEventId >= 0)
        fireEvent(shiftClickEventId);
    else if (modifiers.isRightButtonDown() && rightClickEventId >= 0)
        fireEvent(rightClickEventId);
    else if (clickEventId >= 0)
        fireEvent(clickEventId);
}

int GFXMultiStateButton::frameFor(bool over, bool down) const
{
    const int pressed = over && down ? 1 : 0;
    if (isBlinking() && ! getBlinkPhase())
        return look == 1 ? pressed : 0;
    int base = state;
    if (flashing)
        base = state == 0 ? stateCount - 1 : 0;
    return look == 1 ? base * 2 + pressed : base;
}

void GFXMultiStateButton::paintButton(juce::Graphics& g, bool over, bool down)
{
    if (image.isValid())
    {
        drawFrame(g, frameFor(over, down));
        return;
    }
    DrawnLook::box(g, getLocalBounds().withSizeKeepingCentre(16, 16), over && down ? 0.4f : 0.9f);
}

void GFXMultiStateButton::flash(int milliseconds)
{
    flashing = true;
    repaint();
    startTimer(milliseconds);
}

void GFXMultiStateButton::timerCallback()
{
    stopTimer();
    flashing = false;
    repaint();
}
