#include "NoteParameter.h"

namespace
{
// Pitch classes of the natural notes A..G.
constexpr int naturalPitchClass[] = {9, 11, 0, 2, 4, 5, 7};
constexpr const char* pitchNames[] = {"C-", "C#", "D-", "D#", "E-", "F-", "F#", "G-", "G#", "A-", "A#", "B-"};
} // namespace

NoteParameter::NoteParameter(int newIndex, const juce::String& newName, int initialValue)
    : IntParameter(newIndex, newName, 0, 127, initialValue)
{
}

NoteParameter::NoteParameter(const NoteParameter& source, int newIndex, const juce::String& newName)
    : IntParameter(source, newIndex, newName)
{
}

Parameter* NoteParameter::clone(int newIndex, const juce::String& newName) const
{
    return new NoteParameter(*this, newIndex, newName);
}

juce::String NoteParameter::noteName(int note)
{
    if (static_cast<unsigned int>(note) >= 128u)
        return {};
    const int octave = note / 12;
    const char octaveChar = octave == 10 ? 'H' : static_cast<char>('0' + octave);
    return juce::String(pitchNames[note % 12]) + juce::String::charToString(octaveChar);
}

std::optional<int> NoteParameter::parseNoteName(const juce::String& text)
{
    if (text.length() != 3)
        return std::nullopt;
    const auto letter = text[0];
    const auto sign = text[1];
    const auto octaveChar = text[2];
    if (letter < 'A' || letter > 'G' || (sign != '-' && sign != '#'))
        return std::nullopt;

    int octave = 0;
    if (octaveChar >= '0' && octaveChar <= '9')
        octave = static_cast<int>(octaveChar - '0');
    else if (octaveChar == 'H')
        octave = 10;
    else
        return std::nullopt;

    int pitchClass = naturalPitchClass[letter - 'A'];
    // B and E have no sharp: "E#4" is read as "E-4".
    if (sign == '#' && letter != 'B' && letter != 'E')
        ++pitchClass;
    const int note = pitchClass + 12 * octave;
    return note > 127 ? 127 : note;
}

juce::String NoteParameter::getText() const
{
    return noteName(getInt());
}

void NoteParameter::setText(const juce::String& text, bool notify)
{
    if (auto note = parseNoteName(text))
        setInt(*note, notify);
    else if (const auto v = finiteValueOf(text))
        setNormalized(static_cast<float>(*v), notify);
}
