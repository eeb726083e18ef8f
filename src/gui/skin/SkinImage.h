#pragma once

// Images of a skin come from files a user may have been handed by anyone. The decoders never see
// bytes that are not a PNG, JPEG or GIF whose header declares a size within the bounds below: a
// few bytes can otherwise claim an image of gigabytes.

#include <juce_graphics/juce_graphics.h>

#include <optional>

/** Thread: any (decoding makes a new image and shares nothing). */
namespace SkinImage
{
/** The most bytes an image file of a skin may have. */
constexpr size_t maximumFileBytes = 32 * 1024 * 1024;
/** The widest and tallest image, and the most pixels (128 MB decoded). */
constexpr int maximumSide = 16384;
constexpr int64_t maximumPixels = 32 * 1024 * 1024;

/** Width and height as the file's header declares them (PNG, JPEG or GIF), or nothing for any
    other file or a header cut short. */
std::optional<juce::Point<int>> declaredSize(const void* data, size_t size);

/** The decoded image, or the null image for a file larger than maximumFileBytes, of another
    format, declaring a size beyond the bounds, or that does not decode. */
juce::Image decode(const juce::MemoryBlock& bytes);
} // namespace SkinImage
