#include "FilterCascade.h"

#include <algorithm>

FilterCascade::FilterCascade(TagRegistry& tagRegistry) : registry(tagRegistry) {}

int FilterCascade::indexOf(const juce::String& category) const
{
    for (int i = 0; i < filters.size(); ++i)
        if (filters.getUnchecked(i)->name == category)
            return i;
    return -1;
}

void FilterCascade::rebuild(const ContentTags& merged, const juce::Array<ContentItem*>& items)
{
    juce::StringArray order;
    for (auto* filter : filters)
        for (int p = 0; p < merged.getNumCategories(); ++p)
            if (merged.getCategoryName(p) == filter->name)
            {
                order.addIfNotAlreadyThere(filter->name);
                break;
            }
    for (int p = 0; p < merged.getNumCategories(); ++p)
        order.addIfNotAlreadyThere(merged.getCategoryName(p));

    filters.clear();
    for (const auto& name : order)
    {
        auto* filter = filters.add(new CategoryFilter());
        filter->name = name;
        filter->id = registry.idOf(name, {});
        filter->firstTagId = filter->id + 1;
        filter->lastTagId = filter->id + 999;
        for (int p = 0; p < merged.getNumCategories(); ++p)
            if (merged.getCategoryName(p) == name)
                for (const auto& tag : merged.getTags(p))
                    filter->allTags.add(name, tag);
    }
    apply(items);
}

void FilterCascade::apply(const juce::Array<ContentItem*>& items)
{
    for (auto* item : items)
        item->filteredOut = false;

    ContentTags chosen;
    for (auto* filter : filters)
        chosen.merge(filter->selectedTags);
    juce::Array<int> chosenIds;
    registry.toIds(chosen, chosenIds);

    for (auto* filter : filters)
    {
        juce::Array<int> available;
        for (auto* item : items)
            if (! item->filteredOut)
                for (const int id : item->tagIds)
                    if (id >= filter->firstTagId && id <= filter->lastTagId)
                        available.addIfNotAlreadyThere(id);

        registry.toTags(available, filter->shownTags);
        filter->shownTags.sort(false, false, {});

        juce::Array<int> selected;
        for (const int id : chosenIds)
            if (available.contains(id))
                selected.add(id);
        registry.toTags(selected, filter->selectedTags);

        if (! enabled || selected.isEmpty())
            continue;
        for (auto* item : items)
        {
            if (item->filteredOut)
                continue;
            const auto holds = [item](int id) { return item->tagIds.contains(id); };
            const bool passes = filter->mode == 1 ? std::all_of(selected.begin(), selected.end(), holds)
                                                  : std::any_of(selected.begin(), selected.end(), holds);
            item->filteredOut = ! passes;
        }
    }
}

void FilterCascade::setTagSelected(const juce::String& category, const juce::String& tag, bool selected,
                                   const juce::Array<ContentItem*>& items)
{
    const int position = indexOf(category);
    if (position < 0)
        return;
    auto& tags = filters.getUnchecked(position)->selectedTags;
    if (selected)
        tags.add(category, tag);
    else
        for (int p = tags.getNumCategories(); --p >= 0;)
            if (tags.getCategoryName(p) == category)
                tags.remove(p, tag);
    apply(items);
}

void FilterCascade::setMode(const juce::String& category, int mode, const juce::Array<ContentItem*>& items)
{
    const int position = indexOf(category);
    if (position < 0 || filters.getUnchecked(position)->mode == mode)
        return;
    filters.getUnchecked(position)->mode = mode;
    apply(items);
}

void FilterCascade::moveLeft(int position, const juce::Array<ContentItem*>& items)
{
    if (position > 0 && position < filters.size())
        filters.swap(position, position - 1);
    apply(items);
}

void FilterCascade::moveRight(int position, const juce::Array<ContentItem*>& items)
{
    if (position >= 0 && position < filters.size() - 1)
        filters.swap(position, position + 1);
    apply(items);
}

void FilterCascade::setEnabled(bool shouldBeEnabled, const juce::Array<ContentItem*>& items)
{
    if (enabled == shouldBeEnabled)
        return;
    enabled = shouldBeEnabled;
    apply(items);
}
