#pragma once

#include "ModalComponent.h"

/** A dialog with a frame, a title bar with an optional icon, and a close button that hides it.
    Its size is set from the size of its content, never below 250 by 120. Thread: message thread. */
class WindowComponent : public ModalComponent, public juce::Button::Listener
{
public:
    /** What a look and feel provides to paint windows. */
    class LookAndFeelMethods
    {
    public:
        virtual ~LookAndFeelMethods() = default;
        virtual void drawWindowComponent(juce::Graphics& g, WindowComponent& window) = 0;
        virtual juce::Font getWindowTitleFont() = 0;
    };

    /** Margins of one side each. */
    struct Margins
    {
        int top = 0;
        int left = 0;
        int bottom = 0;
        int right = 0;
    };

    static constexpr int minimumWidth = 250;
    static constexpr int minimumHeight = 120;

    WindowComponent();
    ~WindowComponent() override;

    void setTitle(const juce::String& title);
    const juce::String& getTitle() const noexcept { return titleText; }
    /** Takes ownership of the icon drawn at the left of the title; null for none. */
    void setIcon(juce::Drawable* icon);
    juce::Drawable* getIcon() const noexcept { return iconDrawable.get(); }
    void setTitleBarShown(bool shown);
    void setCloseButtonShown(bool shown);
    bool isTitleBarShown() const noexcept { return titleBarShown; }
    int getTitleBarHeight() const noexcept { return titleBarHeight; }
    const juce::Font& getTitleFont() const noexcept { return titleFont; }

    /** Sizes the window to hold content of that size inside its frame, padding and title bar. */
    virtual void setContentSize(int width, int height);
    /** Where the content lies: the local bounds less the frame, the title bar and the padding. */
    juce::Rectangle<int> getContentBounds() const;
    /** The title bar inside the frame; empty when it is not shown. */
    juce::Rectangle<int> getTitleBarBounds() const;
    /** Where the title text starts, after the icon. */
    int getTitleTextX() const;

    juce::DrawableButton& getCloseButton() noexcept { return closeButton; }

    void paint(juce::Graphics& g) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void buttonClicked(juce::Button* button) override;

protected:
    bool titleBarShown = true;
    bool closeButtonShown = true;
    int titleBarHeight = 26;
    int iconGap = 5;
    juce::String titleText;
    juce::Font titleFont;
    juce::DrawableButton closeButton{"Close", juce::DrawableButton::ImageFitted};
    std::unique_ptr<juce::Drawable> iconDrawable;
    Margins frame{1, 1, 1, 1};
    Margins padding{12, 14, 12, 14};
};
