#include "VolumeSlider.h"

VolumeSlider::VolumeSlider(const juce::String& name) : SliderController(name)
{
    setSliderStyle(juce::Slider::LinearBar);
    // A bar's text stands over the bar itself whatever place is asked for; read-only, so that a
    // click on it moves the value instead of opening an editor.
    setTextBoxStyle(juce::Slider::TextBoxAbove, true, 100, 10);
    setColour(juce::Slider::trackColourId, juce::Colour(barColour));
    setColour(juce::Slider::textBoxTextColourId, juce::Colours::white);
    setSize(100, 20);
}
