#pragma once

#include "gui/core/ParameterController.h"

#include <juce_gui_basics/juce_gui_basics.h>

/** A flat text button with an optional icon at the left of its text. The icon is drawn in black
    (as `WidgetIcons` makes them) and painted in the text's colour. Bound to a parameter, the button
    shows the parameter's on state as its toggle state. Thread: message thread. */
class TextButtonWithIcon : public juce::Button, public ParameterController
{
public:
    explicit TextButtonWithIcon(const juce::String& text, std::unique_ptr<juce::Drawable> icon = nullptr);

    void setIcon(std::unique_ptr<juce::Drawable> newIcon);
    juce::Drawable* getIcon() const noexcept { return icon.get(); }
    /** The width that holds the icon and the text at a height. */
    int getWidthToFit(int height) const;

    void parameterUpdated(Parameter& parameter) override;
    void paintButton(juce::Graphics& g, bool highlighted, bool down) override;

private:
    std::unique_ptr<juce::Drawable> icon;
};
