#include "HardLabel.h"

HardLabel::HardLabel(const juce::String& name, const juce::String& text) : juce::Label(name, text)
{
    setEditable(false, false, false);
    setInterceptsMouseClicks(false, false);
    setBorderSize({0, 0, 0, 0});
}

void HardLabel::fitToHeight(int height)
{
    const float fontHeight = float(height) * 0.72f;
    if (auto* methods = dynamic_cast<LookAndFeelMethods*>(&getLookAndFeel()))
        setFont(methods->getHardLabelFont(fontHeight));
    else
        setFont(juce::Font(fontHeight));
    setSize(getWidth(), height);
}

int HardLabel::getTextWidth() const
{
    const auto border = getBorderSize();
    return int(std::ceil(getFont().getStringWidthFloat(getText()))) + border.getLeftAndRight();
}
