#pragma once

#include "gui/core/BaseGFXController.h"

/** A knob drawn as one frame of a filmstrip: the frame of (value - minimum) / (maximum - minimum).
    A plain vertical drag turns it; Shift and the right button are left to the editor (reset, menus)
    and never move it. Every drag is one gesture on its parameter. Without an image it draws a plain
    grey box with the parameter's name and value. Thread: message thread. */
class GFXKnob : public BaseGFXController, public juce::Slider
{
public:
    explicit GFXKnob(const juce::String& name, double minimum = 0.0, double maximum = 1.0);

    /** The filmstrip, size and position, then the control takes its bounds. */
    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void updateFromParameter(Parameter& parameter) override;

    /** The frame the control shows now. */
    virtual int getCurrentFrame() const;

    void paint(juce::Graphics& g) override;
    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDrag(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;
    void startedDragging() override;
    void stoppedDragging() override;
    void valueChanged() override;

    bool isDragging() const noexcept { return dragging; }

protected:
    /** Whether a mouse event belongs to the editor, not the slider (Shift, right button), or is a
        drag on a disabled control. */
    bool swallows(const juce::MouseEvent& event, bool drag) const;
    /** The value written to the parameter for the slider's value, and back. */
    virtual float toParameter(double sliderValue) const { return float(sliderValue); }
    virtual double fromParameter(float normalized) const { return normalized; }
    /** Whether `suspended` is honoured (knobs) or not (switches, the channel display). */
    virtual bool honoursSuspension() const { return true; }
    /** The value text of the drawn look when no parameter is bound. */
    virtual juce::String unboundValueText() const;
    /** The plain look without an image. */
    virtual void paintDrawnLook(juce::Graphics& g);

    bool dragging = false;
};

/** A knob from -1 to 1 that springs back to the middle when released: the parameter follows to 0.5. */
class PitchBender : public GFXKnob
{
public:
    explicit PitchBender(const juce::String& name) : GFXKnob(name, -1.0, 1.0) {}
    void stoppedDragging() override;

protected:
    float toParameter(double sliderValue) const override { return float((sliderValue + 1.0) * 0.5); }
    double fromParameter(float normalized) const override { return double(normalized) * 2.0 - 1.0; }
};

/** A knob from 0 to 1 that returns to 0 when released. */
class ModWheel : public GFXKnob
{
public:
    explicit ModWheel(const juce::String& name) : GFXKnob(name, 0.0, 1.0) {}
    void stoppedDragging() override;
};

/** The MIDI channel read-out: a knob that ignores `suspended`. Without an image it reads "ALL" at
    0, else the channel number. */
class GFXMidiChannelDisplay : public GFXKnob
{
public:
    explicit GFXMidiChannelDisplay(const juce::String& name) : GFXKnob(name) {}
    /** The text of the drawn look for the current value. */
    juce::String getChannelText() const;

protected:
    bool honoursSuspension() const override { return false; }
    void paintDrawnLook(juce::Graphics& g) override;
};
