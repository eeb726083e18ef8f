#pragma once

#include "gui/core/GUIController.h"

/** One digit of a numeric display: frame 0..9 of a ten-frame strip, or nothing while blank. */
class NumericDisplayDigit : public juce::Component, public BlinkingComponent
{
public:
    void setImage(const juce::Image& strip) { image = strip; }
    /** Sets the digit and blank flag; repaints only on a change. */
    void show(int newDigit, bool newBlank);
    int getDigit() const noexcept { return digit; }
    bool isBlank() const noexcept { return blank; }
    void paint(juce::Graphics& g) override;

protected:
    void blinkTick() override { repaint(); }

private:
    juce::Image image;
    int digit = 0;
    bool blank = false;
};

/** The sign of a numeric display: frame 0 (plus or nothing) or 1 (minus) of a two-frame strip. */
class NumericDisplaySign : public juce::Component
{
public:
    void setImage(const juce::Image& strip) { image = strip; }
    void show(bool negative);
    bool isNegative() const noexcept { return minus; }
    void paint(juce::Graphics& g) override;

private:
    juce::Image image;
    bool minus = false;
};

/** A number shown as a row of digit images, with a sign when it can be negative. Each digit has a
    weight (the first `firstDigitOrder`, each next a tenth of the one before); leading zeros above
    the units are blank. A vertical drag changes the value: 10 pixels up add one step of the digit
    under the pointer (of the units with `control="continous"`), as one gesture. Thread: message
    thread. */
class NumericDisplay : public GUIController, public juce::Component
{
public:
    explicit NumericDisplay(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void updateFromParameter(Parameter& parameter) override;

    /** Shows a value held to the display's range; from the user it is written to the parameter. */
    void setValue(double newValue, bool fromUser);
    double getValue() const noexcept { return value; }

    int getDigitsCount() const noexcept { return digitsCount; }
    const NumericDisplayDigit& getDigit(int index) const { return *digits[index]; }
    const NumericDisplaySign* getSign() const { return sign.get(); }
    double getLowest() const noexcept { return lowest; }
    double getHighest() const noexcept { return highest; }

    void resized() override;
    void paint(juce::Graphics& g) override;
    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDrag(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;

private:
    void configure(int count, double firstDigitOrder);

    int digitsCount = 1;
    int firstDigitExponent = 0;
    double firstDigitValue = 1.0;
    double lowest = -9.0, highest = 9.0;
    double minValue = 0.0, maxValue = 0.0;
    double value = 0.0;
    bool continuous = false;
    int digitWidth = 10, digitHeight = 16;
    bool editable = true;
    bool dragging = false;
    double valueAtDown = 0.0, dragStep = 1.0;
    std::vector<std::unique_ptr<NumericDisplayDigit>> digits;
    std::unique_ptr<NumericDisplaySign> sign;
};
