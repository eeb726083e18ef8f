#pragma once

// The tags of a preset: named categories, each with its own list of tag names. The text form is
// the one preset files and package indexes hold: categories separated by ";", each its name, ":"
// and its tags separated by "|" ("Type:Chorus|Flanger;Modulation:Slow"). There is no quoting.

#include <juce_core/juce_core.h>

/** A value type: two parallel lists, category names and each category's tag names.
    Thread: belongs to one thread at a time. */
class ContentTags
{
public:
    /** Parses a text form. Every token appends a new category, without merging, so a category
        named twice gives two entries. A token without ":" becomes a category with an empty name
        holding the token's tags. Empty tokens and empty tag names are skipped; malformed text
        cannot fail. */
    static ContentTags fromText(const juce::String& text);
    /** The text form; empty when there is no category. */
    juce::String toText() const;

    /** Adds the category at the end if missing, and the tag at the end of the category if missing
        (exact comparison). An empty tag adds only the category. Returns the category's position. */
    int add(const juce::String& category, const juce::String& tag);
    /** `add` for every tag of the other set, in order; a category without tags adds nothing. */
    void merge(const ContentTags& other);
    bool contains(const juce::String& category, const juce::String& tag) const;
    /** Adds to `out` every tag of the other set that this set holds. */
    void intersection(const ContentTags& other, ContentTags& out) const;
    /** Removes a tag from the category at a position; a category left without tags goes too. */
    void remove(int categoryPosition, const juce::String& tag);
    /** This category alone with its tags, or an empty set for a position out of range. */
    ContentTags category(int position) const;
    /** With `reorder`, moves the categories named in `order` (compared ignoring case) to their
        positions there and every other category to the end; then sorts each category's tags. */
    void sort(bool ignoreCase, bool reorder, const juce::StringArray& order);

    bool isEmpty() const noexcept { return categories.isEmpty(); }
    void clear()
    {
        categories.clear();
        tags.clear();
    }
    int getNumCategories() const noexcept { return categories.size(); }
    const juce::String& getCategoryName(int position) const { return categories.getReference(position); }
    const juce::StringArray& getTags(int position) const { return tags.getReference(position); }

    bool operator==(const ContentTags& other) const { return categories == other.categories && tags == other.tags; }
    bool operator!=(const ContentTags& other) const { return ! operator==(other); }

private:
    juce::StringArray categories;
    juce::Array<juce::StringArray> tags;
};
