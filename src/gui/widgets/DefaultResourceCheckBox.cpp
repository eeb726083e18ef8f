#include "DefaultResourceCheckBox.h"

DefaultResourceCheckBox::DefaultResourceCheckBox(const juce::String& title, const juce::String& wildcard)
    : box(title), pathComponent(wildcard)
{
    box.addListener(this);
    pathComponent.addListener(this);
    pathComponent.setEnabled(false);
    addAndMakeVisible(box);
    addAndMakeVisible(pathComponent);
}

DefaultResourceCheckBox::~DefaultResourceCheckBox()
{
    pathComponent.removeListener(this);
    box.removeListener(this);
}

void DefaultResourceCheckBox::setPath(const juce::String& path)
{
    pathComponent.setPath(path, juce::dontSendNotification);
    box.setToggleState(path.isNotEmpty(), juce::dontSendNotification);
    pathComponent.setEnabled(box.getToggleState());
}

juce::String DefaultResourceCheckBox::getActivePath() const
{
    return box.getToggleState() ? pathComponent.getPath() : juce::String();
}

void DefaultResourceCheckBox::resized()
{
    box.setBounds(0, 0, getWidth(), getHeight());
    box.setSize(juce::jmin(getWidth(), box.getWidthToFit()), getHeight());
    pathComponent.setBounds(box.getRight() + gap, 0, juce::jmax(0, getWidth() - box.getWidth() - gap), getHeight());
}

void DefaultResourceCheckBox::pathChanged(PathComponent&)
{
    if (onChange)
        onChange();
}

void DefaultResourceCheckBox::buttonClicked(juce::Button* button)
{
    if (button != &box)
        return;
    pathComponent.setEnabled(box.getToggleState());
    if (onChange)
        onChange();
}
