#include "SkinList.h"

#include <algorithm>

SkinList::SkinList(BasePlugin* plugin, int sourceKind, const juce::File& directory)
{
    if (! directory.isDirectory())
        return;
    const bool folders = sourceKind == SkinPackage::folder;
    const auto found = folders ? directory.findChildFiles(juce::File::findDirectories, false)
                               : directory.findChildFiles(juce::File::findFiles, false,
                                                          juce::String("*") + SkinPackage::fileExtension);
    for (const auto& file : found)
    {
        SkinInfo row;
        row.name = folders ? file.getFileName() : file.getFileNameWithoutExtension();
        SkinPackage package(plugin, sourceKind, row.name, directory);
        row.thumbnail = package.getImage("Thumbnail.png");
        const auto background = package.getImage("Background.png");
        if (background.isValid())
            row.bounds = background.getBounds();
        rows.push_back(std::move(row));
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const SkinInfo& a, const SkinInfo& b) { return a.bounds.getWidth() < b.bounds.getWidth(); });
}

int SkinList::countPackages(const juce::File& directory)
{
    if (! directory.isDirectory())
        return 0;
    return directory.getNumberOfChildFiles(juce::File::findFiles, juce::String("*") + SkinPackage::fileExtension);
}

int SkinList::indexOf(const juce::String& skinName) const
{
    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i].name.equalsIgnoreCase(skinName))
            return int(i);
    return -1;
}

juce::String SkinList::defaultSkin(std::optional<juce::Rectangle<int>> firstDisplay) const
{
    if (rows.empty())
        return {};
    if (firstDisplay)
        for (size_t i = rows.size() - 1; i >= 1; --i)
            if (firstDisplay->contains(rows[i].bounds))
                return rows[i].name;
    return rows.front().name;
}

std::optional<juce::Rectangle<int>> SkinList::firstDisplayBounds()
{
    const auto& displays = juce::Desktop::getInstance().getDisplays().displays;
    if (displays.isEmpty())
        return std::nullopt;
    return displays.getReference(0).totalArea;
}
