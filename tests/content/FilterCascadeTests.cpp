// The filter columns: Any and All, untagged items, dropped choices, column order, the switch.
#include "content/FilterCascade.h"

#include <gtest/gtest.h>

namespace
{
class Filters : public ::testing::Test
{
protected:
    Filters()
    {
        add("Jet Stream", "Type:Flanger|Jet;Modulation:Slow");
        add("Warble", "Type:Vibrato;Modulation:Fast");
        add("Tin", "Type:Resonator;Modulation:Static");
        add("Swirl", "Type:Flanger;Modulation:Fast;Spatialize:Wide");
        add("Plain", "");
        cascade.rebuild(registry.getMaster(), list);
    }

    void add(const char* name, const char* tags)
    {
        const auto parsed = ContentTags::fromText(tags);
        registry.registerTags(parsed);
        juce::Array<int> ids;
        registry.toIds(parsed, ids);
        list.add(items.add(new ContentItem(nullptr, name, parsed, ids)));
    }

    juce::String visible() const
    {
        juce::StringArray names;
        for (auto* item : list)
            if (! item->filteredOut)
                names.add(item->name);
        return names.joinIntoString(",");
    }

    void choose(const char* category, const char* tag, bool on = true)
    {
        cascade.setTagSelected(category, tag, on, list);
    }

    TagRegistry registry;
    juce::OwnedArray<ContentItem> items;
    juce::Array<ContentItem*> list;
    FilterCascade cascade{registry};
};
} // namespace

TEST_F(Filters, AnyAndAllWithinAColumnAndUntaggedItemsHideOnceAnythingIsChosen)
{
    ASSERT_EQ(cascade.getNumFilters(), 3);
    EXPECT_EQ(visible(), "Jet Stream,Warble,Tin,Swirl,Plain");
    EXPECT_EQ(cascade.getFilter(0).shownTags.toText(), "Type:Flanger|Jet|Resonator|Vibrato") << "shown sorted";

    choose("Type", "Flanger");
    EXPECT_EQ(visible(), "Jet Stream,Swirl") << "an untagged item hides as soon as a choice exists";
    choose("Type", "Vibrato");
    EXPECT_EQ(visible(), "Jet Stream,Warble,Swirl") << "Any: one of the chosen tags is enough";
    EXPECT_EQ(cascade.getFilter(1).shownTags.toText(), "Modulation:Fast|Slow")
        << "a column shows what the left ones let through";
    EXPECT_EQ(cascade.getFilter(0).shownTags.toText(), "Type:Flanger|Jet|Resonator|Vibrato")
        << "its own choice does not narrow it";

    cascade.setMode("Type", 1, list);
    EXPECT_EQ(visible(), "") << "All: no item is both a flanger and a vibrato";
    choose("Type", "Vibrato", false);
    choose("Type", "Jet");
    EXPECT_EQ(visible(), "Jet Stream");

    cascade.setEnabled(false, list);
    EXPECT_EQ(visible(), "Jet Stream,Warble,Tin,Swirl,Plain") << "switched off shows everything";
    EXPECT_EQ(cascade.getFilter(0).selectedTags.toText(), "Type:Flanger|Jet") << "the choices stay";
    cascade.setEnabled(true, list);
    EXPECT_EQ(visible(), "Jet Stream");
}

TEST_F(Filters, ColumnOrderDecidesWhatEachShowsAndDroppedChoicesStayDropped)
{
    choose("Modulation", "Fast");
    EXPECT_EQ(visible(), "Warble,Swirl");
    choose("Type", "Resonator");
    EXPECT_EQ(visible(), "Tin") << "Type comes first; Fast no longer matches anything it lets through";
    EXPECT_EQ(cascade.getFilter(1).shownTags.toText(), "Modulation:Static");
    EXPECT_TRUE(cascade.getFilter(1).selectedTags.isEmpty()) << "the Fast choice is dropped";
    choose("Type", "Resonator", false);
    EXPECT_EQ(visible(), "Jet Stream,Warble,Tin,Swirl,Plain") << "and does not come back by itself";

    cascade.moveRight(0, list);
    EXPECT_EQ(cascade.getFilter(0).name, "Modulation");
    choose("Modulation", "Fast");
    EXPECT_EQ(cascade.getFilter(1).shownTags.toText(), "Type:Flanger|Vibrato")
        << "now Type offers only what Fast lets through";
    choose("Type", "Resonator");
    EXPECT_TRUE(cascade.getFilter(1).selectedTags.isEmpty()) << "a choice nothing can satisfy is dropped at once";
    EXPECT_EQ(visible(), "Warble,Swirl");

    cascade.moveLeft(0, list);
    EXPECT_EQ(cascade.getFilter(0).name, "Modulation") << "the first column cannot move left";

    choose("Spatialize", "Wide");
    cascade.setMode("Type", 1, list);
    registry.registerTags(ContentTags::fromText("Mood:Dark"));
    cascade.rebuild(registry.getMaster(), list);
    ASSERT_EQ(cascade.getNumFilters(), 4);
    EXPECT_EQ(cascade.getFilter(0).name, "Modulation") << "a rebuild keeps the column order";
    EXPECT_EQ(cascade.getFilter(3).name, "Mood");
    EXPECT_TRUE(cascade.getFilter(2).selectedTags.isEmpty()) << "and resets the choices";
    EXPECT_EQ(cascade.getFilter(cascade.indexOf("Type")).mode, 0);
}
