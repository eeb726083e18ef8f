#pragma once

// A plug-in may not open windows of its own in a host, so every dialog of the editor is a child
// that covers the editor: the dialog stands on a cover that fills the editor, takes every mouse
// press that would reach the controls below, and dims them. Nothing blocks: a dialog answers
// through its caller.

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

/** Thread: message thread. */
class ModalComponent : public juce::Component
{
public:
    /** The root that hosts covers (the editor): a component that says how large it is. */
    class Desktop
    {
    public:
        virtual ~Desktop() = default;
        /** The size dialogs are placed in. */
        virtual juce::Rectangle<int> getDesktopArea() const = 0;
    };

    /** The cover: the parent of the dialog while it is open. It fills its parent, follows the
        parent's size and places the dialog again on every change. */
    class CoveringWindow : public juce::Component
    {
    public:
        explicit CoveringWindow(ModalComponent& modal);
        void paint(juce::Graphics& g) override;
        void resized() override;
        void parentSizeChanged() override;

    private:
        ModalComponent& modal;
    };

    enum Placement
    {
        centred = 0,
        atPoint = 1
    };

    ModalComponent() = default;
    ~ModalComponent() override;

    /** Whether the cover dims what lies below (white at a quarter alpha). */
    virtual bool wantsCoveringPaint() { return true; }
    /** Puts the dialog in its place: centred in the root, or at the stored point. */
    virtual void place();

    /** Shows the dialog above everything in the nearest `Desktop` among its parents (or where it
        is, without a cover, when there is none), and gives it the keyboard focus if it takes it. */
    void show();
    /** As `show`, at a point given in `relativeTo`'s coordinates (the root's when null). */
    void showAt(int mode, juce::Point<int> position, juce::Component* relativeTo);
    /** Hides the dialog and its cover; it can be shown again. */
    void hide();

    /** The cover, once the dialog was shown inside a root; null before. */
    CoveringWindow* getCover() const noexcept { return cover.get(); }
    /** The root the dialog is shown in, or null. */
    juce::Component* getRoot() const noexcept { return root; }

private:
    juce::Component* findRoot();
    juce::Rectangle<int> rootArea() const;

    int placement = centred;
    int x = 0;
    int y = 0;
    std::unique_ptr<CoveringWindow> cover;
    juce::Component::SafePointer<juce::Component> root;
};
