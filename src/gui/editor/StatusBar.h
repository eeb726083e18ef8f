#pragma once

// The line under the skin: the editor's messages (a parameter's value as it changes, "Loading
// skin...", errors) and, at its right, the toggles that open the quality, MIDI and GUI panels.

#include "gui/core/FloatingPanelHost.h"
#include "gui/widgets/TextButtonWithIcon.h"

/** A message stays three seconds from its last change unless it is lasting; a message of lower
    priority never replaces one of higher priority while it shows. Thread: message thread. */
class StatusBar : public juce::Component,
                  private juce::Timer,
                  public FloatingComponentOwner,
                  public juce::Button::Listener
{
public:
    static constexpr int messageMilliseconds = 3000;
    static constexpr int qualityButtonWidth = 130;

    StatusBar();
    ~StatusBar() override;

    /** Shows a message for three seconds if its priority is at least the shown one's. */
    void showMessage(const juce::String& text, int priority);
    /** Shows a message until it is cleared, unless one of priority 1 or more shows. */
    void setLastingMessage(const juce::String& text);
    void clearMessage();
    const juce::String& getMessage() const noexcept { return message; }
    int getPriority() const noexcept { return priority; }

    /** The panels the three toggles open (null: the toggle opens nothing); not owned. */
    void setPanels(juce::Component* qualityPanel, juce::Component* midiPanel, juce::Component* guiPanel);
    /** The quality toggle's text ("<real-time> / <offline>"); it shows only with quality settings. */
    void setQualityText(const juce::String& text);
    void setQualityButtonVisible(bool visible);

    TextButtonWithIcon& getQualityButton() noexcept { return qualityButton; }
    TextButtonWithIcon& getMidiButton() noexcept { return midiButton; }
    TextButtonWithIcon& getGuiButton() noexcept { return guiButton; }

    void paint(juce::Graphics& g) override;
    void resized() override;
    void buttonClicked(juce::Button* button) override;
    void floatingClosed(juce::Component* panel, juce::Component* clicked) override;

private:
    void timerCallback() override { clearMessage(); }
    juce::Component* panelOf(juce::Button* button) const;

    juce::String message;
    int priority = 0;
    TextButtonWithIcon qualityButton{"Normal"}, midiButton{"MIDI"}, guiButton{"GUI"};
    juce::Component* panels[3] = {nullptr, nullptr, nullptr};
};
