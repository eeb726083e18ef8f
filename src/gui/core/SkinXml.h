#pragma once

// How skin documents are read: element names ignoring case, attribute names exactly, numbers as the
// leading integer of their text (an absent attribute gives the default), colours as hexadecimal ARGB.

#include <juce_graphics/juce_graphics.h>

/** Thread: any; no state. */
namespace SkinXml
{
/** The largest size and position a skin can give a control, in pixels: held to what a screen can
    show, so that no skin can ask for a component of gigapixels. */
constexpr int maximumExtent = 16384;

/** The first child element of that name, ignoring case, or null. */
const juce::XmlElement* child(const juce::XmlElement& element, const juce::String& name);
/** The element's children of that name, ignoring case, in document order. */
juce::Array<const juce::XmlElement*> children(const juce::XmlElement& element, const juce::String& name);
/** The leading integer of the attribute's text, or the default when the attribute is absent. */
int integer(const juce::XmlElement& element, const juce::String& attribute, int defaultValue);
/** A hexadecimal ARGB colour ("ff202020"; "0" is transparent black). */
juce::Colour colour(const juce::String& text);
/** "true", "yes" or "1" (any case) is true, anything else false; the default when absent. */
bool boolean(const juce::XmlElement& element, const juce::String& attribute, bool defaultValue);
/** The width and height of the element's `size` child, held to 0..maximumExtent; the defaults
    without one. */
juce::Point<int> size(const juce::XmlElement& element, int defaultWidth, int defaultHeight);
/** The left and top of the element's `pos` child, held to -maximumExtent..maximumExtent; 0, 0
    without one. */
juce::Point<int> position(const juce::XmlElement& element);
/** `position` and `size` together. */
juce::Rectangle<int> bounds(const juce::XmlElement& element, int defaultWidth = 0, int defaultHeight = 0);
} // namespace SkinXml
