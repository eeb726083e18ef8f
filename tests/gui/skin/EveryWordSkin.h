#pragma once

// The skin that names every word of the skin grammar (tests/gui/skin/every-word-skin.xml), with
// strips of the sizes it names: the panel builder's tests and the thread stress load it. Users of
// this header define VELMARIN_TEST_SKIN_DIR as the folder of the document.

#include "gui/GuiTestSupport.h"
#include "gui/skin/TestSkin.h"

namespace testskin
{
inline juce::String everyWordDocument()
{
    return juce::File(VELMARIN_TEST_SKIN_DIR).getChildFile("every-word-skin.xml").loadFileAsString();
}

/** The every-word skin's files: its document and strips of the sizes it names. */
inline Skin everyWordSkin()
{
    Skin skin;
    skin.files["skin.xml"] = text(everyWordDocument());
    const auto encode = [](const juce::Image& image)
    {
        juce::MemoryBlock bytes;
        juce::MemoryOutputStream out(bytes, false);
        juce::PNGImageFormat().writeImageToStream(image, out);
        out.flush();
        return bytes;
    };
    skin.files["Background.png"] = png(400, 200);
    skin.files["Knob.png"] = encode(guitest::strip(40, 40, 64));
    skin.files["Switch.png"] = encode(guitest::strip(50, 20, 4));
    skin.files["Button.png"] = encode(guitest::strip(30, 20, 2));
    skin.files["Toggle.png"] = encode(guitest::strip(30, 20, 4));
    skin.files["Multi.png"] = encode(guitest::strip(30, 20, 3));
    skin.files["Rocker.png"] = encode(guitest::strip(20, 40, 3));
    skin.files["Meter.png"] = encode(guitest::strip(10, 30, 16));
    skin.files["Glyphs.png"] = encode(guitest::strip(8, 10, 2 * 96));
    skin.files["Sign.png"] = encode(guitest::strip(10, 16, 2));
    skin.files["Digits.png"] = encode(guitest::strip(10, 16, 19));
    skin.files["Notes.png"] = encode(guitest::strip(10, 16, 9));
    skin.files["Tones.png"] = encode(guitest::strip(6, 16, 3));
    skin.files["Octaves.png"] = encode(guitest::strip(10, 16, 13));
    skin.files["Lengths.png"] = encode(guitest::strip(30, 20, 6));
    return skin;
}
} // namespace testskin
