#include "SkinPacker.h"

#include "SkinPackage.h"
#include "io/XmlInput.h"
#include "io/ZipArchive.h"

#include <juce_cryptography/juce_cryptography.h>

#include <algorithm>

namespace SkinPacker
{
juce::MemoryBlock wrap(const juce::String& skinName, const juce::MemoryBlock& skinArchive)
{
    const auto digest = juce::MD5(skinArchive.getData(), skinArchive.getSize()).toHexString();
    // The inner archive is compressed already: stored as it is.
    return ZipArchive::write({{skinName + ".md5", juce::MemoryBlock(digest.toRawUTF8(), digest.getNumBytesAsUTF8()), 9},
                              {skinName + ".skin", skinArchive, 0}});
}

std::optional<juce::MemoryBlock> pack(const juce::File& folder, const juce::String& skinName, juce::String& error)
{
    if (! folder.isDirectory())
    {
        error = "not a folder: " + folder.getFullPathName();
        return std::nullopt;
    }
    std::vector<ZipArchive::Entry> entries;
    for (const auto& file : folder.findChildFiles(juce::File::findFiles, true))
    {
        const auto relative = file.getRelativePathFrom(folder).replaceCharacter('\\', '/');
        if (file.isHidden() || relative.startsWithChar('.') || relative.contains("/."))
            continue;
        juce::FileInputStream stream(file);
        juce::MemoryBlock bytes;
        if (! stream.openedOk() || ! XmlInput::readAtMost(stream, SkinPackage::maximumSkinBytes, bytes))
        {
            error = "cannot read " + file.getFullPathName();
            return std::nullopt;
        }
        entries.push_back({relative, std::move(bytes), 9});
    }
    if (entries.empty())
    {
        error = "no files in " + folder.getFullPathName();
        return std::nullopt;
    }
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return std::strcmp(a.name.toRawUTF8(), b.name.toRawUTF8()) < 0; });
    return wrap(skinName, ZipArchive::write(entries));
}
} // namespace SkinPacker
