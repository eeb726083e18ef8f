#include "SkinImage.h"

namespace
{
uint32_t bigEndian32(const uint8_t* p)
{
    return (uint32_t(p[0]) << 24) | (uint32_t(p[1]) << 16) | (uint32_t(p[2]) << 8) | uint32_t(p[3]);
}
int bigEndian16(const uint8_t* p)
{
    return (int(p[0]) << 8) | int(p[1]);
}
int littleEndian16(const uint8_t* p)
{
    return int(p[0]) | (int(p[1]) << 8);
}

std::optional<juce::Point<int>> pngSize(const uint8_t* p, size_t size)
{
    // Signature, then the IHDR chunk: length, type, width, height.
    static constexpr uint8_t signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    if (size < 24 || std::memcmp(p, signature, sizeof(signature)) != 0 || std::memcmp(p + 12, "IHDR", 4) != 0)
        return std::nullopt;
    const auto width = bigEndian32(p + 16);
    const auto height = bigEndian32(p + 20);
    if (width > uint32_t(std::numeric_limits<int>::max()) || height > uint32_t(std::numeric_limits<int>::max()))
        return std::nullopt;
    return juce::Point<int>(int(width), int(height));
}

std::optional<juce::Point<int>> gifSize(const uint8_t* p, size_t size)
{
    if (size < 10 || (std::memcmp(p, "GIF87a", 6) != 0 && std::memcmp(p, "GIF89a", 6) != 0))
        return std::nullopt;
    return juce::Point<int>(littleEndian16(p + 6), littleEndian16(p + 8));
}

std::optional<juce::Point<int>> jpegSize(const uint8_t* p, size_t size)
{
    if (size < 4 || p[0] != 0xff || p[1] != 0xd8)
        return std::nullopt;
    // Walk the marker segments to the first start of frame, which holds the size.
    size_t at = 2;
    while (at + 4 <= size)
    {
        if (p[at] != 0xff)
            return std::nullopt;
        const uint8_t marker = p[at + 1];
        if (marker == 0xff)
        {
            ++at; // fill byte
            continue;
        }
        if (marker == 0xd8 || marker == 0x01 || (marker >= 0xd0 && marker <= 0xd7))
        {
            at += 2; // markers without a segment
            continue;
        }
        const auto length = size_t(bigEndian16(p + at + 2));
        if (length < 2)
            return std::nullopt;
        const bool startOfFrame =
            marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
        if (startOfFrame)
        {
            if (at + 9 > size)
                return std::nullopt;
            return juce::Point<int>(bigEndian16(p + at + 7), bigEndian16(p + at + 5));
        }
        at += 2 + length;
    }
    return std::nullopt;
}
} // namespace

namespace SkinImage
{
std::optional<juce::Point<int>> declaredSize(const void* data, size_t size)
{
    const auto* p = static_cast<const uint8_t*>(data);
    if (p == nullptr)
        return std::nullopt;
    if (auto png = pngSize(p, size))
        return png;
    if (auto gif = gifSize(p, size))
        return gif;
    return jpegSize(p, size);
}

juce::Image decode(const juce::MemoryBlock& bytes)
{
    if (bytes.getSize() > maximumFileBytes)
        return {};
    const auto size = declaredSize(bytes.getData(), bytes.getSize());
    if (! size || size->x <= 0 || size->y <= 0 || size->x > maximumSide || size->y > maximumSide ||
        int64_t(size->x) * int64_t(size->y) > maximumPixels)
        return {};
    return juce::ImageFileFormat::loadFrom(bytes.getData(), bytes.getSize());
}
} // namespace SkinImage
