#pragma once

#include "gui/core/GUIController.h"

/** Text drawn in a bitmap font: a strip of glyphs, one over the other from `firstASCII` on, in two
    banks (the normal glyphs, then the same glyphs under the caret). It shows its parameter's text
    and, unless read-only, is edited with the keyboard once clicked: Return keeps the text, Escape
    restores it. An edit that changed the text is written to the parameter and told to the text
    listeners when the display loses the focus. Characters outside the glyphs draw the nearest
    glyph; a strip too short for its glyphs (or `fontHeight` 0) draws no glyph at all. Thread:
    message thread. */
class GFXDisplay : public GUIController, public juce::Component, private juce::Timer
{
public:
    class TextListener
    {
    public:
        virtual ~TextListener() = default;
        virtual void displayTextChanged(GFXDisplay& display, const juce::String& text) = 0;
    };

    explicit GFXDisplay(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void updateFromParameter(Parameter& parameter) override;

    void setText(const juce::String& newText);
    const juce::String& getText() const noexcept { return text; }
    bool isEditing() const noexcept { return editing; }
    int getCaretIndex() const noexcept { return caretIndex; }
    int getScrollOffset() const noexcept { return scrollOffset; }
    /** The number of character cells the width holds; 0 without glyphs. */
    int getCellCount() const;
    /** The glyph index a character draws (held to the glyphs), or -1 without glyphs. */
    int glyphIndexOf(juce::juce_wchar character) const;

    void addTextListener(TextListener* listener) { textListeners.addIfNotAlreadyThere(listener); }
    void removeTextListener(TextListener* listener) { textListeners.removeAllInstancesOf(listener); }

    void paint(juce::Graphics& g) override;
    bool keyPressed(const juce::KeyPress& key) override;
    void focusGained(juce::Component::FocusChangeType cause) override;
    void focusLost(juce::Component::FocusChangeType cause) override;
    void mouseDown(const juce::MouseEvent& event) override;

protected:
    /** Whether a glyph exists for every character from `firstChar` to `lastChar`. */
    bool hasGlyphs() const { return glyphs.isValid() && glyphWidth > 0 && fontHeight > 0 && charCount > 0; }

private:
    void timerCallback() override;
    void endEditing(bool keep);
    void keepCaretVisible();

    juce::Image glyphs;
    int glyphWidth = 0;
    int fontHeight = 8;
    int firstChar = 32;
    int lastChar = 160;
    int charCount = 0;
    juce::String text, editText;
    bool caretOn = false;
    int caretIndex = 0;
    int scrollOffset = 0;
    bool editing = false;
    bool centred = true;
    juce::Colour caretColour, backgroundColour;
    juce::Array<TextListener*> textListeners;
};

/** A display of a number: the parameter's value as text; a number that fills every cell and ends
    on its decimal point gets a leading space instead, so it never ends on the point. */
class GFXDisplayFloat : public GFXDisplay
{
public:
    explicit GFXDisplayFloat(const juce::String& name) : GFXDisplay(name) {}
    void updateFromParameter(Parameter& parameter) override;
};
