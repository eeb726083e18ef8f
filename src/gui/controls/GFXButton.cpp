#include "GFXButton.h"

#include "DrawnLook.h"
#include "gui/core/SkinXml.h"

GFXButton::GFXButton(const juce::String& name) : juce::Button(name)
{
    setWantsKeyboardFocus(false);
    // A named button without a skin image is sized to its name.
    if (name.isNotEmpty())
        setSize(int(std::ceil(juce::Font(12.0f).getStringWidthFloat(name))) + 8, 18);
    else
        setSize(18, 18);
    width = getWidth();
    height = getHeight();
}

void GFXButton::load(const juce::XmlElement& element, SkinContext& skin)
{
    BaseGFXController::load(element, skin);
    if (element.getTagName().equalsIgnoreCase("Button"))
    {
        const bool onPress = parameter != nullptr || element.getStringAttribute("clickEvent", "onRelease") == "onPress";
        setTriggeredOnMouseDown(onPress);
        if (element.getStringAttribute("autorepeat", "no") == "yes")
            setRepeatSpeed(1000, 100, -1);
        else
            setRepeatSpeed(0, 0, -1);
    }
    setBounds(left, top, width, height);
    paramReset = false;
}

void GFXButton::bindAction(const juce::String& type, int eventId, const juce::String& eventName)
{
    if (type == "onClick")
    {
        clickEventId = eventId;
        clickEventName = eventName;
    }
    else if (type == "onClickWithCtrl")
    {
        ctrlClickEventId = eventId;
        ctrlClickEventName = eventName;
    }
    else if (type == "onRightClick")
    {
        rightClickEventId = eventId;
        rightClickEventName = eventName;
    }
}

void GFXButton::mouseDown(const juce::MouseEvent& event)
{
    if (! event.mods.isRightButtonDown() && parameter != nullptr)
    {
        parameter->beginChange();
        notifyDragStarted();
    }
    juce::Button::mouseDown(event);
}

void GFXButton::mouseUp(const juce::MouseEvent& event)
{
    juce::Button::mouseUp(event);
    if (! event.mods.isRightButtonDown() && parameter != nullptr)
    {
        parameter->endChange();
        notifyDragEnded();
    }
}

void GFXButton::buttonStateChanged()
{
    const bool isDown = getState() == juce::Button::buttonDown;
    if (parameter != nullptr && isDown != lastDown)
    {
        parameter->setBool(isDown, true);
        notifyValueChanged();
    }
    lastDown = isDown;
}

void GFXButton::clicked(const juce::ModifierKeys& modifiers)
{
    int eventId = clickEventId;
    if (modifiers.isCtrlDown())
        eventId = ctrlClickEventId;
    else if (modifiers.isRightButtonDown() && rightClickEventId >= 0)
        eventId = rightClickEventId;
    if (eventId >= 0)
        fireEvent(eventId);
}

void GFXButton::paintButton(juce::Graphics& g, bool over, bool down)
{
    if (image.isValid())
    {
        drawFrame(g, over && down ? 1 : 0);
        return;
    }
    DrawnLook::box(g, getLocalBounds(), over && down ? 0.4f : 0.9f);
    if (getButtonText().isNotEmpty())
    {
        g.setColour(isEnabled() ? juce::Colours::black : juce::Colours::grey);
        g.setFont(juce::Font(12.0f));
        g.drawText(getButtonText(), getLocalBounds(), juce::Justification::centred, true);
    }
}
