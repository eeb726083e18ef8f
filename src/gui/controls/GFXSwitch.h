#pragma once

#include "GFXKnob.h"
#include "gui/widgets/DefaultLookAndFeel.h"

/** A stepped control drawn as one frame of a filmstrip, the frame of its value: the frame count,
    not the parameter, decides how many positions show. Rotary (as a knob), horizontal or vertical;
    a disabled switch (or one in a disabled panel) shows frame 0. It writes and follows its
    parameter like a knob, but ignores `suspended`. Without an image it falls back to the widgets'
    slider look, with a thumb of the skin's size. Thread: message thread. */
class GFXSwitch : public GFXKnob
{
public:
    enum Style
    {
        vertical = 0,
        horizontal = 1,
        rotary = 2
    };

    /** The slider look with a thumb of the switch's size. */
    class LF : public DefaultLookAndFeel
    {
    public:
        explicit LF(GFXSwitch& owner) : switchControl(owner) {}
        int getSliderThumbRadius(juce::Slider&) override { return switchControl.thumb; }

    private:
        GFXSwitch& switchControl;
    };

    explicit GFXSwitch(const juce::String& name);
    ~GFXSwitch() override;

    /** The switch's words: `style` ("Rotary", "Horizontal", "Vertical", any case; others keep it
        rotary) and `thumb`, then the filmstrip, size and position. A linear switch resets on a
        double click only when the skin says so. */
    void load(const juce::XmlElement& element, SkinContext& skin) override;

    int getSwitchStyle() const noexcept { return switchStyle; }
    int getThumb() const noexcept { return thumb; }
    int getCurrentFrame() const override;

protected:
    bool honoursSuspension() const override { return false; }
    juce::String unboundValueText() const override { return juce::String(getValue()); }

private:
    int switchStyle = rotary;
    int thumb = 10;
    LF lf{*this};
};
