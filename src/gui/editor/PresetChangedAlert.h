#pragma once

#include "gui/widgets/AlertWindow.h"
#include "gui/widgets/CheckBox_V2.h"

/** The warning before a step to the next or previous preset throws away changed parameters:
    "Yes" (save first), "No" (step anyway), "Cancel". Return presses "Yes", Escape "Cancel". While
    "Don't show this warning again" is ticked, "Yes" is disabled and "No" has the keyboard focus.
    Thread: message thread. */
class PresetChangedAlert : public Q41::AlertWindow
{
public:
    static constexpr const char* titleText = "Preset change warning";
    static constexpr const char* messageText =
        "Parameters have been changed.\nDo you want to save them before changing preset?";
    static constexpr const char* checkBoxText = "Don't show this warning again";

    explicit PresetChangedAlert(Caller* caller);

    bool isDontShowTicked() const { return dontShow.getToggleState(); }
    CheckBox_V2& getCheckBox() noexcept { return dontShow; }
    /** The button of a code ("Yes", "No", "Cancel"). */
    juce::TextButton* getButtonForCode(int code) const;

protected:
    int getExtraContentHeight() const override { return checkBoxHeight + 8; }
    void layoutExtraContent(juce::Rectangle<int> area) override;

private:
    void checkBoxChanged();

    static constexpr int checkBoxHeight = 18;
    CheckBox_V2 dontShow{checkBoxText};
};
