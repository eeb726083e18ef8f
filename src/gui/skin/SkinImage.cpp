#include "SkinImage.h"

#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>
#include <png.h>

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
/** Makes JUCE's ARGB pixels (premultiplied) of straight BGRA bytes in place. */
void premultiply(juce::Image& image)
{
    const juce::Image::BitmapData pixels(image, juce::Image::BitmapData::readWrite);
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x)
            reinterpret_cast<juce::PixelARGB*>(pixels.getPixelPointer(x, y))->premultiply();
}

// PNG through libpng's simplified interface, which catches its own errors. JUCE 7.0.5's PNG reader
// on a system libpng returns from libpng's error callback instead of jumping out, so a damaged
// file makes libpng jump into a stack frame that is gone.
juce::Image decodePng(const juce::MemoryBlock& bytes)
{
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&png, bytes.getData(), bytes.getSize()) == 0)
        return {};
    png.format = PNG_FORMAT_BGRA;
    juce::Image image(juce::Image::ARGB, int(png.width), int(png.height), false, juce::SoftwareImageType());
    bool ok = false;
    {
        const juce::Image::BitmapData pixels(image, juce::Image::BitmapData::writeOnly);
        ok = png_image_finish_read(&png, nullptr, pixels.data, pixels.lineStride, nullptr) != 0;
    }
    png_image_free(&png);
    if (! ok)
        return {};
    premultiply(image);
    return image;
}

// JPEG through libjpeg with an error handler that jumps out, as libjpeg requires. JUCE 7.0.5's
// reader on a system libjpeg returns from the fatal error handler, and libjpeg goes on with a
// broken state. The functions that set a jump point hold no C++ objects.
struct JpegError
{
    jpeg_error_mgr manager;
    std::jmp_buf jump;
};

void jpegErrorExit(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<JpegError*>(info->err)->jump, 1);
}
void jpegQuiet(j_common_ptr) {}

struct JpegReader
{
    jpeg_decompress_struct info;
    JpegError error;
};

bool startJpeg(JpegReader& reader, const void* data, size_t size)
{
    if (setjmp(reader.error.jump) != 0)
        return false;
    jpeg_mem_src(&reader.info, static_cast<const unsigned char*>(data), static_cast<unsigned long>(size));
    if (jpeg_read_header(&reader.info, TRUE) != JPEG_HEADER_OK)
        return false;
    reader.info.out_color_space = JCS_EXT_BGRA;
    jpeg_start_decompress(&reader.info);
    return true;
}

bool readJpegRows(JpegReader& reader, uint8_t* pixels, int lineStride)
{
    if (setjmp(reader.error.jump) != 0)
        return false;
    while (reader.info.output_scanline < reader.info.output_height)
    {
        JSAMPROW row = pixels + size_t(reader.info.output_scanline) * size_t(lineStride);
        if (jpeg_read_scanlines(&reader.info, &row, 1) != 1)
            return false;
    }
    jpeg_finish_decompress(&reader.info);
    return true;
}

juce::Image decodeJpeg(const juce::MemoryBlock& bytes, juce::Point<int> declared)
{
    JpegReader reader{};
    reader.info.err = jpeg_std_error(&reader.error.manager);
    reader.error.manager.error_exit = jpegErrorExit;
    reader.error.manager.output_message = jpegQuiet;
    jpeg_create_decompress(&reader.info);

    juce::Image image;
    if (startJpeg(reader, bytes.getData(), bytes.getSize()) && int(reader.info.output_width) == declared.x &&
        int(reader.info.output_height) == declared.y && reader.info.output_components == 4)
    {
        image = juce::Image(juce::Image::ARGB, declared.x, declared.y, false, juce::SoftwareImageType());
        bool ok = false;
        {
            const juce::Image::BitmapData pixels(image, juce::Image::BitmapData::writeOnly);
            ok = readJpegRows(reader, pixels.data, pixels.lineStride);
        }
        if (! ok)
            image = {};
    }
    jpeg_destroy_decompress(&reader.info);
    return image;
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
    const auto* p = static_cast<const uint8_t*>(bytes.getData());
    if (pngSize(p, bytes.getSize()))
        return decodePng(bytes);
    if (gifSize(p, bytes.getSize()))
    {
        juce::MemoryInputStream stream(bytes, false);
        return juce::GIFImageFormat().decodeImage(stream);
    }
    return decodeJpeg(bytes, *size);
}
} // namespace SkinImage
