#pragma once

#include <juce_core/juce_core.h>

/** The text of the BBD clock read-out, about five characters wide so that a display in a fixed
    font does not jump: "" at exactly 0, "  440" below 10 kHz (rounded, padded with blanks),
    "12.3k" up to 99999 Hz, " 123k" up to 999999 Hz (floored), "1.35M" above. */
juce::String bbdFrequencyText(float hertz);
