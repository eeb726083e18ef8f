#pragma once

#include "gui/core/GUIController.h"

/** A MIDI note shown as three pictures side by side: the letter (9 frames), the accidental (3) and
    the octave (13). A vertical drag changes it, 20 pixels up per semitone, as one gesture. Thread:
    message thread. */
class NoteDisplay : public GUIController, public juce::Component
{
public:
    explicit NoteDisplay(const juce::String& name);

    void load(const juce::XmlElement& element, SkinContext& skin) override;
    void updateFromParameter(Parameter& parameter) override;

    int getNote() const noexcept { return note; }
    /** The frames shown for a note: letter, accidental, octave. */
    static int letterFrame(int note);
    static int accidentalFrame(int note);
    static int octaveFrame(int note) { return note / 12; }

    void paint(juce::Graphics& g) override;
    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDrag(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;

private:
    struct Strip
    {
        juce::Image image;
        int frames = 1;
        int width = 10;
        int height = 16;
    };
    void drawStrip(juce::Graphics& g, const Strip& strip, int frame, int x) const;

    int note = 0;
    Strip notes{{}, 9}, tones{{}, 3}, octaves{{}, 13};
    bool editable = true;
    bool dragging = false;
    double startNote = 0.0;
    static constexpr int pixelsPerStep = 20;
};
