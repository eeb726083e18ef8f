#pragma once

#include "ComboBoxButton.h"

/** The combo box of the preset browser: the same menu and binding as `ComboBoxButton`, drawn as a
    sunken field in the typeface the browser asks for ("Tahoma", regular; the look and feel answers
    it with the compiled-in sans). Thread: message thread. */
class ComboBoxEx : public ComboBoxButton
{
protected:
    void paintBox(juce::Graphics& g, bool highlighted) override;
};
