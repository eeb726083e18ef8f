#pragma once

// The one description of Velmarin's panel that both shipped skins are drawn from: its sections,
// where each control stands, what it is called, what it binds and what it fires. Positions are
// given in the coordinates of the big skin; a skin size maps them to its own pixels and draws
// every element again at its own scale.

#include <juce_graphics/juce_graphics.h>

#include <vector>

namespace SkinLayout
{
enum class Kind
{
    knob,       // Knob, 128 frames
    toggle,     // ToggleButton, 2 frames
    selector,   // Switch, vertical, one lit row per item
    button,     // Button firing an event
    logo,       // the About button over the wordmark
    meter,      // Animation, a level meter
    clock,      // Display of the BBD clock read-out
    presetName, // TextInput of the preset name
};

enum class Look
{
    normal,
    linked // a right-channel twin bound to the left parameter, shown while the link is on
};

/** The panel a control lies in: the main panel or one of the two LFO rate panels. */
enum class Holder
{
    main,
    lfoFree,
    lfoSync
};

/** Where a selector sits against its neighbours: its centre; its top level with the top of the
    knobs' dials in the row; or its bottom or top edge fixed to the link row, so that the rate
    selectors keep clear of the link button at any scale. */
enum class Anchor
{
    centre,
    topOfRow,
    belowPrevious, // under the control before it in the layout, with room for its caption
    aboveLinkRow,
    belowLinkRow
};

struct Control
{
    Kind kind;
    juce::String name;
    /** A VelmarinParameter index, or -1. */
    int parameter = -1;
    juce::String event;
    /** Centre in big-skin coordinates. */
    juce::Point<float> centre;
    /** Knobs: the caption under the knob; selectors: above (below for one under a link button); toggles
        and buttons: on the face. */
    juce::String caption;
    Look look = Look::normal;
    Holder holder = Holder::main;
    Anchor anchor = Anchor::centre;
    /** Width in big-skin pixels, for buttons and text fields. */
    float width = 0.0f;
};

struct Section
{
    juce::String title;
    juce::Rectangle<float> area;
};

/** A vertical link wire drawn between a left knob, its link button and its right knob. */
struct LinkWire
{
    float x;
    Holder holder;
};

struct Layout
{
    float width, height;
    float headerHeight;
    /** The row centres: left channel (L/M), link buttons, right channel (R/S). */
    float leftRow, linkRow, rightRow;
    /** The two LFO rate panels share these bounds. */
    juce::Rectangle<float> lfoPanel;
    /** The channel tags "L/M" and "R/S" stand at this x. */
    float channelTagX;
    std::vector<Section> sections;
    std::vector<Control> controls;
    std::vector<LinkWire> wires;
};

/** Velmarin's panel. */
const Layout& velmarin();

/** One skin's size: how it maps the layout and how large it draws each element. */
struct SkinSize
{
    juce::String name;
    int width, height;
    /** Position scales (x, y) and the element scale. */
    float scaleX, scaleY, scale;

    /** A length of the big skin at this size, never below `minimum`. */
    int size(float bigPixels, int minimum = 1) const;
    /** A text height: scaled, never under 9 pixels. */
    float text(float bigPixels) const;
    int x(float bigX) const;
    int y(float bigY) const;
};

const SkinSize& bigSkin();
const SkinSize& smallSkin();
} // namespace SkinLayout
