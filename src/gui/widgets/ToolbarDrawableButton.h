#pragma once

#include "gui/core/ParameterController.h"

#include <juce_gui_basics/juce_gui_basics.h>

/** A square toolbar button showing an icon (drawn in black, painted in the button's colour), lit
    while on. Bound to a parameter, a click toggles it with notification and the button follows it.
    Thread: message thread. */
class ToolbarDrawableButton : public juce::Button, public ParameterController
{
public:
    ToolbarDrawableButton(const juce::String& name, std::unique_ptr<juce::Drawable> icon);

    void parameterUpdated(Parameter& parameter) override;
    void clicked() override;
    void paintButton(juce::Graphics& g, bool highlighted, bool down) override;

private:
    std::unique_ptr<juce::Drawable> icon;
};
