#pragma once

#include "IntParameter.h"

#include <optional>

/** A MIDI note 0..127, written as three characters: pitch letter, "#" or "-", octave "0".."9" or
    "H" for octave 10 ("C-0", "C#5", "G-H"). Thread: any. */
class NoteParameter : public IntParameter
{
public:
    NoteParameter(int index, const juce::String& name, int value = 0);
    NoteParameter(const NoteParameter& source, int index, const juce::String& name);

    Parameter* clone(int newIndex, const juce::String& newName) const override;

    juce::String getText() const override;
    /** A note name sets the note; any other text is read as a normalized number. */
    void setText(const juce::String& text, bool notify) override;

    /** The note of a name, capped at 127; nothing for a text that is not a note name. */
    static std::optional<int> parseNoteName(const juce::String& text);
    /** The name of a note; empty from 128 on. */
    static juce::String noteName(int note);
};
