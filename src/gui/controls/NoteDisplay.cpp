#include "NoteDisplay.h"

#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"

namespace
{
constexpr int letters[12] = {0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 5, 6};
constexpr bool black[12] = {false, true, false, true, false, false, true, false, true, false, true, false};
} // namespace

NoteDisplay::NoteDisplay(const juce::String& name) : juce::Component(name) {}

int NoteDisplay::letterFrame(int n)
{
    return letters[juce::jlimit(0, 127, n) % 12];
}

int NoteDisplay::accidentalFrame(int n)
{
    return black[juce::jlimit(0, 127, n) % 12] ? 1 : 0;
}

void NoteDisplay::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    if (auto* gfx = SkinXml::child(element, "gfx"))
        for (auto [strip, word] :
             {std::pair{&notes, "notes"}, std::pair{&tones, "tones"}, std::pair{&octaves, "octaves"}})
            if (auto* child = SkinXml::child(*gfx, word))
            {
                strip->image = skin.getImage(child->getStringAttribute("resource"));
                if (strip->image.isValid())
                {
                    strip->width = strip->image.getWidth();
                    strip->height = strip->image.getHeight() / strip->frames;
                }
            }
    setBounds(SkinXml::bounds(element, notes.width + tones.width + octaves.width,
                              juce::jmax(notes.height, tones.height, octaves.height)));
}

void NoteDisplay::updateFromParameter(Parameter& p)
{
    const int newNote = juce::jlimit(0, 127, p.getInt());
    if (newNote != note)
    {
        note = newNote;
        repaint();
    }
}

void NoteDisplay::drawStrip(juce::Graphics& g, const Strip& strip, int frame, int x) const
{
    if (strip.image.isValid() && strip.height > 0)
        g.drawImage(strip.image, x, 0, strip.width, strip.height, 0, frame * strip.height, strip.width, strip.height);
}

void NoteDisplay::paint(juce::Graphics& g)
{
    if (! notes.image.isValid() && ! tones.image.isValid() && ! octaves.image.isValid())
    {
        // Without images: the note's name, so a half-finished skin still reads.
        static const char* const names[12] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
        g.setColour(juce::Colours::black);
        g.setFont(juce::Font(float(getHeight()) * 0.8f));
        g.drawText(names[note % 12] + juce::String(note / 12), getLocalBounds(), juce::Justification::centred);
        return;
    }
    drawStrip(g, notes, letterFrame(note), 0);
    drawStrip(g, tones, accidentalFrame(note), notes.width);
    drawStrip(g, octaves, octaveFrame(note), notes.width + tones.width);
}

void NoteDisplay::mouseDown(const juce::MouseEvent&)
{
    if (! editable || ! isEnabled())
        return;
    dragging = true;
    beginUserGesture();
    startNote = note;
}

void NoteDisplay::mouseDrag(const juce::MouseEvent& event)
{
    if (! dragging)
        return;
    const int steps = -int(std::trunc((event.position.y - event.mouseDownPosition.y) / float(pixelsPerStep)));
    const int newNote = juce::jlimit(0, 127, int(startNote) + steps);
    if (newNote == note)
        return;
    note = newNote;
    if (parameter != nullptr && ! suspended)
    {
        parameter->setInt(note, true);
        notifyValueChanged();
    }
    repaint();
}

void NoteDisplay::mouseUp(const juce::MouseEvent&)
{
    if (! dragging)
        return;
    dragging = false;
    endUserGesture();
}
