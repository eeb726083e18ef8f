#pragma once

#include "parameters/ParameterManager.h"

/** This product's parameter manager: the generic manager plus the value display of the product's
    float parameters, for which it is also the formatter. Thread: as ParameterManager. */
class VelmarinParameterManager : public ParameterManager, public ParameterFormatter
{
public:
    /** The display text of a parameter; the product's units and roundings. */
    juce::String format(const Parameter& parameter) override;
    /** Itself for the float indices 0, 2, 3, 4, 6, 7, 11, 12, 14, 15, 18, 21, 23, 24, 26, 27. */
    ParameterFormatter* getFormatter(int index) override;
};
