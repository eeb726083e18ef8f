#include "DrawnLook.h"

namespace DrawnLook
{
juce::Colour grey(float level)
{
    return juce::Colour::fromFloatRGBA(level, level, level, 1.0f);
}

void box(juce::Graphics& g, juce::Rectangle<int> area, float level)
{
    g.setColour(grey(level));
    g.fillRect(area);
    g.setColour(juce::Colours::black);
    g.drawRect(area, 1);
}

void nameAndValue(juce::Graphics& g, juce::Rectangle<int> area, const juce::String& name, const juce::String& value)
{
    g.setColour(juce::Colours::black);
    g.setFont(juce::Font(13.0f));
    const auto inner = area.reduced(2);
    const int half = inner.getHeight() / 2;
    g.drawFittedText(name, inner.withHeight(half), juce::Justification::centredTop, 2);
    g.drawFittedText(value, inner.withTrimmedTop(half), juce::Justification::centredBottom, 2);
}
} // namespace DrawnLook
