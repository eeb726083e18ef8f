// The fourteen generic display formats: signs, decimals, thousands and their exact spellings.
#include "parameters/FloatParameter.h"
#include "parameters/IntParameter.h"

#include <gtest/gtest.h>

namespace
{
juce::String shown(float value, int format, float minimum = -100.0f, float maximum = 100.0f, const char* unit = "")
{
    FloatParameter p(1, "f", minimum, maximum, value);
    p.setFormat(format);
    p.setUnit(unit);
    return p.getDisplayText();
}

juce::String shownInt(int value, int format, const char* unit = "")
{
    IntParameter p(1, "i", 0, 100000, value);
    p.setFormat(format);
    p.setUnit(unit);
    return p.getDisplayText();
}
} // namespace

TEST(GenericFormats, SignedNumbersShowZeroPlainAndPositivesWithAPlus)
{
    EXPECT_EQ(shown(0.0f, 6, -100.0f, 100.0f, "dB"), "0dB") << "no decimals at exactly 0";
    EXPECT_EQ(shown(1.5f, 6, -100.0f, 100.0f, "dB"), "+1.50dB");
    EXPECT_EQ(shown(-1.5f, 5, -100.0f, 100.0f, "dB"), "-1.5dB");
    EXPECT_EQ(shown(2.25f, 7), "+2.250");
    EXPECT_EQ(shown(0.5f, 4), "+0") << "the integer form comes from getInt";
    EXPECT_EQ(shown(-3.0f, 4), "-3");
}

TEST(GenericFormats, PlainDecimalsAndMinusInfinity)
{
    EXPECT_EQ(shown(3.14159f, 2, -100.0f, 100.0f, " ms"), "3.1 ms");
    EXPECT_EQ(shown(3.14159f, 3), "3.14");
    EXPECT_EQ(shown(7.9f, 1, 0.0f, 10.0f, "x"), "7x");
    EXPECT_EQ(shown(0.0f, 8, 0.0f, 10.0f, "dB"), "-inf.") << "normalized 0 drops the unit";
    EXPECT_EQ(shown(2.0f, 8, 0.0f, 10.0f, "dB"), "+2.0dB");
}

TEST(GenericFormats, ThousandsDropTheLastDigitBeforeScaling)
{
    EXPECT_EQ(shownInt(1500, 9), "1.5");
    EXPECT_EQ(shownInt(1999, 9), "2.0");
    EXPECT_EQ(shownInt(2000, 9, "Hz"), "2Hz") << "a whole number shows without decimals";
    EXPECT_EQ(shownInt(1234, 10), "1.23");
    EXPECT_EQ(shownInt(999, 12, "Hz"), "999Hz");
    EXPECT_EQ(shownInt(1000, 12, "Hz"), "1kHz");
    EXPECT_EQ(shownInt(1500, 12, "Hz"), "1.5kHz");
    EXPECT_EQ(shownInt(1234, 13), "1.23k");
    EXPECT_EQ(shown(999.9f, 11, 0.0f, 20000.0f, "Hz"), "999Hz");
    EXPECT_EQ(shown(1500.0f, 11, 0.0f, 20000.0f, "Hz"), "1.5kHz");
}

TEST(GenericFormats, CrossfadeTruncatesAndUnknownCodesAreEmpty)
{
    EXPECT_EQ(shown(0.999f, 14, 0.0f, 1.0f), "1/99");
    EXPECT_EQ(shown(0.25f, 14, 0.0f, 1.0f, "%"), "75/25%");
    EXPECT_EQ(shown(0.5f, 15), "");
    EXPECT_EQ(shown(0.5f, 0, 0.0f, 1.0f, " u"), "0.5 u") << "no formatter: the text and the unit";
}
