#pragma once

#include "CheckBox_V2.h"
#include "PathComponent.h"

/** A setting that is a file used by default: a check box at the left (its text is the setting's
    title) and the file's path at the right, usable only while the box is ticked. Unticking keeps
    the path's text, so ticking again brings it back. Thread: message thread. */
class DefaultResourceCheckBox : public juce::Component, public PathComponent::Listener, public juce::Button::Listener
{
public:
    static constexpr int gap = 6;

    DefaultResourceCheckBox(const juce::String& title, const juce::String& wildcard);
    ~DefaultResourceCheckBox() override;

    /** Sets the path; the box is ticked exactly when the path is not empty. */
    void setPath(const juce::String& path);
    /** The path the setting stands for: the shown path while ticked, else empty. */
    juce::String getActivePath() const;
    bool isTicked() const { return box.getToggleState(); }

    /** Called when the box or the path changed through the user. */
    std::function<void()> onChange;

    CheckBox_V2& getCheckBox() noexcept { return box; }
    PathComponent& getPathComponent() noexcept { return pathComponent; }

    void resized() override;
    void pathChanged(PathComponent&) override;
    void buttonClicked(juce::Button*) override;

private:
    CheckBox_V2 box;
    PathComponent pathComponent;
};
