#pragma once

// Everything the shipped skins and the about window show, drawn by code with JUCE's software
// renderer: the faceplate, the filmstrips of every control, the glyphs of the clock read-out and
// the two logos. One palette and one light, from the top left, for all of it. The same call always
// draws the same pixels.

#include <juce_graphics/juce_graphics.h>

namespace SkinArt
{
namespace Colours
{
constexpr juce::uint32 plate = 0xff30343a;
constexpr juce::uint32 plateLight = 0xff383c43;
constexpr juce::uint32 plateDark = 0xff26292e;
constexpr juce::uint32 header = 0xff1d1f23;
constexpr juce::uint32 well = 0xff141517;
constexpr juce::uint32 text = 0xffe8e6e1;
constexpr juce::uint32 caption = 0xffc2c5ca;
constexpr juce::uint32 muted = 0xffa3a7ad;
constexpr juce::uint32 accent = 0xffe3a33b;
constexpr juce::uint32 accentLight = 0xfff4c77e;
constexpr juce::uint32 ledOff = 0xff3a3328;
} // namespace Colours

/** The two faces of DejaVu Sans the skins and logos use. */
class Fonts
{
public:
    /** Reads DejaVuSans.ttf and DejaVuSans-Bold.ttf from the folder; invalid() tells a failure. */
    explicit Fonts(const juce::File& folder);
    bool valid() const { return regular != nullptr && bold != nullptr; }
    juce::Font plain(float height) const;
    juce::Font strong(float height, float kerning = 0.0f) const;

private:
    juce::MemoryBlock regularBytes, boldBytes;
    juce::Typeface::Ptr regular, bold;
};

/** Frame size of a knob strip of cap diameter `diameter`: room for the linked ring. */
int knobFrameSize(int diameter);
/** A knob: 128 frames, pointer from 7:30 to 4:30. The linked look has an amber pointer and ring. */
juce::Image knobStrip(int diameter, int frames, bool linked);
/** The width an on/off button needs for its word at that height. */
int toggleWidthFor(const juce::String& word, const Fonts& fonts, float textHeight, int height);
/** An on/off button with a lamp and its word: frame 0 off, frame 1 lit. */
juce::Image toggleStrip(int width, int height, const juce::String& word, const Fonts& fonts, float textHeight);
/** Width a selector needs for its items. */
int selectorWidth(const juce::StringArray& items, const Fonts& fonts, float textHeight, int pitch);
/** A selector: one row per item, the last item on top; frame i lights row i. The linked look
    outlines it in amber. */
juce::Image selectorStrip(const juce::StringArray& items, int width, int pitch, const Fonts& fonts, float textHeight,
                          bool linked);
/** A push button: frame 0 up, frame 1 down. "<" and ">" draw arrows. */
juce::Image buttonStrip(int width, int height, const juce::String& word, const Fonts& fonts, float textHeight);
/** The wordmark as a button: frame 0 up, frame 1 down. */
juce::Image logoButtonStrip(int width, int height, const Fonts& fonts, float scale);
/** A level meter of `frames` frames: frame i lights i / (frames - 1) of its height. */
juce::Image meterStrip(int width, int height, int frames, float segmentPitch);
/** The glyphs from `first` to `last`, one per cell, in two banks (plain, then under the caret). */
juce::Image glyphStrip(int cellWidth, int cellHeight, juce::juce_wchar first, juce::juce_wchar last,
                       const Fonts& fonts);

/** The emblem: two swept waves, the left and the right channel, in a ring. */
void drawEmblem(juce::Graphics& g, juce::Rectangle<float> area, juce::Colour ring, juce::Colour trace,
                float strokeWidth);

/** The about window's logos. */
juce::Image q41Logo(const Fonts& fonts);
juce::Image pluginLogo(const Fonts& fonts);

/** Faceplate pieces, all lit from the top left. */
void drawPlate(juce::Graphics& g, juce::Rectangle<int> area, int headerHeight, float scale);
void drawSection(juce::Graphics& g, juce::Rectangle<float> area, const juce::String& title, const Fonts& fonts,
                 float titleHeight, float scale);
void drawScrew(juce::Graphics& g, juce::Point<float> centre, float radius, float angle);
/** A recess: dark well, shadow on its upper left inner edge, light on its lower right. */
void drawWell(juce::Graphics& g, juce::Rectangle<float> area, float corner, juce::Colour fill);
/** A raised part's shadow, cast to the lower right. */
void drawShadow(juce::Graphics& g, const juce::Path& shape, float scale);
/** The dial of a knob: ticks on the arc the pointer travels. */
void drawKnobScale(juce::Graphics& g, juce::Point<float> centre, float innerRadius, float scale);
void drawCaption(juce::Graphics& g, const juce::String& text, juce::Rectangle<float> area, const Fonts& fonts,
                 float height, juce::Colour colour = juce::Colour(Colours::caption));
/** A small amber-edged tag such as "L/M". */
void drawTag(juce::Graphics& g, juce::Rectangle<float> area, const juce::String& text, const Fonts& fonts,
             float height);
} // namespace SkinArt
