#pragma once

// Turns tags into small integer ids once, so that filtering compares integer arrays only. The
// category at position p of the master set has the id 1000 * (p + 1); its tag at position t has
// 1000 * (p + 1) + 1 + t. Ids live in memory only, for as long as the registry lives.

#include "ContentTags.h"

/** The id table of one browser. Keys: a category's name, or category name + ":" + tag name.
    Thread: message thread. */
class TagRegistry
{
public:
    /** Merges the tags into the master set and gives ids to every category and tag that has none.
        An existing entry stays; an id already taken by another text leaves the new text without
        one. (Named so because `register` is a reserved word.) */
    void registerTags(const ContentTags& tags);

    /** The id of a tag, or of the category when the tag is empty; 0 when unknown. */
    int idOf(const juce::String& category, const juce::String& tag) const;
    juce::String textOf(int id) const;
    /** The text before the first ":", or all of it. */
    juce::String categoryOf(int id) const;
    /** The text after the first ":", or empty. */
    juce::String tagOf(int id) const;
    /** Clears `out`, then adds the category and tag of each id. */
    void toTags(const juce::Array<int>& ids, ContentTags& out) const;
    /** Every tag's id, in the order of the set (a tag without an id gives 0). */
    void toIds(const ContentTags& tags, juce::Array<int>& out) const;

    const ContentTags& getMaster() const noexcept { return master; }

private:
    void enter(const juce::String& key, int id);

    juce::HashMap<juce::String, int> ids{101};
    juce::HashMap<int, juce::String> texts{101};
    ContentTags master;
};
