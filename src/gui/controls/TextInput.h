#pragma once

#include "gui/core/GUIController.h"
#include "gui/widgets/ModalTextEditor.h"

/** A line of text in a font of the skin, edited in place: a click (or a double click, as the skin
    says) opens a text editor over it; Return or a click elsewhere writes the text to the parameter
    once, Escape leaves everything as it was. While the text is empty the skin's `defaultText`
    shows. Thread: message thread. */
class TextInput : public juce::Component, public GUIController, public ModalTextEditor::ModalListener
{
public:
    enum class Opening
    {
        never,
        onClick,
        onDoubleClick
    };

    explicit TextInput(const juce::String& name);
    ~TextInput() override;

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void updateFromParameter(Parameter& parameter) override;

    void setText(const juce::String& newText);
    const juce::String& getText() const noexcept { return text; }
    /** Listeners the editor gets when it opens, after this control. */
    void addEditorListener(ModalTextEditor::ModalListener* listener) { editorListeners.add(listener); }
    /** The open editor, or null. */
    ModalTextEditor* getEditor() const noexcept { return editor.get(); }
    void openEditor();

    void paint(juce::Graphics& g) override;
    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDoubleClick(const juce::MouseEvent& event) override;

    void modalTextCommitted(ModalTextEditor& editor, const juce::String& text) override;
    void modalTextCancelled(ModalTextEditor& editor) override;

private:
    void closeEditorSoon();

    juce::String text;
    juce::String defaultText;
    Opening opening = Opening::onClick;
    juce::Justification justification = juce::Justification::centredLeft;
    juce::Font font;
    juce::Colour textColour = juce::Colours::black, highlightedTextColour = juce::Colours::black,
                 caretColour = juce::Colours::black, backgroundColour = juce::Colours::transparentBlack,
                 highlightColour = juce::Colours::lightblue, outlineColour = juce::Colours::transparentBlack,
                 focusedOutlineColour = juce::Colours::transparentBlack;
    std::unique_ptr<ModalTextEditor> editor;
    juce::Array<ModalTextEditor::ModalListener*> editorListeners;
};
