#include "GFXKnob.h"

#include "DrawnLook.h"

GFXKnob::GFXKnob(const juce::String& name, double minimum, double maximum) : juce::Slider(name)
{
    setSliderStyle(juce::Slider::RotaryVerticalDrag);
    setTextBoxStyle(juce::Slider::NoTextBox, true, 0, 0);
    setRange(minimum, maximum);
    setValue(0.0, juce::dontSendNotification);
}

void GFXKnob::updateFromParameter(Parameter& parameter)
{
    setValue(fromParameter(parameter.getNormalized()), juce::dontSendNotification);
}

void GFXKnob::load(const juce::XmlElement& element, SkinContext& skin)
{
    BaseGFXController::load(element, skin);
    setBounds(left, top, width, height);
}

int GFXKnob::getCurrentFrame() const
{
    const double range = getMaximum() - getMinimum();
    return frameOf(range > 0.0 ? (getValue() - getMinimum()) / range : 0.0, frames);
}

void GFXKnob::paint(juce::Graphics& g)
{
    if (image.isValid())
        drawFrame(g, getCurrentFrame());
    else
        paintDrawnLook(g);
}

juce::String GFXKnob::unboundValueText() const
{
    return juce::String::formatted("%f", getValue());
}

void GFXKnob::paintDrawnLook(juce::Graphics& g)
{
    DrawnLook::box(g, getLocalBounds(), 0.7f);
    juce::Slider::paint(g);
    DrawnLook::nameAndValue(g, getLocalBounds(), parameter != nullptr ? parameter->getName() : getName(),
                            parameter != nullptr ? parameter->getDisplayText() : unboundValueText());
}

bool GFXKnob::swallows(const juce::MouseEvent& event, bool drag) const
{
    if (event.mods.isShiftDown() || event.mods.isRightButtonDown())
        return true;
    return drag && ! isEnabled();
}

void GFXKnob::mouseDown(const juce::MouseEvent& event)
{
    if (! swallows(event, false))
        juce::Slider::mouseDown(event);
}

void GFXKnob::mouseDrag(const juce::MouseEvent& event)
{
    if (! swallows(event, true))
        juce::Slider::mouseDrag(event);
}

void GFXKnob::mouseUp(const juce::MouseEvent& event)
{
    if (! swallows(event, false))
        juce::Slider::mouseUp(event);
}

void GFXKnob::startedDragging()
{
    dragging = true;
    if ((honoursSuspension() && suspended) || parameter == nullptr)
        return;
    parameter->beginChange();
    notifyDragStarted();
}

void GFXKnob::stoppedDragging()
{
    dragging = false;
    if ((honoursSuspension() && suspended) || parameter == nullptr)
        return;
    parameter->endChange();
    notifyDragEnded();
}

void GFXKnob::valueChanged()
{
    if ((honoursSuspension() && suspended) || parameter == nullptr)
        return;
    parameter->setNormalized(toParameter(getValue()), true);
    notifyValueChanged();
}

void PitchBender::stoppedDragging()
{
    GFXKnob::stoppedDragging();
    setValue(0.0, juce::sendNotificationAsync);
}

void ModWheel::stoppedDragging()
{
    GFXKnob::stoppedDragging();
    setValue(0.0, juce::sendNotificationAsync);
}

juce::String GFXMidiChannelDisplay::getChannelText() const
{
    const double value = getValue();
    return value == 0.0 ? juce::String("ALL") : juce::String(int(value * 16.0 + 0.5));
}

void GFXMidiChannelDisplay::paintDrawnLook(juce::Graphics& g)
{
    g.fillAll(DrawnLook::grey(0.7f));
    g.setColour(juce::Colours::black);
    g.setFont(juce::Font("Tahoma", float(getHeight()) * 0.75f, juce::Font::plain));
    g.drawText(getChannelText(), getLocalBounds(), juce::Justification::centred, false);
}
