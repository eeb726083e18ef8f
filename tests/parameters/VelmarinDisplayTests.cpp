// What a user reads for each of the product's float parameters, and when a master takes over.
#include "product/Velmarin.h"
#include "product/VelmarinParameterManager.h"

#include <gtest/gtest.h>

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

TEST_F(VelmarinDisplay, UnitsRoundingsAndSpellings)
{
    EXPECT_EQ(at(0, 0.5f), "+12.0dB");
    EXPECT_EQ(at(0, 0.0f), "0.0dB");
    EXPECT_EQ(at(2, 0.25f), "75/25%");
    EXPECT_EQ(at(2, 0.999f), "0/100%") << "the product's percentage rounds";
    EXPECT_EQ(at(3, 0.126f), "13%");
    EXPECT_EQ(at(6, 0.0f), "0.025Hz");
    EXPECT_EQ(at(6, 0.216f), "0.123Hz");
    EXPECT_EQ(at(6, 1.0f), "40Hz");
    EXPECT_EQ(at(11, 0.332f), "33%");
    EXPECT_EQ(at(14, 0.5f), "0%");
    EXPECT_EQ(at(14, 1.0f), "+100%");
    EXPECT_EQ(at(14, 0.0f), "-100%");
    EXPECT_EQ(at(14, 0.75f), "+50%");
    EXPECT_EQ(at(18, 1.0f), "180 deg");
    EXPECT_EQ(at(18, 0.5f), "90 deg");
    EXPECT_EQ(at(21, 0.6f), "x 4");
    EXPECT_EQ(at(21, 0.25f), "x 2.25");
    EXPECT_EQ(at(27, 0.5f), "0.0dB");
    EXPECT_EQ(at(27, 1.0f), "+12.0dB");
    EXPECT_EQ(at(27, 0.0f), "-Inf.");
    EXPECT_EQ(at(27, 0.25f), "-12.0dB");
}

TEST_F(VelmarinDisplay, LinksAndAutoMixShowInactive)
{
    setBool(5, true);
    EXPECT_EQ(at(4, 0.5f), "Inactive");
    EXPECT_EQ(at(3, 0.5f), "50%") << "the L/M side is never inactive";
    setBool(5, false);
    EXPECT_EQ(at(4, 0.5f), "50%");

    setBool(10, true);
    EXPECT_EQ(at(7, 0.5f), "Inactive");
    setBool(13, true);
    EXPECT_EQ(at(12, 0.5f), "Inactive");
    setBool(16, true);
    EXPECT_EQ(at(15, 0.5f), "Inactive");
    EXPECT_EQ(at(14, 0.5f), "0%");

    setBool(25, true);
    EXPECT_EQ(at(23, 0.5f), "Inactive");
    EXPECT_EQ(at(24, 0.5f), "Inactive");
    EXPECT_EQ(at(26, 0.5f), "Inactive");
    setBool(25, false);
    EXPECT_EQ(at(23, 0.5f), "50%");
    EXPECT_EQ(at(26, 0.5f), "50/50% (Dry/Wet)");
}

TEST_F(VelmarinDisplay, ParametersWithoutARowShowTheirText)
{
    EXPECT_EQ(m.getParameter(20)->getDisplayText(), m.getParameter(20)->getText());
    EXPECT_EQ(m.getParameter(19)->getDisplayText(), "Mistress");
}
