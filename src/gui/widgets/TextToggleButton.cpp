#include "TextToggleButton.h"

TextToggleButton::TextToggleButton(const juce::String& text) : juce::Button(text)
{
    setClickingTogglesState(true);
}

void TextToggleButton::paintButton(juce::Graphics& g, bool highlighted, bool down)
{
    const bool on = getToggleState();
    getLookAndFeel().drawButtonBackground(
        g, *this, findColour(on ? juce::TextButton::buttonOnColourId : juce::TextButton::buttonColourId), highlighted,
        down);
    g.setColour(findColour(on ? juce::TextButton::textColourOnId : juce::TextButton::textColourOffId)
                    .withMultipliedAlpha(isEnabled() ? 1.0f : 0.45f));
    g.setFont(juce::Font(float(getHeight()) * 0.6f));
    g.drawText(getButtonText(), getLocalBounds().reduced(6, 0), juce::Justification::centred, true);
}
