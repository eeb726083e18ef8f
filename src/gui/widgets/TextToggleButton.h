#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A flat text button that stays down while on. Thread: message thread. */
class TextToggleButton : public juce::Button
{
public:
    explicit TextToggleButton(const juce::String& text);
    void paintButton(juce::Graphics& g, bool highlighted, bool down) override;
};
