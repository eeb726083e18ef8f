#include "TextInput.h"

#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"

TextInput::TextInput(const juce::String& name) : juce::Component(name)
{
    paramReset = false;
}

TextInput::~TextInput()
{
    editor.reset();
}

void TextInput::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    paramReset = SkinXml::boolean(element, "paramReset", false);
    text = element.getStringAttribute("name");

    const auto editable = element.getStringAttribute("editable");
    opening = editable == "no"              ? Opening::never
              : editable == "onDoubleClick" ? Opening::onDoubleClick
                                            : Opening::onClick;
    defaultText = element.getStringAttribute("defaultText");

    const auto justify = element.getStringAttribute("justification");
    justification = justify == "left"     ? juce::Justification::topLeft
                    : justify == "center" ? juce::Justification::centred
                    : justify == "right"  ? juce::Justification::centredRight
                                          : juce::Justification::centredLeft;

    if (auto* fontElement = SkinXml::child(element, "font"))
    {
        auto style = fontElement->getStringAttribute("style", "plain");
        if (fontElement->hasAttribute("styleWIN"))
            style = fontElement->getStringAttribute("styleWIN");
        font = skin.getFont(fontElement->getStringAttribute("name"), style == "bold" ? 1 : 0);
        const float height = float(fontElement->getDoubleAttribute("height", 0.0));
        if (height > 0.0f && height < 1000.0f)
            font.setHeight(height);
        const float kerning = float(fontElement->getDoubleAttribute("extraKerning", 0.0));
        if (std::isfinite(kerning))
            font.setExtraKerningFactor(kerning);
    }

    // A colour word that is absent or "0" keeps the colour as constructed.
    const auto colourWord = [&](const char* word, juce::Colour& colour)
    {
        const auto value = element.getStringAttribute(word, "0");
        if (value != "0")
            colour = SkinXml::colour(value);
    };
    colourWord("textColour", textColour);
    colourWord("highlightedTextColour", highlightedTextColour);
    colourWord("caretColour", caretColour);
    colourWord("backgroundColour", backgroundColour);
    colourWord("highlightColour", highlightColour);
    colourWord("outlineColour", outlineColour);
    colourWord("focusedOutlineColour", focusedOutlineColour);

    setBounds(SkinXml::bounds(element));
}

void TextInput::updateFromParameter(Parameter& p)
{
    setText(p.getText());
}

void TextInput::setText(const juce::String& newText)
{
    if (newText != text)
    {
        text = newText;
        repaint();
    }
}

void TextInput::paint(juce::Graphics& g)
{
    g.fillAll(backgroundColour);
    g.setFont(font);
    const bool showDefault = text.isEmpty();
    g.setColour(showDefault ? textColour.withMultipliedAlpha(0.5f) : textColour);
    g.drawText(showDefault ? defaultText : text, getLocalBounds().reduced(2, 0), justification, true);
    if (outlineColour.getAlpha() != 0)
    {
        g.setColour(outlineColour);
        g.drawRect(getLocalBounds());
    }
}

void TextInput::mouseDown(const juce::MouseEvent&)
{
    if (opening == Opening::onClick && isEnabled())
        openEditor();
}

void TextInput::mouseDoubleClick(const juce::MouseEvent&)
{
    if (opening == Opening::onDoubleClick && isEnabled())
        openEditor();
}

void TextInput::openEditor()
{
    if (editor != nullptr && ! editor->hasEnded())
        return;
    editor = std::make_unique<ModalTextEditor>();
    editor->setFont(font);
    editor->setText(text, false);
    editor->setJustification(justification);
    editor->setColour(juce::TextEditor::textColourId, textColour);
    editor->setColour(juce::TextEditor::highlightedTextColourId, highlightedTextColour);
    editor->setColour(juce::CaretComponent::caretColourId, caretColour);
    editor->setColour(juce::TextEditor::highlightColourId, highlightColour);
    editor->setColour(juce::TextEditor::backgroundColourId, juce::Colours::transparentBlack);
    editor->setColour(juce::TextEditor::outlineColourId, outlineColour);
    editor->setColour(juce::TextEditor::focusedOutlineColourId, focusedOutlineColour);
    editor->addModalListener(this);
    for (auto* listener : editorListeners)
        editor->addModalListener(listener);
    editor->setBounds(getLocalBounds());
    addAndMakeVisible(*editor);
    if (isShowing())
        editor->grabKeyboardFocus();
}

void TextInput::modalTextCommitted(ModalTextEditor&, const juce::String& newText)
{
    setText(newText);
    if (parameter != nullptr && ! suspended)
    {
        parameter->setText(newText, true);
        notifyValueChanged();
    }
    closeEditorSoon();
}

void TextInput::modalTextCancelled(ModalTextEditor&)
{
    closeEditorSoon();
}

void TextInput::closeEditorSoon()
{
    // The editor is still inside its own key or focus handling: it goes once that returned.
    if (editor != nullptr)
        editor->setVisible(false);
    const juce::Component::SafePointer<TextInput> self(this);
    juce::MessageManager::callAsync(
        [self]
        {
            if (self != nullptr && self->editor != nullptr && self->editor->hasEnded())
                self->editor.reset();
        });
}
