#include "InputTextWindow.h"

namespace Q41
{
InputTextWindow::InputTextWindow(Caller* c, const juce::String& title, const juce::String& message,
                                 const juce::String& text)
    : AlertWindow(c, title, message)
{
    editor.setText(text, false);
    editor.setMultiLine(false);
    editor.setSelectAllWhenFocused(true);
    editor.setIndents(6, 0);
    editor.setJustification(juce::Justification::centredLeft);
    editor.addListener(this);
    addAndMakeVisible(editor);
    addButton(ok, false, true);
    addButton(cancel, true, false);
}

InputTextWindow::~InputTextWindow()
{
    editor.removeListener(this);
}

void InputTextWindow::layoutExtraContent(juce::Rectangle<int> area)
{
    editor.setBounds(area.getX(), area.getY() + 4, area.getWidth(), textHeight);
}

void InputTextWindow::handleAsyncUpdate()
{
    if (editor.isShowing())
        editor.grabKeyboardFocus();
}

void InputTextWindow::textEditorReturnKeyPressed(juce::TextEditor&)
{
    if (returnButton != nullptr)
        returnButton->triggerClick();
}

void InputTextWindow::textEditorEscapeKeyPressed(juce::TextEditor&)
{
    if (escapeButton != nullptr)
        escapeButton->triggerClick();
}
} // namespace Q41
