#pragma once

#include "ContentTags.h"

class ContentSource;

/** One entry of a content store: a name (the file's base name), its tags, and the same tags as
    registry ids for the filters. Thread: message thread. */
class ContentItem
{
public:
    ContentItem(ContentSource* owner, const juce::String& itemName, const ContentTags& itemTags, juce::Array<int> ids)
        : source(owner), name(itemName), tags(itemTags), tagIds(std::move(ids))
    {
    }
    virtual ~ContentItem() = default;

    ContentSource* source = nullptr;
    juce::String name;
    ContentTags tags;
    /** No entry is made for a category without tags. */
    juce::Array<int> tagIds;
    /** Set by the filters. */
    bool filteredOut = false;
};
