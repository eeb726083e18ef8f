#include "PresetChangedAlert.h"

PresetChangedAlert::PresetChangedAlert(Caller* caller) : Q41::AlertWindow(caller, titleText, messageText)
{
    addButton(yes, false, true);
    addButton(no, false, false);
    addButton(cancel, true, false);
    // The check box reads as secondary to the question: its texts at 90 % opacity.
    for (const int id : {int(juce::ToggleButton::textColourId), int(juce::TextButton::buttonColourId)})
        dontShow.setColour(id, dontShow.findColour(id).withMultipliedAlpha(0.9f));
    dontShow.setClickingTogglesState(true);
    dontShow.onStateChange = [this] { checkBoxChanged(); };
    addAndMakeVisible(dontShow);
    layoutContents();
}

juce::TextButton* PresetChangedAlert::getButtonForCode(int code) const
{
    for (int i = 0; i < getNumButtons(); ++i)
        if (getButtonCode(i) == code)
            return getButton(i);
    return nullptr;
}

void PresetChangedAlert::layoutExtraContent(juce::Rectangle<int> area)
{
    dontShow.setBounds(area.getX(), area.getY() + 4, juce::jmin(area.getWidth(), dontShow.getWidthToFit()),
                       checkBoxHeight);
}

void PresetChangedAlert::checkBoxChanged()
{
    // Saving first makes no sense for someone who asks never to be asked again.
    const bool ticked = dontShow.getToggleState();
    if (auto* yesButton = getButtonForCode(yes))
        yesButton->setEnabled(! ticked);
    if (ticked)
        if (auto* noButton = getButtonForCode(no); noButton != nullptr && noButton->isShowing())
            noButton->grabKeyboardFocus();
}
