#include "TagRegistry.h"

void TagRegistry::enter(const juce::String& key, int id)
{
    if (ids.contains(key) || texts.contains(id))
        return;
    ids.set(key, id);
    texts.set(id, key);
}

void TagRegistry::registerTags(const ContentTags& tags)
{
    master.merge(tags);
    for (int p = 0; p < master.getNumCategories(); ++p)
    {
        const auto& category = master.getCategoryName(p);
        const int categoryId = 1000 * (p + 1);
        enter(category, categoryId);
        const auto& list = master.getTags(p);
        for (int t = 0; t < list.size(); ++t)
            enter(category + ":" + list[t], categoryId + 1 + t);
    }
}

int TagRegistry::idOf(const juce::String& category, const juce::String& tag) const
{
    const auto key = tag.isEmpty() ? category : category + ":" + tag;
    return ids.contains(key) ? ids[key] : 0;
}

juce::String TagRegistry::textOf(int id) const
{
    return texts.contains(id) ? texts[id] : juce::String();
}

juce::String TagRegistry::categoryOf(int id) const
{
    return textOf(id).upToFirstOccurrenceOf(":", false, false);
}

juce::String TagRegistry::tagOf(int id) const
{
    return textOf(id).fromFirstOccurrenceOf(":", false, false);
}

void TagRegistry::toTags(const juce::Array<int>& idList, ContentTags& out) const
{
    out.clear();
    for (const int id : idList)
        out.add(categoryOf(id), tagOf(id));
}

void TagRegistry::toIds(const ContentTags& tags, juce::Array<int>& out) const
{
    out.clearQuick();
    for (int p = 0; p < tags.getNumCategories(); ++p)
        for (const auto& tag : tags.getTags(p))
            out.add(idOf(tags.getCategoryName(p), tag));
}
