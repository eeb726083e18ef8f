#pragma once

#include "gui/core/ParameterController.h"

#include <juce_gui_basics/juce_gui_basics.h>

/** A slider that moves one or more parameters together: its value 0..1 goes with `setNormalized`
    and notification to every parameter it has, and each drag is one gesture on each of them. It
    shows the value of the parameter that changed last, without writing back. Thread: message
    thread. */
class SliderController : public juce::Slider, public ParameterController
{
public:
    explicit SliderController(const juce::String& name);

    void parameterUpdated(Parameter& parameter) override;
    void valueChanged() override;
    void startedDragging() override;
    void stoppedDragging() override;
};
