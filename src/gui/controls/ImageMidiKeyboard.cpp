#include "ImageMidiKeyboard.h"

#include "gui/core/BaseGFXController.h"
#include "gui/core/SkinContext.h"
#include "gui/core/SkinXml.h"
#include "gui/widgets/DefaultLookAndFeel.h"

#include <algorithm>

namespace
{
using Palette = DefaultLookAndFeel::Colours;
constexpr float mouseVelocity = 1.0f;

int extent(int value)
{
    return juce::jlimit(-BaseGFXController::maximumExtent, BaseGFXController::maximumExtent, value);
}
} // namespace

ImageMidiKeyboard::ImageMidiKeyboard(const juce::String& name, juce::MidiKeyboardState& state)
    : juce::MidiKeyboardComponent(state, juce::KeyboardComponentBase::horizontalKeyboard), keyboardState(state)
{
    setName(name);
    setKeyColours();
}

void ImageMidiKeyboard::setKeyColours()
{
    const bool pictured = hasAnyImage();
    setColour(whiteNoteColourId, pictured ? juce::Colours::transparentBlack : juce::Colour(Palette::text));
    setColour(keySeparatorLineColourId, pictured ? juce::Colours::transparentBlack : juce::Colour(Palette::outline));
    setColour(blackNoteColourId, juce::Colour(Palette::field));
    setColour(mouseOverKeyOverlayColourId, juce::Colour(Palette::accent).withAlpha(0.3f));
    setColour(keyDownOverlayColourId, juce::Colour(Palette::accent));
    setColour(textLabelColourId, juce::Colour(Palette::window));
    setColour(shadowColourId, juce::Colours::transparentBlack);
}

ImageMidiKeyboard::~ImageMidiKeyboard()
{
    holdNote(-1);
}

void ImageMidiKeyboard::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    juce::Rectangle<int> bounds;
    if (auto* size = SkinXml::child(element, "size"))
        bounds.setSize(juce::jmax(0, extent(SkinXml::integer(*size, "width", 0))),
                       juce::jmax(0, extent(SkinXml::integer(*size, "height", 0))));
    if (auto* pos = SkinXml::child(element, "pos"))
        bounds.setPosition(extent(SkinXml::integer(*pos, "left", 0)), extent(SkinXml::integer(*pos, "top", 0)));

    if (element.hasAttribute("firstKey") && element.hasAttribute("lastKey"))
    {
        const int first = juce::jlimit(0, 127, SkinXml::integer(element, "firstKey", 0));
        const int last = juce::jlimit(0, 127, SkinXml::integer(element, "lastKey", 127));
        setAvailableRange(juce::jmin(first, last), juce::jmax(first, last));
    }

    keys = {};
    if (auto* list = SkinXml::child(element, "Keys"))
    {
        int note = getRangeStart();
        for (auto* record : SkinXml::children(*list, "Key"))
        {
            if (note > 127)
                break;
            auto& key = keys[size_t(note++)];
            key.left = extent(SkinXml::integer(*record, "left", 0));
            key.right = extent(SkinXml::integer(*record, "right", 0));
            auto* gfx = SkinXml::child(*record, "gfx");
            if (gfx == nullptr)
                continue;
            key.image = skin.getImage(gfx->getStringAttribute("resource"));
            key.frames = juce::jmax(1, SkinXml::integer(*gfx, "framesNum", 1));
            key.pressedFrame = key.frames / 2;
            key.width = key.image.getWidth();
            key.height = key.image.getHeight() / key.frames;
            auto* size = SkinXml::child(*gfx, "size");
            if (size == nullptr)
                size = SkinXml::child(*record, "size");
            if (size != nullptr)
            {
                key.width = juce::jmax(0, extent(SkinXml::integer(*size, "width", key.width)));
                key.height = juce::jmax(0, extent(SkinXml::integer(*size, "height", key.height)));
            }
            auto* pos = SkinXml::child(*gfx, "pos");
            if (pos == nullptr)
                pos = SkinXml::child(*record, "pos");
            if (pos != nullptr)
            {
                // Skins place key pictures in the panel's coordinates.
                key.x = extent(extent(SkinXml::integer(*pos, "left", 0)) - bounds.getX());
                key.y = extent(extent(SkinXml::integer(*pos, "top", 0)) - bounds.getY());
            }
        }
    }
    setKeyColours();
    setBounds(bounds);
    repaint();
}

bool ImageMidiKeyboard::hasAnyImage() const
{
    return std::any_of(keys.begin(), keys.end(), [](const Key& key) { return key.hasImage(); });
}

int ImageMidiKeyboard::getNoteAt(juce::Point<float> position) const
{
    if (! getLocalBounds().toFloat().contains(position))
        return -1;
    // Black keys lie over the white keys' notches, so they are tested first.
    for (const bool black : {true, false})
        for (int note = getRangeStart(); note <= getRangeEnd(); ++note)
            if (juce::MidiMessage::isMidiNoteBlack(note) == black && getKeyArea(note).contains(position))
                return note;
    return -1;
}

juce::Rectangle<float> ImageMidiKeyboard::getKeyArea(int note) const
{
    if (note < getRangeStart() || note > getRangeEnd())
        return {};
    const auto& key = keys[size_t(note)];
    return key.hasImage() ? key.getArea().toFloat() : getRectangleForKey(note);
}

bool ImageMidiKeyboard::drawKeyImage(int note, juce::Graphics& g, bool isDown) const
{
    const auto& key = keys[size_t(juce::jlimit(0, 127, note))];
    if (! key.hasImage())
        return false;
    const int frameHeight = key.image.getHeight() / key.frames;
    if (frameHeight > 0)
        g.drawImage(key.image, key.x, key.y, key.width, key.height, 0, (isDown ? key.pressedFrame : 0) * frameHeight,
                    key.image.getWidth(), frameHeight);
    return true;
}

void ImageMidiKeyboard::drawWhiteNote(int note, juce::Graphics& g, juce::Rectangle<float> area, bool isDown,
                                      bool isOver, juce::Colour lineColour, juce::Colour textColour)
{
    if (drawKeyImage(note, g, isDown))
        return;
    if (hasAnyImage())
    {
        // The background is clear here: a plain key among pictured ones fills itself.
        g.setColour(juce::Colour(Palette::text));
        g.fillRect(area);
        lineColour = juce::Colour(Palette::outline);
    }
    juce::MidiKeyboardComponent::drawWhiteNote(note, g, area, isDown, isOver, lineColour, textColour);
}

void ImageMidiKeyboard::drawBlackNote(int note, juce::Graphics& g, juce::Rectangle<float> area, bool isDown,
                                      bool isOver, juce::Colour noteFillColour)
{
    if (! drawKeyImage(note, g, isDown))
        juce::MidiKeyboardComponent::drawBlackNote(note, g, area, isDown, isOver, noteFillColour);
}

void ImageMidiKeyboard::holdNote(int note)
{
    if (note == heldNote)
        return;
    if (heldNote >= 0)
        keyboardState.noteOff(getMidiChannel(), heldNote, mouseVelocity);
    heldNote = note;
    if (heldNote >= 0)
        keyboardState.noteOn(getMidiChannel(), heldNote, mouseVelocity);
}

void ImageMidiKeyboard::mouseDown(const juce::MouseEvent& event)
{
    holdNote(getNoteAt(event.position));
}

void ImageMidiKeyboard::mouseDrag(const juce::MouseEvent& event)
{
    // Off the keys the held note stays held, as on the plain keyboard.
    if (const int note = getNoteAt(event.position); note >= 0)
        holdNote(note);
}

void ImageMidiKeyboard::mouseUp(const juce::MouseEvent&)
{
    holdNote(-1);
}

void ImageMidiKeyboard::handleNoteOn(juce::MidiKeyboardState*, int, int note, float)
{
    if (note >= 0 && note < 128)
        needsRepaint[size_t(note)] = true;
}

void ImageMidiKeyboard::handleNoteOff(juce::MidiKeyboardState*, int, int note, float)
{
    if (note >= 0 && note < 128)
        needsRepaint[size_t(note)] = true;
}

void ImageMidiKeyboard::timerCallback()
{
    for (int note = 0; note < 128; ++note)
        if (needsRepaint[size_t(note)].exchange(false))
            if (const auto area = getKeyArea(note); ! area.isEmpty())
                repaint(area.getSmallestIntegerContainer());
}
