#pragma once

#include "GFXAnimation.h"

/** A pattern's number in four picture digits, in one of three kinds: a note pattern (a note name
    and octave), a numeric pattern (two digits), or a bank and slot. Each digit is a strip of its
    own (12, 19, 13 and 11 frames); it is shown, never edited by the mouse. Thread: message
    thread. */
class PatternNumberDisplay : public GUIController, public juce::Component
{
public:
    enum Mode
    {
        notePattern = 0,
        numericPattern = 1,
        bankAndSlot = 2
    };

    explicit PatternNumberDisplay(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void updateFromParameter(Parameter& parameter) override;

    void setPatternMode(int mode);
    /** Shows a value, held to the bounds of the current kind. */
    void setValue(int value);
    int getDigitFrame(int digit) const { return digits[size_t(digit)]->getFrame(); }
    int getSlotMax() const noexcept { return slotMax; }

    void resized() override;

private:
    int patternMode = numericPattern;
    int shownValue = 1;
    int notePatternMin = 0, notePatternMax = 127;
    int numericPatternMin = 1, numericPatternMax = 16;
    int bankAndSlotPatternMin = 1, bankAndSlotPatternMax = 96;
    int slotMax = 12;
    std::vector<std::unique_ptr<GFXAnimation>> digits;
};
