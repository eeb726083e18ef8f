#pragma once

#include "gui/core/GUIController.h"

#include <juce_audio_utils/juce_audio_utils.h>

#include <array>
#include <atomic>

/** An on-screen keyboard that plays notes into a keyboard state, by the mouse or by the computer's
    key row "awsedftgyhujkolp;". A skin can give any key a picture of its own: a strip whose first
    frame is the key at rest and whose frame frames / 2 is the key held down. A key with a picture
    is drawn and hit where its picture stands; a key without one is drawn and hit as the plain
    keyboard lays it out. Black keys are tested before white keys, so a white key's notches
    (`left`, `right`, kept with the key) go to the black keys over them.

    A note on or off in the state, from the mouse or from elsewhere, marks that key, and the
    keyboard's 50-millisecond timer repaints the marked keys only.

    Numbers a skin sets never divide by zero: a key strip of fewer than 1 frame counts as 1 frame,
    which is then drawn pressed and at rest alike (pressed frame 0).

    Thread: message thread; the state may be told of notes on any thread. */
class ImageMidiKeyboard : public GUIController, public juce::MidiKeyboardComponent
{
public:
    /** The picture of one key. */
    struct Key
    {
        juce::Image image;
        int frames = 0;
        int width = 0;
        int height = 0;
        /** The widths of the notches cut into the key's left and right sides. */
        int left = 0;
        int right = 0;
        /** Where the picture stands inside the keyboard. */
        int x = 0;
        int y = 0;
        int pressedFrame = 0;

        bool hasImage() const { return image.isValid(); }
        juce::Rectangle<int> getArea() const { return {x, y, width, height}; }
    };

    ImageMidiKeyboard(const juce::String& name, juce::MidiKeyboardState& state);
    /** Releases the note the mouse holds. */
    ~ImageMidiKeyboard() override;

    /** The controller's words, then `size`, `pos`, the key range (`firstKey` and `lastKey`, each
        held to 0..127, and only when both are given) and the `Keys` list: one `Key` per note from
        the first key upward, up to the last note, with `left`, `right` and a `gfx` (`resource`,
        `framesNum`) whose `size` and `pos` (given in the skin panel's coordinates) may stand inside
        the `gfx` or beside it. */
    void load(const juce::XmlElement& element, SkinContext& skin) override;

    const Key& getKey(int note) const { return keys[size_t(juce::jlimit(0, 127, note))]; }
    /** The note under a point of the keyboard, or -1. */
    int getNoteAt(juce::Point<float> position) const;
    /** Where a note is drawn and hit: its picture's place, or the plain layout's. Empty outside the
        range. */
    juce::Rectangle<float> getKeyArea(int note) const;

    void drawWhiteNote(int note, juce::Graphics& g, juce::Rectangle<float> area, bool isDown, bool isOver,
                       juce::Colour lineColour, juce::Colour textColour) override;
    void drawBlackNote(int note, juce::Graphics& g, juce::Rectangle<float> area, bool isDown, bool isOver,
                       juce::Colour noteFillColour) override;

    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDrag(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;
    void timerCallback() override;

private:
    void handleNoteOn(juce::MidiKeyboardState*, int channel, int note, float velocity) override;
    void handleNoteOff(juce::MidiKeyboardState*, int channel, int note, float velocity) override;
    /** Releases the held note, if any, and holds this one (-1: none). */
    void holdNote(int note);
    bool hasAnyImage() const;
    /** The plain colours, or with pictures a clear background (the skin's panel shows through). */
    void setKeyColours();
    bool drawKeyImage(int note, juce::Graphics& g, bool isDown) const;

    juce::MidiKeyboardState& keyboardState;
    std::array<Key, 128> keys;
    std::array<std::atomic<bool>, 128> needsRepaint{};
    int heldNote = -1;
};
