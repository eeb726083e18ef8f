#pragma once

// The browser's tag filters without their window: one column per tag category, in display order.
// Each column shows only the tags of the items that the columns to its left let through, so the
// order of the columns decides what each one offers; a column's own choice does not narrow its own
// list. A choice that no remaining item can satisfy is dropped for good. The filter panel of the
// browser draws this model and forwards the user's clicks to it.

#include "ContentItem.h"
#include "TagRegistry.h"

/** One filter column. */
struct CategoryFilter
{
    juce::String name;
    int id = 0;
    int firstTagId = 0;
    int lastTagId = 0;
    /** This category alone, with all its tags. */
    ContentTags allTags;
    /** The tags that can still be chosen. */
    ContentTags shownTags;
    /** The tags chosen that are still possible. */
    ContentTags selectedTags;
    /** 0: an item passes with any chosen tag; 1: only with all of them. */
    int mode = 0;
};

/** The filter columns and their cascade. Thread: message thread. */
class FilterCascade
{
public:
    explicit FilterCascade(TagRegistry& registry);

    /** Rebuilds the columns for a new set of categories: existing columns keep their order, new
        categories follow in the set's order. Choices and Any/All modes are reset. Then `apply`. */
    void rebuild(const ContentTags& merged, const juce::Array<ContentItem*>& items);
    /** Runs the cascade from scratch: clears every item's filtered-out flag, then lets each column
        narrow what the ones before it let through. */
    void apply(const juce::Array<ContentItem*>& items);

    /** Chooses or releases a tag of a column (found by the tag's category), then `apply`. */
    void setTagSelected(const juce::String& category, const juce::String& tag, bool selected,
                        const juce::Array<ContentItem*>& items);
    /** Any (0) or All (1) for a column; `apply` only when it changed. */
    void setMode(const juce::String& category, int mode, const juce::Array<ContentItem*>& items);
    /** Swaps a column with its neighbour (nothing at the ends), then `apply`. */
    void moveLeft(int position, const juce::Array<ContentItem*>& items);
    void moveRight(int position, const juce::Array<ContentItem*>& items);
    /** The on/off switch: off shows every item, the columns stay. `apply` only when it changed. */
    void setEnabled(bool shouldBeEnabled, const juce::Array<ContentItem*>& items);

    bool isEnabled() const noexcept { return enabled; }
    int getNumFilters() const noexcept { return filters.size(); }
    const CategoryFilter& getFilter(int position) const { return *filters.getUnchecked(position); }
    /** -1 when no column has this category. */
    int indexOf(const juce::String& category) const;

private:
    TagRegistry& registry;
    juce::OwnedArray<CategoryFilter> filters;
    bool enabled = true;
};
