#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A label that never edits. Thread: message thread. */
class HardLabel : public juce::Label
{
public:
    /** What a look and feel provides for these labels. */
    class LookAndFeelMethods
    {
    public:
        virtual ~LookAndFeelMethods() = default;
        /** The label font at a height in pixels. */
        virtual juce::Font getHardLabelFont(float height) = 0;
    };

    explicit HardLabel(const juce::String& name = {}, const juce::String& text = {});

    /** Sets the font from the height the label gets, and that height. */
    void fitToHeight(int height);
    /** The width the text takes in the label's font, with the label's border. */
    int getTextWidth() const;
};
