#include "TextButtonWithIcon.h"

TextButtonWithIcon::TextButtonWithIcon(const juce::String& text, std::unique_ptr<juce::Drawable> newIcon)
    : juce::Button(text), icon(std::move(newIcon))
{
}

void TextButtonWithIcon::setIcon(std::unique_ptr<juce::Drawable> newIcon)
{
    icon = std::move(newIcon);
    repaint();
}

int TextButtonWithIcon::getWidthToFit(int height) const
{
    const juce::Font textFont(float(height) * 0.6f);
    const int iconWidth = icon != nullptr ? juce::roundToInt(float(height) * 0.7f) + 5 : 0;
    return int(std::ceil(textFont.getStringWidthFloat(getButtonText()))) + iconWidth + height;
}

void TextButtonWithIcon::parameterUpdated(Parameter& parameter)
{
    setToggleState(parameter.getBool(), juce::dontSendNotification);
}

void TextButtonWithIcon::paintButton(juce::Graphics& g, bool highlighted, bool down)
{
    auto& lf = getLookAndFeel();
    lf.drawButtonBackground(g, *this, findColour(juce::TextButton::buttonColourId), highlighted, down);

    auto area = getLocalBounds().reduced(6, 0);
    const auto colour =
        findColour(getToggleState() ? juce::TextButton::textColourOnId : juce::TextButton::textColourOffId)
            .withMultipliedAlpha(isEnabled() ? 1.0f : 0.45f);
    const juce::Font font(float(getHeight()) * 0.6f);
    const int textWidth = int(std::ceil(font.getStringWidthFloat(getButtonText())));
    const int iconSide = icon != nullptr ? juce::roundToInt(float(getHeight()) * 0.7f) : 0;
    const int gap = icon != nullptr && getButtonText().isNotEmpty() ? 5 : 0;
    const int total = iconSide + gap + textWidth;
    auto content = area.withSizeKeepingCentre(juce::jmin(total, area.getWidth()), area.getHeight());
    if (icon != nullptr)
    {
        const auto iconArea = content.removeFromLeft(iconSide).withSizeKeepingCentre(iconSide, iconSide);
        auto copy = icon->createCopy();
        copy->replaceColour(juce::Colours::black, colour);
        copy->drawWithin(g, iconArea.toFloat(), juce::RectanglePlacement::centred, 1.0f);
        content.removeFromLeft(gap);
    }
    g.setColour(colour);
    g.setFont(font);
    g.drawText(getButtonText(), content, juce::Justification::centredLeft, true);
}
