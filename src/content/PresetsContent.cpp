#include "PresetsContent.h"

#include "parameters/ParameterManager.h"

#include <sys/stat.h>

namespace
{
/** The item name of a file or archive entry: its base name without folders or extension. */
juce::String baseName(const juce::String& path)
{
    return path.fromLastOccurrenceOf("/", false, false).upToLastOccurrenceOf(".", false, false);
}

/** Whether two paths name one file (one name, or two spellings on a file system that ignores
    letter case). */
bool isSameFile(const juce::File& a, const juce::File& b)
{
    struct stat first = {}, second = {};
    return ::stat(a.getFullPathName().toRawUTF8(), &first) == 0 &&
           ::stat(b.getFullPathName().toRawUTF8(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}
} // namespace

template <class P>
PresetsContent<P>::PresetsContent(const juce::String& storeName, PresetHost& owner, int presetSlot)
    : ContentSource(storeName), plugin(owner), slot(presetSlot)
{
}

template <class P> bool PresetsContent<P>::openItem(const juce::String& itemName)
{
    // The item of exactly that name, else the one whose name differs only in letter case; the
    // stored form is found under the item's own spelling.
    const auto* item = find(itemName);
    auto preset = readPreset(item != nullptr ? item->name : itemName, false);
    if (preset == nullptr)
        return false;
    completePreset(*preset);
    plugin.loadPreset(preset.get(), slot);
    return true;
}

//==============================================================================
template <class P>
PresetsDirectoryContent<P>::PresetsDirectoryContent(const juce::String& storeName, PresetHost& owner, int presetSlot,
                                                    const juce::File& presetFolder, const juce::String& presetExtension)
    : PresetsContent<P>(storeName, owner, presetSlot), folder(presetFolder), extension(presetExtension)
{
}

template <class P> juce::File PresetsDirectoryContent<P>::getItemFile(const juce::String& itemName) const
{
    if (! ContentSource::isStorableName(itemName))
        return {};
    return folder.getChildFile(itemName).withFileExtension(extension);
}

template <class P> juce::Array<juce::File> PresetsDirectoryContent<P>::listFiles() const
{
    // In the order the file system gives; the browser sorts what it shows.
    juce::Array<juce::File> files;
    // Hidden files (a writer's temporary files among them) are no items.
    for (const auto& entry : juce::RangedDirectoryIterator(folder, false, "*" + extension, juce::File::findFiles))
        if (! entry.getFile().getFileName().startsWithChar('.'))
            files.add(entry.getFile());
    return files;
}

template <class P> void PresetsDirectoryContent<P>::collectTags(ContentTags& out)
{
    out.clear();
    auto& manager = this->plugin.getParameterManager();
    for (const auto& file : listFiles())
    {
        P preset;
        preset.loadFromFile(file, manager, true);
        out.merge(preset.getTags());
    }
}

template <class P>
void PresetsDirectoryContent<P>::loadItems(juce::OwnedArray<ContentItem>& out, TagRegistry* tagRegistry)
{
    auto& manager = this->plugin.getParameterManager();
    for (const auto& file : listFiles())
    {
        // A broken file still gives an item: named after the file, without tags.
        P preset;
        preset.loadFromFile(file, manager, true);
        out.add(this->makeItem(preset.getName(), tagRegistry, preset.getTags()));
    }
}

template <class P> bool PresetsDirectoryContent<P>::deleteStoredItem(const juce::String& itemName)
{
    const auto file = getItemFile(itemName);
    return file != juce::File() && file.existsAsFile() && file.deleteFile();
}

template <class P>
bool PresetsDirectoryContent<P>::renameStoredItem(const juce::String& oldName, const juce::String& newName)
{
    const auto from = getItemFile(oldName);
    const auto to = getItemFile(newName);
    if (from == juce::File() || to == juce::File() || ! from.existsAsFile())
        return false;
    // Only the item's own file may stand at the new name: on a file system that tells letter case
    // apart, a change of case only would otherwise replace another file.
    if (to.existsAsFile() && ! (oldName.equalsIgnoreCase(newName) && isSameFile(from, to)))
        return false;
    return from.moveFileTo(to);
}

template <class P> bool PresetsDirectoryContent<P>::writeItemTags(const juce::String& itemName, const ContentTags& tags)
{
    const auto file = getItemFile(itemName);
    return file != juce::File() && Preset::writeTagsToFile(file, tags);
}

template <class P> bool PresetsDirectoryContent<P>::createItem(const juce::String& itemName, const ContentTags& tags)
{
    const auto file = getItemFile(itemName);
    if (file == juce::File())
        return false;
    P preset;
    preset.setVersion("1.0");
    preset.setTags(tags);
    this->plugin.storeToPreset(preset, this->slot);
    return preset.saveToFile(file, this->plugin.getParameterManager());
}

template <class P> ContentTags PresetsDirectoryContent<P>::readItemTags(const juce::String& itemName)
{
    const auto file = getItemFile(itemName);
    if (! file.existsAsFile())
        return {};
    P preset;
    preset.loadFromFile(file, this->plugin.getParameterManager(), true);
    return preset.getTags();
}

template <class P>
std::unique_ptr<P> PresetsDirectoryContent<P>::readPreset(const juce::String& itemName, bool headerOnly)
{
    const auto file = getItemFile(itemName);
    if (! file.existsAsFile())
        return nullptr;
    auto preset = std::make_unique<P>();
    preset->loadFromFile(file, this->plugin.getParameterManager(), headerOnly);
    return preset;
}

//==============================================================================
template <class P>
PresetsPackageContent<P>::PresetsPackageContent(const juce::String& storeName, PresetHost& owner, int presetSlot,
                                                const juce::File& packageFile, const juce::String& presetExtension,
                                                const juce::String& publicKey)
    : PresetsContent<P>(storeName, owner, presetSlot), extension(presetExtension), package(packageFile, publicKey)
{
    auto& manager = this->plugin.getParameterManager();
    for (int i = 0; i < package.getNumEntries(); ++i)
    {
        const auto entryName = package.getEntryName(i);
        if (entryName == PackageFile::descriptionEntry)
            continue;
        auto stream = package.createStream(i);
        if (stream == nullptr)
            break;
        if (! entryName.endsWith(extension))
            continue;
        const P preset(*stream, manager, true, baseName(entryName));
        presetNames.add(preset.getName());
        presetTags.add(preset.getTags());
        unionOfTags.merge(preset.getTags());
    }
}

template <class P>
void PresetsPackageContent<P>::loadItems(juce::OwnedArray<ContentItem>& out, TagRegistry* tagRegistry)
{
    for (int i = 0; i < presetNames.size(); ++i)
        out.add(this->makeItem(presetNames[i], tagRegistry, presetTags.getReference(i)));
}

template <class P> std::unique_ptr<P> PresetsPackageContent<P>::readPreset(const juce::String& itemName, bool)
{
    const auto entryName = itemName + extension;
    if (entryName == PackageFile::descriptionEntry)
        return nullptr;
    const int index = package.indexOf(entryName);
    auto stream = index >= 0 ? package.createStream(index) : nullptr;
    if (stream == nullptr)
        return nullptr;
    return std::make_unique<P>(*stream, this->plugin.getParameterManager(), false, baseName(entryName));
}

template <class P> void PresetsPackageContent<P>::completePreset(P& preset)
{
    if (preset.getAuthor().isEmpty())
        preset.setAuthor(package.getAuthor());
}

template class PresetsContent<Preset>;
template class PresetsDirectoryContent<Preset>;
template class PresetsPackageContent<Preset>;
