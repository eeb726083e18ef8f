#include "CheckBox_V2.h"

#include "WidgetIcons.h"

CheckBox_V2::CheckBox_V2(const juce::String& text) : juce::Button(text)
{
    setClickingTogglesState(true);
}

int CheckBox_V2::getWidthToFit() const
{
    const juce::Font font(float(getHeight()) * 0.62f);
    return getBoxSide() + 8 + int(std::ceil(font.getStringWidthFloat(getButtonText())));
}

void CheckBox_V2::parameterUpdated(Parameter& parameter)
{
    setToggleState(parameter.getBool(), juce::dontSendNotification);
}

void CheckBox_V2::clicked()
{
    if (! parameters.isEmpty())
        parameters.getFirst()->setBool(getToggleState(), true);
}

void CheckBox_V2::paintButton(juce::Graphics& g, bool highlighted, bool down)
{
    const float alpha = isEnabled() ? 1.0f : 0.45f;
    const int side = getBoxSide();
    const auto box = juce::Rectangle<int>(0, (getHeight() - side) / 2, side, side).toFloat().reduced(0.5f);
    const bool on = getToggleState();
    const auto accent = findColour(juce::TextButton::buttonOnColourId);

    g.setColour((on ? accent : findColour(juce::TextButton::buttonColourId)).withMultipliedAlpha(alpha));
    g.fillRoundedRectangle(box, 3.0f);
    g.setColour((highlighted || down || hasKeyboardFocus(false) ? accent : findColour(juce::ComboBox::outlineColourId))
                    .withMultipliedAlpha(alpha));
    g.drawRoundedRectangle(box, 3.0f, 1.0f);
    if (on)
        if (auto tick = WidgetIcons::create(WidgetIcon::tick, findColour(juce::TextButton::textColourOnId)))
            tick->drawWithin(g, box.reduced(1.5f), juce::RectanglePlacement::centred, alpha);

    g.setColour(findColour(juce::ToggleButton::textColourId).withMultipliedAlpha(alpha));
    g.setFont(juce::Font(float(getHeight()) * 0.62f));
    g.drawText(getButtonText(), getLocalBounds().withTrimmedLeft(side + 8), juce::Justification::centredLeft, true);
}
