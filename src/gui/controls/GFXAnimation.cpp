#include "GFXAnimation.h"

#include "DrawnLook.h"

GFXAnimation::GFXAnimation(const juce::String& name) : juce::Component(name) {}

void GFXAnimation::load(const juce::XmlElement& element, SkinContext& skin)
{
    BaseGFXController::load(element, skin);
    frame = 0;
}

void GFXAnimation::updateFromParameter(Parameter& p)
{
    setValue(p.getNormalized());
}

void GFXAnimation::setValue(float value)
{
    const int newFrame = frameOf(juce::jlimit(0.0, 1.0, double(value)), frames);
    if (newFrame != frame)
    {
        frame = newFrame;
        repaint();
    }
}

void GFXAnimation::showFrame(int newFrame)
{
    newFrame = juce::jlimit(0, juce::jmax(0, frames - 1), newFrame);
    if (newFrame != frame)
    {
        frame = newFrame;
        repaint();
    }
}

void GFXAnimation::light(int litFrame, int milliseconds)
{
    frame = litFrame;
    repaint();
    startTimer(milliseconds);
}

void GFXAnimation::timerCallback()
{
    stopTimer();
    if (frame != restFrame)
    {
        frame = restFrame;
        repaint();
    }
}

void GFXAnimation::paint(juce::Graphics& g)
{
    if (image.isValid())
    {
        drawFrame(g, frame);
        return;
    }
    const auto square = getLocalBounds().withSizeKeepingCentre(16, 16);
    DrawnLook::box(g, square, 0.9f);
    const float diameter = frames > 1 ? float(frame) / float(frames - 1) * 10.0f : 0.0f;
    g.setColour(juce::Colours::black);
    g.fillEllipse(juce::Rectangle<float>(diameter, diameter).withCentre(square.toFloat().getCentre()));
}
