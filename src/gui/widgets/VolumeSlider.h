#pragma once

#include "SliderController.h"

/** The browser's volume control: a bar that fills in amber up to its value, 100 by 20 pixels, with
    its value in white text. It is dragged, never typed into. Thread: message thread. */
class VolumeSlider : public SliderController
{
public:
    static constexpr juce::uint32 barColour = 0xffb84a00;

    explicit VolumeSlider(const juce::String& name);
};
