// What a user reads for each of the product's float parameters, and when a master takes over.
#include "product/Velmarin.h"
#include "product/VelmarinParameterManager.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace
{
class VelmarinDisplay : public ::testing::Test
{
protected:
    VelmarinDisplay() { m.loadFromResource(Velmarin::getResources(), "parameters.xml"); }

    juce::String at(int index, float normalized)
    {
        auto* p = m.getParameter(index);
        p->setNormalized(normalized, false);
        return p->getDisplayText();
    }
    void setBool(int index, bool on) { m.getParameter(index)->setBool(on, false); }

    VelmarinParameterManager m;
};
} // namespace

TEST_F(VelmarinDisplay, UnitsRoundingsAndSpellingsAtTheEdges)
{
    const std::vector<std::tuple<int, float, const char*>> cases = {
        {0, 0.0f, "0.0dB"},  {0, 0.5f, "+12.0dB"},   {2, 0.25f, "75/25%"},  {2, 0.999f, "0/100%"},
        {3, 0.126f, "13%"},  {6, 0.0f, "0.025Hz"},   {6, 1.0f, "40Hz"},     {14, 0.0f, "-100%"},
        {14, 0.5f, "0%"},    {14, 0.75f, "+50%"},    {18, 1.0f, "180 deg"}, {21, 0.25f, "x 2.25"},
        {27, 0.0f, "-Inf."}, {27, 0.25f, "-12.0dB"}, {27, 0.5f, "0.0dB"}};
    for (const auto& [index, normalized, text] : cases)
        EXPECT_EQ(at(index, normalized), text) << index << " at " << normalized;
    EXPECT_EQ(m.getParameter(20)->getDisplayText(), m.getParameter(20)->getText()) << "no formatter: the text";
}

TEST_F(VelmarinDisplay, LinksAndAutoMixShowInactiveOnTheSidesTheyOverrule)
{
    const std::vector<std::pair<int, std::vector<int>>> masters = {
        {5, {4}}, {10, {7}}, {13, {12}}, {16, {15}}, {25, {23, 24, 26}}};
    for (const auto& [master, overruled] : masters)
    {
        for (const bool on : {true, false})
        {
            setBool(master, on);
            for (int index : overruled)
                EXPECT_EQ(at(index, 0.5f) == "Inactive", on) << master << " " << on << " " << index;
        }
    }
    setBool(5, true);
    EXPECT_EQ(at(3, 0.5f), "50%") << "the L/M side is never inactive";
    setBool(25, false);
    EXPECT_EQ(at(26, 0.5f), "50/50% (Dry/Wet)");
}
