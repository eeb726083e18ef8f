#pragma once

#include <juce_core/juce_core.h>

class Parameter;

/** Turns a parameter's value into the text a user reads (units, roundings, "Inactive").
    Formatters are plain pointers held by parameters; they are never owned by them.
    Thread: whoever asks for a display text; implementations only read parameter values. */
class ParameterFormatter
{
public:
    virtual ~ParameterFormatter() = default;

    /** The display text of the parameter's present value. */
    virtual juce::String format(const Parameter& parameter) = 0;
};
