#pragma once

// Reading values out of texts that people type: into a host's generic parameter view (which shows
// a parameter's display text, "+6.0dB", "0.123Hz", "75/25%", "On"), or on a command line (which
// takes a parameter's own text form, "512", "0.25", "Off"). Thread: any; nothing here keeps state.

#include <juce_core/juce_core.h>

#include <functional>
#include <optional>

class Parameter;

namespace ValueText
{
/** The whole text, spaces around it ignored, as one finite decimal number ("-6", "+0.5", "1e-3");
    nothing for anything else ("6dB", "abc", "nan", "inf", ""). */
std::optional<double> parseNumber(const juce::String& text);

/** The first number written in a display text, wherever it stands: 6 in "+6.0dB" and "6 dB", 1.3 in
    "x 1.30", 75 in "75/25%". "-Inf." and "inf" read as minus and plus infinity, so that a level at
    minus infinity compares below every other. Nothing when the text holds no number. */
std::optional<double> findNumber(const juce::String& text);

/** True when `setText` of this parameter would read the text as one of its own items, words or
    note names, or as a finite number inside what that reading accepts: the bounds of a float or
    int parameter, 0..1 where a number is read as a normalized value (items, words, notes). Any text
    suits a string parameter. */
bool isReadable(const Parameter& parameter, const juce::String& text);

/** What `isReadable` accepts for this parameter, in words for an error line: "one of 16, 32, ...,
    or a normalized number from 0 to 1", "a number from 0 to 1", "any text". */
juce::String describeReadable(const Parameter& parameter);

/** The normalized value whose display text is `text`: the inverse of a display function.
    `displayAt(n)` gives the display text at normalized n; `steps` is the number of distinct values
    of a discrete parameter (2 for on/off), 0 for a continuous one; `current` is the normalized
    value now. Texts compare ignoring case and spaces; a number with or without its unit ("+6.0dB",
    "6 dB", "6") finds the value whose display shows that number, the nearest one for a continuous
    parameter (its display number must rise or fall steadily with n). A text that reads as nothing
    (empty, unknown words, "Inactive") gives `current` back. */
float normalizedForDisplayText(const juce::String& text, float current, int steps,
                               const std::function<juce::String(float)>& displayAt);
} // namespace ValueText
