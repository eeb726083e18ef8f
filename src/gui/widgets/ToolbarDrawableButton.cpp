#include "ToolbarDrawableButton.h"

ToolbarDrawableButton::ToolbarDrawableButton(const juce::String& name, std::unique_ptr<juce::Drawable> i)
    : juce::Button(name), icon(std::move(i))
{
    setClickingTogglesState(true);
    setTooltip(name);
}

void ToolbarDrawableButton::parameterUpdated(Parameter& parameter)
{
    setToggleState(parameter.getBool(), juce::dontSendNotification);
}

void ToolbarDrawableButton::clicked()
{
    if (! parameters.isEmpty())
        parameters.getFirst()->setBool(getToggleState(), true);
}

void ToolbarDrawableButton::paintButton(juce::Graphics& g, bool highlighted, bool down)
{
    const bool on = getToggleState();
    auto area = getLocalBounds().toFloat().reduced(0.5f);
    if (on || highlighted || down)
    {
        g.setColour(findColour(on ? juce::TextButton::buttonOnColourId : juce::TextButton::buttonColourId)
                        .withMultipliedAlpha(down ? 0.8f : (on ? 1.0f : 0.6f)));
        g.fillRoundedRectangle(area, 3.0f);
    }
    if (hasKeyboardFocus(false))
    {
        g.setColour(findColour(juce::TextButton::buttonOnColourId));
        g.drawRoundedRectangle(area, 3.0f, 1.0f);
    }
    if (icon != nullptr)
    {
        auto copy = icon->createCopy();
        copy->replaceColour(juce::Colours::black,
                            findColour(on ? juce::TextButton::textColourOnId : juce::TextButton::textColourOffId)
                                .withMultipliedAlpha(isEnabled() ? 1.0f : 0.45f));
        const float side = juce::jmin(area.getWidth(), area.getHeight()) * 0.7f;
        copy->drawWithin(g, area.withSizeKeepingCentre(side, side), juce::RectanglePlacement::centred, 1.0f);
    }
}
