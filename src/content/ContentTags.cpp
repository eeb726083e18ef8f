#include "ContentTags.h"

ContentTags ContentTags::fromText(const juce::String& text)
{
    ContentTags result;
    for (const auto& token : juce::StringArray::fromTokens(text, ";", {}))
    {
        if (token.isEmpty())
            continue;
        const int colon = token.indexOfChar(':');
        const auto name = colon >= 0 ? token.substring(0, colon) : juce::String();
        const auto list = colon >= 0 ? token.substring(colon + 1) : token;

        juce::StringArray names;
        for (const auto& tag : juce::StringArray::fromTokens(list, "|", {}))
            if (tag.isNotEmpty())
                names.add(tag);

        result.categories.add(name);
        result.tags.add(names);
    }
    return result;
}

juce::String ContentTags::toText() const
{
    juce::StringArray tokens;
    for (int i = 0; i < categories.size(); ++i)
        tokens.add(categories[i] + ":" + tags.getReference(i).joinIntoString("|"));
    return tokens.joinIntoString(";");
}

int ContentTags::add(const juce::String& category, const juce::String& tag)
{
    int position = categories.indexOf(category);
    if (position < 0)
    {
        position = categories.size();
        categories.add(category);
        tags.add({});
    }
    auto& list = tags.getReference(position);
    if (tag.isNotEmpty() && ! list.contains(tag))
        list.add(tag);
    return position;
}

void ContentTags::merge(const ContentTags& other)
{
    for (int i = 0; i < other.categories.size(); ++i)
        for (const auto& tag : other.tags.getReference(i))
            add(other.categories[i], tag);
}

bool ContentTags::contains(const juce::String& category, const juce::String& tag) const
{
    for (int i = 0; i < categories.size(); ++i)
        if (categories[i] == category && tags.getReference(i).contains(tag))
            return true;
    return false;
}

void ContentTags::intersection(const ContentTags& other, ContentTags& out) const
{
    for (int i = 0; i < other.categories.size(); ++i)
        for (const auto& tag : other.tags.getReference(i))
            if (contains(other.categories[i], tag))
                out.add(other.categories[i], tag);
}

void ContentTags::remove(int categoryPosition, const juce::String& tag)
{
    if (! juce::isPositiveAndBelow(categoryPosition, categories.size()))
        return;
    auto& list = tags.getReference(categoryPosition);
    list.removeString(tag);
    if (list.isEmpty())
    {
        categories.remove(categoryPosition);
        tags.remove(categoryPosition);
    }
}

ContentTags ContentTags::category(int position) const
{
    ContentTags result;
    if (juce::isPositiveAndBelow(position, categories.size()))
    {
        result.categories.add(categories[position]);
        result.tags.add(tags.getReference(position));
    }
    return result;
}

void ContentTags::sort(bool ignoreCase, bool reorder, const juce::StringArray& order)
{
    if (reorder)
    {
        const auto initial = categories;
        for (const auto& name : initial)
        {
            const int current = categories.indexOf(name);
            int target = order.indexOf(name, true);
            if (target < 0 || target >= categories.size())
                target = categories.size() - 1;
            if (current != target)
            {
                categories.move(current, target);
                tags.move(current, target);
            }
        }
    }
    for (auto& list : tags)
        list.sort(ignoreCase);
}
