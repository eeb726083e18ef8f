#pragma once

#include <juce_graphics/juce_graphics.h>

/** Typefaces made from a skin's font files. JUCE 7.0.5 makes a typeface from any bytes and then
    reads the face's first character map without checking that a face was made, or that it has a
    map: bytes that are no font crash it. The bytes are tried with FreeType first. Thread: message
    thread. */
namespace SkinTypeface
{
/** The typeface of the font file's first face, or null when the bytes are no font FreeType can
    read or the font maps no characters. */
juce::Typeface::Ptr create(const juce::MemoryBlock& fontBytes);
} // namespace SkinTypeface
