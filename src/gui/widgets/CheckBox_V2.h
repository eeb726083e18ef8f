#pragma once

#include "gui/core/ParameterController.h"

#include <juce_gui_basics/juce_gui_basics.h>

/** A tick box with its text at the right. Bound to a parameter, a click writes the parameter's on
    state with notification, and the box follows the parameter without writing back. Thread:
    message thread. */
class CheckBox_V2 : public juce::Button, public ParameterController
{
public:
    explicit CheckBox_V2(const juce::String& text);

    /** The side of the box at the button's height. */
    int getBoxSide() const { return juce::jmin(getHeight(), 18); }
    /** The width that holds the box and the whole text. */
    int getWidthToFit() const;

    void parameterUpdated(Parameter& parameter) override;
    void clicked() override;
    void paintButton(juce::Graphics& g, bool highlighted, bool down) override;
};
