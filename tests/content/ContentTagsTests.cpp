// Tags: the text form, the set operations, the category order, and the registry's id scheme.
#include "content/ContentTags.h"
#include "content/TagRegistry.h"

#include <gtest/gtest.h>

TEST(ContentTagsText, EveryTokenAppendsACategoryWithoutMerging)
{
    const auto tags = ContentTags::fromText("Type:Chorus|Flanger;Modulation:Slow");
    ASSERT_EQ(tags.getNumCategories(), 2);
    EXPECT_EQ(tags.getCategoryName(0), "Type");
    EXPECT_EQ(tags.getTags(0).joinIntoString(","), "Chorus,Flanger");
    EXPECT_EQ(tags.toText(), "Type:Chorus|Flanger;Modulation:Slow");

    const auto twice = ContentTags::fromText("Type:A;Type:B;Loose|Ends");
    ASSERT_EQ(twice.getNumCategories(), 3) << "a category named twice stays twice";
    EXPECT_EQ(twice.getCategoryName(1), "Type");
    EXPECT_EQ(twice.getCategoryName(2), "") << "a token without a colon has an unnamed category";
    EXPECT_EQ(twice.getTags(2).joinIntoString(","), "Loose,Ends");

    EXPECT_TRUE(ContentTags::fromText("").isEmpty());
    EXPECT_TRUE(ContentTags::fromText(";;").isEmpty());

    ContentTags built;
    EXPECT_EQ(built.add("Type", "Flanger"), 0);
    EXPECT_EQ(built.add("Mod", "Slow"), 1);
    EXPECT_EQ(built.add("Type", "Flanger"), 0);
    EXPECT_EQ(built.toText(), "Type:Flanger;Mod:Slow");
}

TEST(ContentTagsSet, MergeIntersectRemoveAndSortByTheCategoryOrder)
{
    auto tags = ContentTags::fromText("Mood:dark|Airy;Type:Flanger;Type:Chorus");
    ContentTags merged;
    merged.merge(tags);
    merged.merge(ContentTags::fromText("Empty:;Type:Flanger"));
    EXPECT_EQ(merged.toText(), "Mood:dark|Airy;Type:Flanger|Chorus") << "merge joins a category listed twice";
    EXPECT_TRUE(merged.contains("Type", "Chorus"));
    EXPECT_FALSE(merged.contains("type", "Chorus"));

    ContentTags common;
    merged.intersection(ContentTags::fromText("Type:Chorus|Vibrato;Mood:Airy"), common);
    EXPECT_EQ(common.toText(), "Type:Chorus;Mood:Airy");
    EXPECT_EQ(merged.category(1).toText(), "Type:Flanger|Chorus");
    EXPECT_TRUE(merged.category(7).isEmpty());

    merged.merge(ContentTags::fromText("Spatialize:Wide;Modulation:Slow"));
    merged.sort(false, true, juce::StringArray{"type", "Modulation", "Spatialize"});
    EXPECT_EQ(merged.toText(), "Type:Chorus|Flanger;Modulation:Slow;Spatialize:Wide;Mood:Airy|dark")
        << "named categories in order, others behind, tags in plain text order";

    merged.remove(1, "Slow");
    EXPECT_EQ(merged.toText(), "Type:Chorus|Flanger;Spatialize:Wide;Mood:Airy|dark") << "an emptied category goes";
    merged.remove(0, "Jet");
    EXPECT_EQ(merged.getNumCategories(), 3);
}

TEST(TagRegistryIds, CategoriesOwnThousandsAndTagsTheNumbersAbove)
{
    TagRegistry registry;
    registry.registerTags(ContentTags::fromText("Type:Flanger|Chorus;Modulation:Slow"));
    registry.registerTags(ContentTags::fromText("Type:Jet;Spatialize:Flanger"));
    EXPECT_EQ(registry.idOf("Type", ""), 1000);
    EXPECT_EQ(registry.idOf("Type", "Chorus"), 1002);
    EXPECT_EQ(registry.idOf("Type", "Jet"), 1003);
    EXPECT_EQ(registry.idOf("Spatialize", "Flanger"), 3001) << "the same tag name in another category is another tag";
    EXPECT_EQ(registry.idOf("Type", "Vibrato"), 0);

    registry.registerTags(ContentTags::fromText("Odd:a:b"));
    const int odd = registry.idOf("Odd", "a:b");
    EXPECT_EQ(registry.categoryOf(odd), "Odd");
    EXPECT_EQ(registry.tagOf(odd), "a:b") << "the text splits at the first colon";

    juce::Array<int> ids;
    registry.toIds(ContentTags::fromText("Modulation:Slow;Type:Flanger"), ids);
    EXPECT_EQ(ids, (juce::Array<int>{2001, 1001}));
    ContentTags back;
    registry.toTags(ids, back);
    EXPECT_EQ(back.toText(), "Modulation:Slow;Type:Flanger");
}
