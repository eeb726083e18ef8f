#include "PathComponent.h"

PathComponent::PathComponent(const juce::String& w) : wildcard(w)
{
    browse.addListener(this);
    addAndMakeVisible(browse);
}

PathComponent::~PathComponent()
{
    browse.removeListener(this);
}

void PathComponent::setPath(const juce::String& newPath, juce::NotificationType notification)
{
    if (newPath == path)
        return;
    path = newPath;
    repaint();
    if (notification != juce::dontSendNotification)
        for (int i = listeners.size(); --i >= 0;)
            if (i < listeners.size())
                listeners.getUnchecked(i)->pathChanged(*this);
}

void PathComponent::paint(juce::Graphics& g)
{
    const auto area = getLocalBounds().withTrimmedRight(browse.getWidth() + gap);
    const float alpha = isEnabled() ? 1.0f : 0.45f;
    g.setColour(findColour(juce::TextEditor::backgroundColourId).withMultipliedAlpha(alpha));
    g.fillRoundedRectangle(area.toFloat(), 3.0f);
    g.setColour(findColour(juce::TextEditor::outlineColourId).withMultipliedAlpha(alpha));
    g.drawRoundedRectangle(area.toFloat().reduced(0.5f), 3.0f, 1.0f);
    g.setColour(findColour(juce::TextEditor::textColourId).withMultipliedAlpha(path.isEmpty() ? 0.5f * alpha : alpha));
    const juce::Font font(juce::jmin(14.0f, float(getHeight()) * 0.6f));
    g.setFont(font);
    // A long path shows its end: the file's name matters more than the folders above it.
    const auto textArea = area.reduced(6, 0);
    auto text = getShownText();
    if (font.getStringWidthFloat(text) > float(textArea.getWidth()))
    {
        while (text.isNotEmpty() &&
               font.getStringWidthFloat(juce::String::charToString(0x2026) + text) > float(textArea.getWidth()))
            text = text.substring(1);
        text = juce::String::charToString(0x2026) + text;
    }
    g.drawText(text, textArea, juce::Justification::centredLeft, false);
}

void PathComponent::resized()
{
    browse.changeWidthToFitText(getHeight());
    browse.setTopLeftPosition(getWidth() - browse.getWidth(), 0);
}

void PathComponent::buttonClicked(juce::Button* button)
{
    if (button != &browse)
        return;
    const juce::File start = path.isNotEmpty() ? juce::File(path) : juce::File();
    chooser = std::make_unique<juce::FileChooser>("Choose a file", start, wildcard);
    const juce::Component::SafePointer<PathComponent> self(this);
    chooser->launchAsync(juce::FileBrowserComponent::openMode | juce::FileBrowserComponent::canSelectFiles,
                         [self](const juce::FileChooser& fc)
                         {
                             if (self != nullptr && fc.getResult() != juce::File())
                                 self->setPath(fc.getResult().getFullPathName());
                         });
}
