// The tags' text form, as preset files and package entries hold it.
#include "FuzzSupport.h"

#include "content/ContentTags.h"

int fuzzTags(const uint8_t* data, size_t size)
{
    const auto tags = ContentTags::fromText(fuzz::textOf(data, size));

    // Parsed text, written and parsed again, gives the same tags: no token is empty, no category
    // name holds ":" or ";", no tag holds ";" or "|".
    const auto text = tags.toText();
    FUZZ_CHECK(ContentTags::fromText(text) == tags);
    FUZZ_CHECK(text.isEmpty() == tags.isEmpty());

    // The set operations the browser uses keep what they promise.
    ContentTags merged;
    merged.merge(tags);
    ContentTags common;
    merged.intersection(tags, common);
    for (int c = 0; c < tags.getNumCategories(); ++c)
    {
        for (const auto& tag : tags.getTags(c))
        {
            FUZZ_CHECK(merged.contains(tags.getCategoryName(c), tag));
            FUZZ_CHECK(common.contains(tags.getCategoryName(c), tag));
        }
    }

    auto sorted = tags;
    sorted.sort(true, true, juce::StringArray::fromTokens("Type;Modulation;Spatialize", ";", {}));
    FUZZ_CHECK(sorted.getNumCategories() == tags.getNumCategories());
    return 0;
}
