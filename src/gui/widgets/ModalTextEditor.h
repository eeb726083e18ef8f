#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A one-line text editor opened in place over a control or a list row: Return or a click elsewhere
    commits, Escape cancels. Its listeners hear which. Thread: message thread. */
class ModalTextEditor : public juce::TextEditor, private juce::TextEditor::Listener
{
public:
    class ModalListener
    {
    public:
        virtual ~ModalListener() = default;
        /** The edit ended with this text (Return, or the focus went elsewhere). */
        virtual void modalTextCommitted(ModalTextEditor& editor, const juce::String& text) = 0;
        /** The edit was cancelled (Escape). */
        virtual void modalTextCancelled(ModalTextEditor& editor) = 0;
    };

    ModalTextEditor();
    ~ModalTextEditor() override;

    void addModalListener(ModalListener* listener) { modalListeners.addIfNotAlreadyThere(listener); }
    void removeModalListener(ModalListener* listener) { modalListeners.removeAllInstancesOf(listener); }

    /** Whether the edit has ended (committed or cancelled); it ends once. */
    bool hasEnded() const noexcept { return ended; }

private:
    void textEditorReturnKeyPressed(juce::TextEditor&) override { commit(); }
    void textEditorEscapeKeyPressed(juce::TextEditor&) override { cancel(); }
    void textEditorFocusLost(juce::TextEditor&) override { commit(); }
    void commit();
    void cancel();

    juce::Array<ModalListener*> modalListeners;
    bool ended = false;
};
