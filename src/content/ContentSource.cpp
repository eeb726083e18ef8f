#include "ContentSource.h"

#include "io/SafeFile.h"
#include "io/XmlInput.h"

ContentSource::ContentSource(const juce::String& storeName) : name(storeName) {}

juce::File ContentSource::getItemFile(const juce::String&) const
{
    return {};
}

ContentItem* ContentSource::makeItem(const juce::String& itemName, TagRegistry* tagRegistry, const ContentTags& tags)
{
    juce::Array<int> ids;
    if (tagRegistry != nullptr)
        tagRegistry->toIds(tags, ids);
    return new ContentItem(this, itemName, tags, ids);
}

bool ContentSource::isStorableName(const juce::String& itemName)
{
    // A name becomes a file name: nothing that reaches another folder, no hidden file. A NUL
    // cannot reach here: a juce::String ends at its first one.
    return itemName.isNotEmpty() && ! itemName.containsChar('/') && ! itemName.startsWithChar('.');
}

ContentItem* ContentSource::find(const juce::String& itemName) const
{
    for (auto* item : items)
        if (item->name == itemName)
            return item;
    for (auto* item : items)
        if (item->name.equalsIgnoreCase(itemName))
            return item;
    return nullptr;
}

juce::String ContentSource::uniqueName(const juce::String& itemName) const
{
    if (! contains(itemName))
        return itemName;
    for (int n = 1; n <= 1000; ++n)
    {
        const auto candidate = itemName + " (" + juce::String(n) + ")";
        if (! contains(candidate))
            return candidate;
    }
    const auto now = juce::Time::getCurrentTime();
    const int hour = now.getHours() % 12 == 0 ? 12 : now.getHours() % 12;
    const auto time = juce::String(hour) + ":" + juce::String(now.getMinutes()).paddedLeft('0', 2) + ":" +
                      juce::String(now.getSeconds()).paddedLeft('0', 2) + (now.getHours() < 12 ? "am" : "pm");
    return itemName + " - Copy (" + time + ")";
}

void ContentSource::registerTags(const ContentTags& tags)
{
    if (registry != nullptr)
        registry->registerTags(tags);
}

ContentItem* ContentSource::addNew(const juce::String& itemName, const ContentTags& tags)
{
    if (contains(itemName) || ! createItem(itemName, tags))
        return nullptr;
    return appendItem(itemName, tags);
}

ContentItem* ContentSource::importItem(juce::InputStream& stream, const juce::String& itemName)
{
    if (contains(itemName))
        return nullptr;
    const auto file = getItemFile(itemName);
    if (file == juce::File() || file.existsAsFile())
        return nullptr;

    // The stream's bytes as they are, whole or not at all, no more than any document may hold.
    juce::MemoryBlock bytes;
    if (! XmlInput::readAtMost(stream, XmlInput::maximumDocumentBytes, bytes) || ! SafeFile::write(file, bytes))
        return nullptr;

    const auto tags = readItemTags(itemName);
    return appendItem(itemName, tags);
}

ContentItem* ContentSource::appendItem(const juce::String& itemName, const ContentTags& tags)
{
    allTags.merge(tags);
    registerTags(tags);
    auto* item = items.add(makeItem(itemName, registry, tags));
    notifyListeners();
    return item;
}

bool ContentSource::remove(ContentItem* item)
{
    if (item == nullptr || isReadOnly() || ! items.contains(item) || ! deleteStoredItem(item->name))
        return false;
    items.removeObject(item);
    recomputeTags();
    notifyListeners();
    return true;
}

bool ContentSource::renameItem(ContentItem* item, const juce::String& newName)
{
    if (item == nullptr || isReadOnly() || item->name == newName || ! renameStoredItem(item->name, newName))
        return false;
    item->name = newName;
    notifyListeners();
    return true;
}

bool ContentSource::setItemTags(ContentItem* item, const ContentTags& tags)
{
    if (item == nullptr || isReadOnly() || ! writeItemTags(item->name, tags))
        return false;
    item->tags = tags;
    item->tagIds.clearQuick();
    registerTags(tags);
    if (registry != nullptr)
        registry->toIds(tags, item->tagIds);
    recomputeTags();
    notifyListeners();
    return true;
}

void ContentSource::recomputeTags()
{
    allTags.clear();
    for (auto* item : items)
        allTags.merge(item->tags);
    registerTags(allTags);
}

void ContentSource::reload()
{
    collectTags(allTags);
    registerTags(allTags);
    items.clear();
    loadItems(items, registry);
}

void ContentSource::setEnabled(bool shouldBeEnabled)
{
    if (enabled == shouldBeEnabled)
        return;
    enabled = shouldBeEnabled;
    if (enabled)
        reload();
    else
        items.clear();
    notifyListeners();
}

void ContentSource::attach(TagRegistry* tagRegistry)
{
    registry = tagRegistry;
    if (enabled)
        reload();
    notifyListeners();
}

void ContentSource::notifyListeners()
{
    for (int i = listeners.size(); --i >= 0;)
        listeners.getUnchecked(i)->contentChanged(*this);
}
