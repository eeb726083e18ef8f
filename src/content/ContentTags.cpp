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
