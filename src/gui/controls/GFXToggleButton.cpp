#include "GFXToggleButton.h"

#include "DrawnLook.h"
#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"

GFXToggleButton::GFXToggleButton(const juce::String& name) : juce::Button(name)
{
    setClickingTogglesState(true);
    paramReset = false;
}

void GFXToggleButton::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    readPlacement(element);
    paramReset = false;
    if (element.getTagName().equalsIgnoreCase("ToggleButton"))
    {
        look = element.getStringAttribute("style", "2D") == "3D" ? raised : flat;
        if (auto* gfx = SkinXml::child(element, "gfx"))
            setFilmstrip(skin.getImage(gfx->getStringAttribute("resource")), look == raised ? 4 : 2);
        setTriggeredOnMouseDown(element.getStringAttribute("clickEvent", "onRelease") == "onPress");
        setRadioGroupId(SkinXml::integer(element, "radioGroupId", 0));
        paramReset = SkinXml::boolean(element, "paramReset", false);
    }
    setBounds(left, top, width, height);
}

void GFXToggleButton::bindAction(const juce::String& type, int eventId, const juce::String&)
{
    if (type == "onClickWithCtrl")
        ctrlClickEventId = eventId;
}

void GFXToggleButton::updateFromParameter(Parameter& p)
{
    setToggleState(p.getBool(), juce::dontSendNotification);
}

bool GFXToggleButton::leftToTheEditor(const juce::MouseEvent& event)
{
    return event.mods.isShiftDown() || event.mods.isRightButtonDown();
}

void GFXToggleButton::mouseDown(const juce::MouseEvent& event)
{
    if (leftToTheEditor(event))
        return;
    if (parameter != nullptr && ! suspended)
    {
        parameter->beginChange();
        gestureOpen = true;
        notifyDragStarted();
    }
    juce::Button::mouseDown(event);
}

void GFXToggleButton::mouseDrag(const juce::MouseEvent& event)
{
    if (! leftToTheEditor(event))
        juce::Button::mouseDrag(event);
}

void GFXToggleButton::mouseUp(const juce::MouseEvent& event)
{
    juce::Button::mouseUp(event);
    if (gestureOpen)
    {
        gestureOpen = false;
        if (parameter != nullptr)
            parameter->endChange();
        notifyDragEnded();
    }
}

void GFXToggleButton::clicked(const juce::ModifierKeys& modifiers)
{
    if (parameter != nullptr && ! suspended)
    {
        parameter->setBool(getToggleState(), true);
        notifyValueChanged();
    }
    if (modifiers.isCtrlDown() && ctrlClickEventId >= 0)
        fireEvent(ctrlClickEventId);
}

int GFXToggleButton::frameFor(bool over, bool down) const
{
    if (isBlinking() && ! getBlinkPhase())
        return 0;
    const bool on = getToggleState() != inverted;
    if (frames == 2)
        return on ? 1 : 0;
    if (frames == 4)
        return (on ? 2 : 0) + (over && down ? 1 : 0);
    return 0;
}

void GFXToggleButton::paintButton(juce::Graphics& g, bool over, bool down)
{
    if (image.isValid())
    {
        drawFrame(g, frameFor(over, down));
        return;
    }
    const bool on = getToggleState() != inverted;
    DrawnLook::box(g, getLocalBounds(), 0.7f);
    const auto area = getLocalBounds().reduced(2);
    g.setColour(juce::Colours::black);
    g.setFont(juce::Font(12.0f));
    g.drawText(on ? "On" : "Off", area, juce::Justification::centredTop, true);
    g.drawText(getName(), area, juce::Justification::centredBottom, true);
    const auto square = area.withSizeKeepingCentre(8, 8).toFloat();
    if (on)
        g.fillRect(square);
    else
        g.drawRect(square, 1.0f);
}
