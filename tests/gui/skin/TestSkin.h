#pragma once

// Skins the tests make for themselves: a set of files, written into a folder or packed into a
// package with the same code the skin tool runs.

#include "TestSupport.h"
#include "gui/skin/SkinPacker.h"
#include "io/ZipArchive.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <map>

namespace testskin
{
inline juce::MemoryBlock png(int width, int height, juce::Colour colour = juce::Colours::darkslateblue)
{
    juce::Image image(juce::Image::ARGB, width, height, true);
    image.clear(image.getBounds(), colour);
    juce::MemoryBlock bytes;
    juce::MemoryOutputStream out(bytes, false);
    juce::PNGImageFormat().writeImageToStream(image, out);
    out.flush();
    return bytes;
}

inline juce::MemoryBlock text(const juce::String& s)
{
    return juce::MemoryBlock(s.toRawUTF8(), s.getNumBytesAsUTF8());
}

inline juce::MemoryBlock fontFile(const juce::String& name)
{
    juce::MemoryBlock bytes;
    juce::File("/usr/share/fonts/truetype/dejavu").getChildFile(name).loadFileAsData(bytes);
    return bytes;
}

inline const char* mainPanelDocument = R"(<?xml version="1.0" encoding="UTF-8"?>
<PluginEditor>
  <Panel name="MainPanel"><gfx resource="Background.png"/></Panel>
</PluginEditor>
)";

/** The files of one skin, by their names inside the skin. */
struct Skin
{
    std::map<juce::String, juce::MemoryBlock> files;

    /** A skin document with a main panel, a background of the given size and a thumbnail. */
    static Skin basic(int width = 400, int height = 300)
    {
        Skin skin;
        skin.files["skin.xml"] = text(mainPanelDocument);
        skin.files["Background.png"] = png(width, height);
        skin.files["Thumbnail.png"] = png(width / 4, height / 4, juce::Colours::orange);
        return skin;
    }

    /** The skin's inner archive, entries in name order. */
    juce::MemoryBlock archive() const
    {
        std::vector<ZipArchive::Entry> entries;
        for (const auto& [name, bytes] : files)
            entries.push_back({name, bytes, 9});
        return ZipArchive::write(entries);
    }

    /** The package bytes of the skin under that name. */
    juce::MemoryBlock package(const juce::String& name) const { return SkinPacker::wrap(name, archive()); }

    /** Writes the files into directory/name, as a skin author keeps them. */
    juce::File writeFolder(const juce::File& directory, const juce::String& name) const
    {
        const auto folder = directory.getChildFile(name);
        for (const auto& [fileName, bytes] : files)
        {
            const auto file = folder.getChildFile(fileName);
            file.getParentDirectory().createDirectory();
            file.replaceWithData(bytes.getData(), bytes.getSize());
        }
        return folder;
    }

    /** Packs the skin's folder into directory/name.q41skin, as the skin tool does. */
    juce::File pack(const juce::File& directory, const juce::String& name) const
    {
        const testsupport::TemporaryFolder sources("skin-sources");
        writeFolder(sources.get(), name);
        juce::String error;
        const auto bytes = SkinPacker::pack(sources / name, name, error);
        const auto file = directory.getChildFile(name + ".q41skin");
        if (bytes)
            file.replaceWithData(bytes->getData(), bytes->getSize());
        return file;
    }
};
} // namespace testskin
