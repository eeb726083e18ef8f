#pragma once

#include <juce_graphics/juce_graphics.h>

/** One font a skin declares: the name the skin's controls use, its style (0 plain, 1 bold), the
    file inside the skin that holds it, and the typeface made from that file once it was first
    asked for. */
struct SkinFont
{
    juce::String typefaceName;
    int style = 0;
    juce::String file;
    juce::Typeface::Ptr typeface;
};
