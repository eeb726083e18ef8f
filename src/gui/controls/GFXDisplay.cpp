#include "GFXDisplay.h"

#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"

GFXDisplay::GFXDisplay(const juce::String& name) : juce::Component(name)
{
    setWantsKeyboardFocus(true);
    startTimer(250);
}

void GFXDisplay::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    caretColour = SkinXml::colour(element.getStringAttribute("caretColour", "0"));
    backgroundColour = SkinXml::colour(element.getStringAttribute("backgroundColour", "0"));
    if (element.getStringAttribute("readonly", "no") == "yes")
        setEnabled(false);
    if (auto* gfx = SkinXml::child(element, "gfx"))
    {
        glyphs = skin.getImage(gfx->getStringAttribute("resource"));
        fontHeight = SkinXml::integer(*gfx, "fontHeight", 0);
        const auto first = gfx->getStringAttribute("firstASCII", " ");
        firstChar = first.isNotEmpty() ? int(first[0]) : 32;
        glyphWidth = glyphs.getWidth();
        // Two banks of glyphs; a height of 0 gives no glyphs rather than a division by zero.
        charCount = fontHeight > 0 ? glyphs.getHeight() / (2 * fontHeight) : 0;
        lastChar = firstChar + charCount - 1;
    }
    setBounds(SkinXml::bounds(element));
}

void GFXDisplay::updateFromParameter(Parameter& p)
{
    setText(p.getText());
}

void GFXDisplay::setText(const juce::String& newText)
{
    if (newText == text)
        return;
    text = newText;
    caretIndex = juce::jlimit(0, text.length(), caretIndex);
    keepCaretVisible();
    repaint();
}

int GFXDisplay::getCellCount() const
{
    return hasGlyphs() ? getWidth() / glyphWidth : 0;
}

int GFXDisplay::glyphIndexOf(juce::juce_wchar character) const
{
    if (! hasGlyphs())
        return -1;
    return juce::jlimit(firstChar, lastChar, int(character)) - firstChar;
}

void GFXDisplay::paint(juce::Graphics& g)
{
    g.fillAll(backgroundColour);
    if (! glyphs.isValid())
    {
        g.setColour(juce::Colours::black);
        g.setFont(juce::Font(float(juce::jmax(8, getHeight() - 4))));
        g.drawText(text, getLocalBounds(), juce::Justification::centredLeft, true);
        return;
    }
    const int cells = getCellCount();
    if (cells <= 0)
        return;
    const int left = (getWidth() - cells * glyphWidth) / 2;
    const int top = (getHeight() - fontHeight) / 2;
    int offset = scrollOffset;
    if (text.length() < cells && centred && ! editing)
        offset = -(cells - text.length()) / 2;
    for (int cell = 0; cell < cells; ++cell)
    {
        const int index = offset + cell;
        const juce::juce_wchar character = index >= 0 && index < text.length() ? text[index] : ' ';
        const bool underCaret = editing && caretOn && hasKeyboardFocus(false) && index == caretIndex;
        const int row = glyphIndexOf(character) + (underCaret ? charCount : 0);
        g.drawImage(glyphs, left + cell * glyphWidth, top, glyphWidth, fontHeight, 0, row * fontHeight, glyphWidth,
                    fontHeight);
    }
}

void GFXDisplay::keepCaretVisible()
{
    const int cells = getCellCount();
    if (cells <= 0)
    {
        scrollOffset = 0;
        return;
    }
    if (caretIndex < scrollOffset)
        scrollOffset = caretIndex;
    else if (caretIndex >= scrollOffset + cells)
        scrollOffset = caretIndex - cells + 1;
    scrollOffset = juce::jmax(0, scrollOffset);
}

bool GFXDisplay::keyPressed(const juce::KeyPress& key)
{
    if (! editing || key.getModifiers().isAnyModifierKeyDown())
        return false;
    const int code = key.getKeyCode();
    if (code == juce::KeyPress::returnKey)
        endEditing(true);
    else if (code == juce::KeyPress::escapeKey)
        endEditing(false);
    else if (code == juce::KeyPress::backspaceKey)
    {
        if (caretIndex > 0)
        {
            text = text.substring(0, caretIndex - 1) + text.substring(caretIndex);
            --caretIndex;
        }
    }
    else if (code == juce::KeyPress::deleteKey)
        text = text.substring(0, caretIndex) + text.substring(caretIndex + 1);
    else if (code == juce::KeyPress::homeKey)
        caretIndex = 0;
    else if (code == juce::KeyPress::endKey)
        caretIndex = text.length();
    else if (code == juce::KeyPress::leftKey)
        caretIndex = juce::jmax(0, caretIndex - 1);
    else if (code == juce::KeyPress::rightKey)
        caretIndex = juce::jmin(text.length(), caretIndex + 1);
    else
    {
        const auto character = key.getTextCharacter();
        if (character < juce::juce_wchar(firstChar) || character > juce::juce_wchar(lastChar))
            return false;
        text = text.substring(0, caretIndex) + juce::String::charToString(character) + text.substring(caretIndex);
        ++caretIndex;
    }
    keepCaretVisible();
    repaint();
    return true;
}

void GFXDisplay::endEditing(bool keep)
{
    if (! keep)
        text = editText;
    // The focus goes; what the edit changed is reported as the focus leaves.
    if (hasKeyboardFocus(false))
        giveAwayKeyboardFocus();
    else
        focusLost(juce::Component::focusChangedDirectly);
}

void GFXDisplay::mouseDown(const juce::MouseEvent&)
{
    if (isEnabled() && ! editing)
        focusGained(juce::Component::focusChangedByMouseClick);
    if (isShowing())
        grabKeyboardFocus();
}

void GFXDisplay::focusGained(juce::Component::FocusChangeType)
{
    if (editing || ! isEnabled())
        return;
    caretIndex = text.length();
    editing = true;
    editText = text;
    startTimer(500);
    keepCaretVisible();
    repaint();
}

void GFXDisplay::focusLost(juce::Component::FocusChangeType)
{
    if (! editing)
        return;
    editing = false;
    caretIndex = 0;
    scrollOffset = 0;
    stopTimer();
    repaint();
    if (text == editText)
        return;
    if (parameter != nullptr && ! suspended)
    {
        parameter->setText(text, true);
        notifyValueChanged();
    }
    const auto listeners = textListeners;
    for (auto* listener : listeners)
        listener->displayTextChanged(*this, text);
}

void GFXDisplay::timerCallback()
{
    caretOn = ! caretOn;
    if (editing)
        repaint();
}

void GFXDisplayFloat::updateFromParameter(Parameter& p)
{
    auto newText = juce::String(p.getFloat(), 0);
    const int cells = getCellCount();
    if (cells > 0 && newText.length() >= cells && newText[cells - 1] == '.')
        newText = " " + newText;
    setText(newText);
}
