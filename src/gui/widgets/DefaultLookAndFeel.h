#pragma once

// The look of the framework's own windows and widgets: a quiet, flat set in dark greys with one
// amber accent, that sits beside any skin. It also answers every typeface request of the process
// with the sans-serif compiled into the program, so text looks the same on every machine, with or
// without fonts installed: JUCE 7.0.5 asks only the process-wide default look and feel for
// typefaces, so while any editor lives one shared DefaultLookAndFeel is that default (`Scope`).

#include "HardLabel.h"
#include "WindowComponent.h"

/** Thread: message thread. */
class DefaultLookAndFeel : public juce::LookAndFeel_V4,
                           public WindowComponent::LookAndFeelMethods,
                           public HardLabel::LookAndFeelMethods
{
public:
    /** The palette. */
    struct Colours
    {
        static constexpr juce::uint32 window = 0xff23262b;
        static constexpr juce::uint32 titleBar = 0xff1b1d21;
        static constexpr juce::uint32 surface = 0xff33373e;
        static constexpr juce::uint32 surfaceHover = 0xff3d424a;
        static constexpr juce::uint32 field = 0xff17191c;
        static constexpr juce::uint32 outline = 0xff4a5059;
        static constexpr juce::uint32 text = 0xffe8e6e1;
        static constexpr juce::uint32 textMuted = 0xffa3a7ad;
        static constexpr juce::uint32 accent = 0xffe3a33b;
        static constexpr juce::uint32 onAccent = 0xff1c1d20;
    };

    /** Colour ids of the editor's status bar: its background and its text. */
    static constexpr int statusBarBackgroundColourId = 0xf004001;
    static constexpr int statusBarTextColourId = 0xf004002;
    static constexpr int statusBarHeight = 16;

    DefaultLookAndFeel();

    /** The compiled-in typefaces. */
    static juce::Typeface::Ptr getRegularTypeface();
    static juce::Typeface::Ptr getBoldTypeface();

    /** Keeps one shared DefaultLookAndFeel installed as the process's default look and feel while
        any Scope lives; the previous default comes back after the last one. */
    class Scope
    {
    public:
        Scope();
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        DefaultLookAndFeel& get();
    };

    juce::Font getStatusBarFont() const;

    // Typefaces: every name and style asked for ("Tahoma" included) is the compiled-in sans.
    juce::Typeface::Ptr getTypefaceForFont(const juce::Font& font) override;

    // WindowComponent and HardLabel.
    void drawWindowComponent(juce::Graphics& g, WindowComponent& window) override;
    juce::Font getWindowTitleFont() override;
    juce::Font getHardLabelFont(float height) override;

    // Buttons.
    void drawButtonBackground(juce::Graphics& g, juce::Button& button, const juce::Colour& background, bool highlighted,
                              bool down) override;
    juce::Font getTextButtonFont(juce::TextButton& button, int buttonHeight) override;
    int getTextButtonWidthToFitText(juce::TextButton& button, int buttonHeight) override;
    void drawTickBox(juce::Graphics& g, juce::Component& component, float x, float y, float w, float h, bool ticked,
                     bool enabled, bool highlighted, bool down) override;

    // Text editors.
    void fillTextEditorBackground(juce::Graphics& g, int width, int height, juce::TextEditor& editor) override;
    void drawTextEditorOutline(juce::Graphics& g, int width, int height, juce::TextEditor& editor) override;

    // Sliders (the look the filmstrip switch falls back to).
    void drawLinearSlider(juce::Graphics& g, int x, int y, int width, int height, float sliderPos, float minSliderPos,
                          float maxSliderPos, juce::Slider::SliderStyle style, juce::Slider& slider) override;
    void drawRotarySlider(juce::Graphics& g, int x, int y, int width, int height, float sliderPos, float startAngle,
                          float endAngle, juce::Slider& slider) override;
};
