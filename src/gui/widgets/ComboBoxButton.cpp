#include "ComboBoxButton.h"

#include "WidgetIcons.h"
#include "parameters/EnumParameter.h"

ComboBoxButton::ComboBoxButton()
{
    clickArea.addListener(this);
    clickArea.setWantsKeyboardFocus(true);
    addAndMakeVisible(clickArea);
    menu.addListener(this);
}

ComboBoxButton::~ComboBoxButton()
{
    menu.removeListener(this);
    clickArea.removeListener(this);
}

bool ComboBoxButton::acceptsParameter(Parameter& parameter)
{
    return dynamic_cast<IntParameter*>(&parameter) != nullptr;
}

void ComboBoxButton::setParameter(Parameter* parameter)
{
    removeAllParameters();
    clearItems();
    addParameter(parameter);
}

void ComboBoxButton::parameterAdded(Parameter& parameter)
{
    clearItems();
    if (auto* items = dynamic_cast<EnumParameter*>(&parameter))
    {
        valueOffset = 0;
        for (int i = 0; i < items->getItems().size(); ++i)
            addItem(i + 1, items->getItems()[i]);
    }
    else if (auto* integer = dynamic_cast<IntParameter*>(&parameter))
    {
        valueOffset = integer->getMinimum();
        for (int v = integer->getMinimum(); v <= integer->getMaximum() && ids.size() < 1000; ++v)
            addItem(v - valueOffset + 1, juce::String(v));
    }
}

void ComboBoxButton::parameterUpdated(Parameter& parameter)
{
    setSelectedId(parameter.getInt() - valueOffset + 1);
}

void ComboBoxButton::addItem(int id, const juce::String& text)
{
    ids.add(id);
    texts.add(text);
}

void ComboBoxButton::clearItems()
{
    ids.clear();
    texts.clear();
    selectedId = 0;
    repaint();
}

void ComboBoxButton::setSelectedId(int id, juce::NotificationType notification)
{
    if (id == selectedId)
        return;
    selectedId = id;
    repaint();
    if (notification != juce::dontSendNotification && onChange)
        onChange();
}

juce::String ComboBoxButton::getText() const
{
    const int index = ids.indexOf(selectedId);
    return index >= 0 ? texts[index] : juce::String();
}

void ComboBoxButton::showMenu()
{
    menu.clear();
    for (int i = 0; i < ids.size(); ++i)
        menu.addItem(ids[i], texts[i], true, ids[i] == selectedId);
    menu.show(*this);
}

void ComboBoxButton::popupMenuClosed(PopupMenuEx&, int itemId)
{
    if (itemId == 0 || ! ids.contains(itemId))
        return;
    if (auto* parameter = getBoundParameter())
        parameter->setInt(itemId - 1 + valueOffset, true);
    setSelectedId(itemId, juce::sendNotificationSync);
}

void ComboBoxButton::paint(juce::Graphics& g)
{
    paintBox(g, clickArea.isOver() || menu.isOpen());
}

void ComboBoxButton::paintBox(juce::Graphics& g, bool highlighted)
{
    const auto bounds = getLocalBounds().toFloat().reduced(0.5f);
    const float alpha = isEnabled() ? 1.0f : 0.45f;
    g.setColour(findColour(juce::TextButton::buttonColourId).withMultipliedAlpha(alpha));
    g.fillRoundedRectangle(bounds, 3.0f);
    g.setColour((highlighted || clickArea.hasKeyboardFocus(false) ? findColour(juce::ComboBox::focusedOutlineColourId)
                                                                  : findColour(juce::ComboBox::outlineColourId))
                    .withMultipliedAlpha(alpha));
    g.drawRoundedRectangle(bounds, 3.0f, 1.0f);

    const int arrowSide = juce::jmin(getHeight(), 16);
    auto area = getLocalBounds().reduced(7, 0);
    const auto arrowArea = area.removeFromRight(arrowSide).withSizeKeepingCentre(arrowSide, arrowSide);
    if (auto arrow = WidgetIcons::create(WidgetIcon::arrowDown, findColour(juce::ComboBox::arrowColourId)))
        arrow->drawWithin(g, arrowArea.toFloat(), juce::RectanglePlacement::centred, alpha);
    g.setColour(findColour(juce::ComboBox::textColourId).withMultipliedAlpha(alpha));
    g.setFont(juce::Font(juce::jmin(14.0f, float(getHeight()) * 0.62f)));
    g.drawText(getText(), area.withTrimmedRight(4), juce::Justification::centredLeft, true);
}

void ComboBoxButton::resized()
{
    clickArea.setBounds(getLocalBounds());
}
