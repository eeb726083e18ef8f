#pragma once

#include "gui/core/BaseGFXController.h"

/** A meter or lamp drawn as one frame of a filmstrip: the frame of its parameter's value, or of a
    value set by its owner (`setValue`, for the level meters). It repaints only when the frame
    changes. As a lamp its owner lights a frame and starts the timer, which puts it back to rest.
    Thread: message thread. */
class GFXAnimation : public BaseGFXController, public juce::Component, private juce::Timer
{
public:
    explicit GFXAnimation(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void updateFromParameter(Parameter& parameter) override;
    void sizeChanged() override { setSize(width, height); }
    void positionChanged() override { setTopLeftPosition(left, top); }

    /** Shows the frame of a value, held to 0..1. */
    void setValue(float value);
    /** Shows a frame (held to the strip); repaints only on a change. */
    void showFrame(int newFrame);
    /** Takes a filmstrip of that many frames, and the size of one frame. */
    void setStrip(const juce::Image& strip, int frameCount) { setFilmstrip(strip, frameCount); }
    /** Shows a frame now and returns to the rest frame after `milliseconds`. */
    void light(int litFrame, int milliseconds);
    int getFrame() const noexcept { return frame; }

    void paint(juce::Graphics& g) override;

private:
    void timerCallback() override;

    int frame = 0;
    int restFrame = 0;
};
