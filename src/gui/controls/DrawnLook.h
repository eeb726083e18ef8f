#pragma once

// The plain look of a control whose skin gives it no image, so a half-finished skin still works.

#include <juce_graphics/juce_graphics.h>

/** Thread: message thread. */
namespace DrawnLook
{
/** Fills with a grey level (0 black .. 1 white) and outlines in black, 1 pixel. */
void box(juce::Graphics& g, juce::Rectangle<int> area, float grey);
/** The name at the top centre and the value at the bottom centre, in black, at most two lines each,
    13 points. */
void nameAndValue(juce::Graphics& g, juce::Rectangle<int> area, const juce::String& name, const juce::String& value);
/** A grey level as a colour. */
juce::Colour grey(float level);
} // namespace DrawnLook
