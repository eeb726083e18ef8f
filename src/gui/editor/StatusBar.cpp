#include "StatusBar.h"

#include "gui/widgets/DefaultLookAndFeel.h"
#include "gui/widgets/WidgetIcons.h"

StatusBar::StatusBar()
{
    for (auto* button : {&qualityButton, &midiButton, &guiButton})
    {
        button->setClickingTogglesState(true);
        button->addListener(this);
        addAndMakeVisible(*button);
    }
    qualityButton.setIcon(WidgetIcons::create(WidgetIcon::quality, juce::Colours::black));
    qualityButton.setVisible(false);
    setSize(400, DefaultLookAndFeel::statusBarHeight);
}

StatusBar::~StatusBar()
{
    for (auto* button : {&qualityButton, &midiButton, &guiButton})
        button->removeListener(this);
}

void StatusBar::showMessage(const juce::String& text, int newPriority)
{
    if (text == message || newPriority < priority)
        return;
    message = text;
    priority = newPriority;
    startTimer(messageMilliseconds);
    repaint();
}

void StatusBar::setLastingMessage(const juce::String& text)
{
    if (text == message || priority >= 1)
        return;
    priority = 0;
    message = text;
    stopTimer();
    repaint();
}

void StatusBar::clearMessage()
{
    priority = 0;
    message.clear();
    stopTimer();
    repaint();
}

void StatusBar::setPanels(juce::Component* qualityPanel, juce::Component* midiPanel, juce::Component* guiPanel)
{
    panels[0] = qualityPanel;
    panels[1] = midiPanel;
    panels[2] = guiPanel;
}

void StatusBar::setQualityText(const juce::String& text)
{
    qualityButton.setButtonText(text);
}

void StatusBar::setQualityButtonVisible(bool visible)
{
    qualityButton.setVisible(visible);
    resized();
}

void StatusBar::paint(juce::Graphics& g)
{
    g.fillAll(findColour(DefaultLookAndFeel::statusBarBackgroundColourId));
    g.setColour(findColour(DefaultLookAndFeel::statusBarTextColourId));
    if (auto* look = dynamic_cast<DefaultLookAndFeel*>(&getLookAndFeel()))
        g.setFont(look->getStatusBarFont());
    int freeRight = getWidth();
    for (auto* button : {&qualityButton, &midiButton, &guiButton})
        if (button->isVisible())
            freeRight = juce::jmin(freeRight, button->getX());
    g.drawText(message, 5, 0, juce::jmax(0, freeRight - 10), getHeight(), juce::Justification::centredLeft, true);
}

void StatusBar::resized()
{
    // From the right: GUI, then MIDI one pixel further left, then the quality toggle.
    int right = getWidth();
    const auto place = [&](TextButtonWithIcon& button, int width)
    {
        if (! button.isVisible())
            return;
        button.setBounds(right - width, 0, width, getHeight());
        right -= width + 1;
    };
    place(guiButton, juce::jmax(40, guiButton.getWidthToFit(getHeight())));
    place(midiButton, juce::jmax(44, midiButton.getWidthToFit(getHeight())));
    place(qualityButton, qualityButtonWidth);
}

juce::Component* StatusBar::panelOf(juce::Button* button) const
{
    if (button == &qualityButton)
        return panels[0];
    if (button == &midiButton)
        return panels[1];
    return button == &guiButton ? panels[2] : nullptr;
}

void StatusBar::buttonClicked(juce::Button* button)
{
    auto* panel = panelOf(button);
    auto* host = FloatingPanelHost::findFor(*this);
    if (panel == nullptr || host == nullptr)
    {
        button->setToggleState(false, juce::dontSendNotification);
        return;
    }
    if (button->getToggleState())
        // Above the button, right edges in line.
        host->showFloating(panel, {button->getWidth() - panel->getWidth(), -panel->getHeight() - 1}, button, this);
    else
        host->hideFloating(panel, button);
}

void StatusBar::floatingClosed(juce::Component* panel, juce::Component*)
{
    for (auto* button : {&qualityButton, &midiButton, &guiButton})
        if (panelOf(button) == panel)
            button->setToggleState(false, juce::dontSendNotification);
}
