#include "ParameterInfo.h"

#include "gui/widgets/DefaultLookAndFeel.h"
#include "gui/widgets/WidgetIcons.h"

namespace
{
constexpr int margin = 6;
constexpr int rowHeight = 20;
constexpr int fontRowHeight = 16;
constexpr int innerWidth = ParameterInfo::panelWidth - 2 * margin;
constexpr int buttonWidth = 55;
// Inside the section: the title row, the assignment bar and the button row.
constexpr int titleY = 6;
constexpr int barY = 33;
constexpr int buttonsY = 58;
constexpr int titleLineY = 29;
} // namespace

// --- the assignment bar ---------------------------------------------------------------------------

ParameterInfo::MidiCCComponent::MidiCCComponent()
{
    setInterceptsMouseClicks(false, false);
}

void ParameterInfo::MidiCCComponent::setController(int newController)
{
    if (newController == controller)
        return;
    controller = newController;
    repaint();
}

juce::String ParameterInfo::MidiCCComponent::getNumberText() const
{
    return controller < 0 ? "# --" : "#" + juce::String(controller);
}

juce::String ParameterInfo::MidiCCComponent::getAssignmentText() const
{
    return controller < 0 ? "unassigned" : "#" + juce::String(controller);
}

void ParameterInfo::MidiCCComponent::setHighlighted(bool shouldHighlight)
{
    if (shouldHighlight == highlighted)
        return;
    highlighted = shouldHighlight;
    repaint();
}

void ParameterInfo::MidiCCComponent::paint(juce::Graphics& g)
{
    const auto bounds = getLocalBounds().toFloat().reduced(0.5f);
    const float radius = bounds.getHeight() * 0.5f;
    g.setColour(juce::Colour(highlighted ? DefaultLookAndFeel::Colours::accent : Colours::bar));
    g.fillRoundedRectangle(bounds, radius);
    g.setColour(juce::Colour(Colours::darkLine));
    g.drawRoundedRectangle(bounds, radius, 1.0f);

    const auto text = getLocalBounds().reduced(8, 0);
    g.setColour(juce::Colour(Colours::text));
    g.setFont(juce::Font(float(getHeight()) * 0.6f));
    g.drawText(getNumberText(), text, juce::Justification::centredLeft, true);
    g.drawText(getAssignmentText(), text, juce::Justification::centredRight, true);
}

// --- the panel ------------------------------------------------------------------------------------

ParameterInfo::ParameterInfo(Parameter& p, MidiControlMap& controlMap, bool showValue, Listener& l)
    : parameter(p), map(controlMap), listener(l), valueShown(showValue),
      icon(WidgetIcons::create(WidgetIcon::knob, juce::Colour(Colours::text)))
{
    icon->setInterceptsMouseClicks(false, false);
    addAndMakeVisible(*icon);

    for (auto* label : {&nameLabel, &valueLabel, &sectionTitle})
    {
        label->fitToHeight(fontRowHeight);
        label->setJustificationType(juce::Justification::centredLeft);
        label->setColour(juce::Label::textColourId, juce::Colour(Colours::text));
        addAndMakeVisible(*label);
    }
    nameLabel.setText(parameter.getName(), juce::dontSendNotification);
    valueLabel.setVisible(valueShown);

    addAndMakeVisible(expandButton);
    addChildComponent(midiCC);
    for (auto* button : {&expandButton, &learnButton, &clearButton, &okButton, &cancelButton})
    {
        button->addListener(this);
        if (button != &expandButton)
            addChildComponent(*button);
    }

    setExpanded(false, juce::dontSendNotification);
    refresh();
    addParameter(&parameter);
}

ParameterInfo::~ParameterInfo()
{
    stopTimer();
    for (auto* button : {&expandButton, &learnButton, &clearButton, &okButton, &cancelButton})
        button->removeListener(this);
}

int ParameterInfo::heightFor(bool showValue, bool open)
{
    return collapsedHeight + (showValue ? valueRowHeight : 0) + (open ? sectionHeight + sectionOpenMargin : 0);
}

void ParameterInfo::setExpanded(bool shouldExpand, juce::NotificationType notification)
{
    expanded = shouldExpand;
    expandButton.setIcon(
        WidgetIcons::create(expanded ? WidgetIcon::arrowDown : WidgetIcon::arrowRight, juce::Colours::black));
    midiCC.setVisible(expanded);
    showButtons();
    setSize(panelWidth, heightFor(valueShown, expanded));
    if (notification != juce::dontSendNotification)
        listener.sizeChanged(*this);
}

void ParameterInfo::parameterUpdated(Parameter& changed)
{
    // "@" stands for a value that the name already says; the name is on the panel.
    const auto text = changed.getDisplayText();
    valueLabel.setText(text == "@" ? juce::String() : text, juce::dontSendNotification);
}

void ParameterInfo::refresh()
{
    midiCC.setController(map.getController(&parameter));
}

void ParameterInfo::timerCallback()
{
    refresh();
}

void ParameterInfo::showButtons()
{
    learnButton.setVisible(expanded && ! changing);
    clearButton.setVisible(expanded && ! changing);
    okButton.setVisible(expanded && changing);
    cancelButton.setVisible(expanded && changing);
}

void ParameterInfo::buttonClicked(juce::Button* button)
{
    if (button == &expandButton)
        setExpanded(! expanded, juce::sendNotification);
    else if (button == &learnButton)
        learn();
    else if (button == &clearButton)
        clear();
    else if (button == &okButton)
        confirm();
    else if (button == &cancelButton)
        cancel();
}

void ParameterInfo::learn()
{
    map.startLearning(&parameter);
    learning = true;
    changing = true;
    midiCC.setHighlighted(true);
    showButtons();
    startTimer(refreshMilliseconds);
}

void ParameterInfo::clear()
{
    clearedController = map.getController(&parameter);
    map.assign(&parameter, -1);
    changing = true;
    refresh();
    showButtons();
}

void ParameterInfo::stopLearning()
{
    learning = false;
    midiCC.setHighlighted(false);
    stopTimer();
}

void ParameterInfo::confirm()
{
    // Only the learn this panel started is ended; a clear is already in the map.
    if (learning)
        map.finishLearning();
    stopLearning();
    changing = false;
    clearedController = -1;
    refresh();
    showButtons();
    listener.closeRequested(*this); // last: the listener closes the panel
}

void ParameterInfo::cancel()
{
    if (learning)
    {
        map.cancelLearning();
        stopLearning();
    }
    else
    {
        map.assign(&parameter, clearedController);
    }
    changing = false;
    clearedController = -1;
    refresh();
    showButtons();
}

void ParameterInfo::resized()
{
    icon->setTransformToFit(juce::Rectangle<float>(float(margin), float(margin), float(rowHeight), float(rowHeight)),
                            juce::RectanglePlacement::centred);
    nameLabel.setBounds(28, margin, 100, rowHeight);
    valueLabel.setBounds(margin, sectionTop, innerWidth, rowHeight);

    const int top = getSectionTop();
    sectionTitle.setBounds(margin, top + titleY, innerWidth - rowHeight, rowHeight);
    expandButton.setBounds(panelWidth - margin - rowHeight, top + titleY, rowHeight, rowHeight);
    midiCC.setBounds(margin, top + barY, innerWidth, rowHeight);
    learnButton.setBounds(margin, top + buttonsY, buttonWidth, rowHeight);
    clearButton.setBounds(panelWidth - margin - buttonWidth, top + buttonsY, buttonWidth, rowHeight);
    okButton.setBounds(learnButton.getBounds());
    cancelButton.setBounds(clearButton.getBounds());
}

void ParameterInfo::paint(juce::Graphics& g)
{
    g.fillAll(juce::Colour(Colours::background));
    g.setColour(juce::Colour(Colours::lightLine));
    const int top = getSectionTop();
    g.drawHorizontalLine(top, float(margin), float(panelWidth - margin));
    if (expanded)
        g.drawHorizontalLine(top + titleLineY, float(margin), float(panelWidth - margin));
    g.setColour(juce::Colour(Colours::darkLine));
    g.drawRect(getLocalBounds());
}
