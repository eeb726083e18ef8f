#pragma once

#include "AlertWindow.h"

namespace Q41
{
/** An alert that asks for one line of text: the message, a text line under it, "OK" (Return) and
    "Cancel" (Escape). The text line has the keyboard focus once the window is shown. Thread:
    message thread. */
class InputTextWindow : public AlertWindow, private juce::TextEditor::Listener
{
public:
    static constexpr int textHeight = 20;

    InputTextWindow(Caller* caller, const juce::String& title, const juce::String& message, const juce::String& text);
    ~InputTextWindow() override;

    juce::String getText() const { return editor.getText(); }
    juce::TextEditor& getEditor() noexcept { return editor; }

    void handleAsyncUpdate() override;

protected:
    int getExtraContentHeight() const override { return textHeight + 4; }
    void layoutExtraContent(juce::Rectangle<int> area) override;

private:
    void textEditorReturnKeyPressed(juce::TextEditor&) override;
    void textEditorEscapeKeyPressed(juce::TextEditor&) override;

    juce::TextEditor editor;
};
} // namespace Q41
