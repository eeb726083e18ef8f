#include "ComboBoxEx.h"

#include "WidgetIcons.h"

void ComboBoxEx::paintBox(juce::Graphics& g, bool highlighted)
{
    const auto bounds = getLocalBounds().toFloat().reduced(0.5f);
    const float alpha = isEnabled() ? 1.0f : 0.45f;
    g.setColour(findColour(juce::ComboBox::backgroundColourId).withMultipliedAlpha(alpha));
    g.fillRoundedRectangle(bounds, 2.0f);
    g.setColour(
        (highlighted ? findColour(juce::ComboBox::focusedOutlineColourId) : findColour(juce::ComboBox::outlineColourId))
            .withMultipliedAlpha(alpha));
    g.drawRoundedRectangle(bounds, 2.0f, 1.0f);

    auto area = getLocalBounds().reduced(6, 0);
    const int arrowSide = juce::jmin(getHeight() - 4, 14);
    const auto arrowArea = area.removeFromRight(arrowSide).withSizeKeepingCentre(arrowSide, arrowSide);
    if (auto arrow = WidgetIcons::create(WidgetIcon::arrowDown, findColour(juce::ComboBox::arrowColourId)))
        arrow->drawWithin(g, arrowArea.toFloat(), juce::RectanglePlacement::centred, alpha);
    g.setColour(findColour(juce::ComboBox::textColourId).withMultipliedAlpha(alpha));
    g.setFont(juce::Font("Tahoma", "Regular", juce::jmin(13.0f, float(getHeight()) * 0.6f)));
    g.drawText(getText(), area.withTrimmedRight(3), juce::Justification::centredLeft, true);
}
