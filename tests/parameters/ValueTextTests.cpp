// Values read from texts people type: numbers that are not finite never get in, command-line texts
// are checked against what a parameter's text form takes, and display texts read back.
#include "parameters/BoolParameter.h"
#include "parameters/EnumParameter.h"
#include "parameters/FloatParameter.h"
#include "parameters/IntParameter.h"
#include "parameters/NoteParameter.h"
#include "parameters/StringParameter.h"
#include "parameters/ValueText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

namespace
{
std::unique_ptr<EnumParameter> makeEnum(int index, const char* items, int value)
{
    auto e = std::make_unique<EnumParameter>(index, "e");
    e->setItems(items);
    e->setInt(value, false);
    return e;
}
} // namespace

TEST(ValueText, TextsThatAreNotFiniteNumbersLeaveEveryClassOfParameterAsItWas)
{
    std::vector<std::unique_ptr<Parameter>> family;
    family.push_back(std::make_unique<FloatParameter>(0, "f", -1.0f, 1.0f, 0.25f));
    family.push_back(std::make_unique<IntParameter>(1, "i", 0, 10, 3));
    family.push_back(makeEnum(2, "Off;Low;High", 1));
    family.push_back(std::make_unique<NoteParameter>(3, "n", 60));
    family.push_back(std::make_unique<BoolParameter>(4, "b", true));
    family.push_back(std::make_unique<StateParameter>(5, "s", true));
    for (auto& p : family)
    {
        const auto before = p->getText();
        for (const char* text : {"nan", "NaN", "inf", "-inf", "-Infinity"})
        {
            p->setText(text, false);
            EXPECT_EQ(p->getText(), before) << p->getName() << " after " << text;
            EXPECT_FALSE(std::isnan(p->getFloat()));
        }
    }
    // After a refused text, a number still counts as a change.
    family[0]->setText("0.5", false);
    EXPECT_EQ(family[0]->getFloat(), 0.5f);
}

TEST(ValueText, NumbersParseWholeAndAreFoundInsideDisplayTexts)
{
    EXPECT_EQ(ValueText::parseNumber(" -6 "), -6.0);
    EXPECT_EQ(ValueText::parseNumber("+0.5"), 0.5);
    EXPECT_EQ(ValueText::parseNumber("1e-3"), 0.001);
    EXPECT_EQ(ValueText::parseNumber(".25"), 0.25);
    for (const char* notANumber : {"", "6dB", "abc", "nan", "inf", "1e400", "-", "."})
        EXPECT_FALSE(ValueText::parseNumber(notANumber).has_value()) << notANumber;

    EXPECT_EQ(ValueText::findNumber("+6.0dB"), 6.0);
    EXPECT_EQ(ValueText::findNumber("x 1.30"), 1.3);
    EXPECT_EQ(ValueText::findNumber("75/25% (Dry/Wet)"), 75.0);
    EXPECT_EQ(ValueText::findNumber("-12 deg"), -12.0);
    EXPECT_EQ(ValueText::findNumber("1.2kHz"), 1200.0);
    EXPECT_EQ(ValueText::findNumber("-Inf."), -HUGE_VAL);
    EXPECT_FALSE(ValueText::findNumber("Inactive").has_value());
}

TEST(ValueText, CommandLineTextsMustBeAWordItemOrNumberInRange)
{
    const FloatParameter level(0, "level", 0.0f, 1.0f, 0.5f);
    EXPECT_TRUE(ValueText::isReadable(level, "0.25"));
    EXPECT_FALSE(ValueText::isReadable(level, "1.5"));
    EXPECT_FALSE(ValueText::isReadable(level, "abc"));
    EXPECT_FALSE(ValueText::isReadable(level, "nan"));

    const auto length = makeEnum(1, "16;32;64;128;256;512", 4);
    EXPECT_TRUE(ValueText::isReadable(*length, "512"));
    EXPECT_TRUE(ValueText::isReadable(*length, "0.5")) << "a number is read as normalized";
    EXPECT_FALSE(ValueText::isReadable(*length, "17"));

    const auto sync = makeEnum(2, "Off;Triplet;Dotted;Full", 0);
    EXPECT_FALSE(ValueText::isReadable(*sync, "On"));
    EXPECT_FALSE(ValueText::isReadable(*sync, "full")) << "items compare exactly";

    const StateParameter link(3, "link", true);
    EXPECT_TRUE(ValueText::isReadable(link, "OFF"));
    EXPECT_TRUE(ValueText::isReadable(link, "yes"));
    EXPECT_FALSE(ValueText::isReadable(link, "maybe"));
    const BoolParameter plain(4, "plain", false);
    EXPECT_FALSE(ValueText::isReadable(plain, "TRUE")) << "only StateParameter ignores case";

    const IntParameter count(5, "count", -4, 4, 0);
    EXPECT_TRUE(ValueText::isReadable(count, "-4"));
    EXPECT_FALSE(ValueText::isReadable(count, "5"));
    const NoteParameter note(6, "note", 60);
    EXPECT_TRUE(ValueText::isReadable(note, "C#5"));
    EXPECT_FALSE(ValueText::isReadable(note, "H-5"));
    EXPECT_TRUE(ValueText::isReadable(StringParameter(7, "name", ""), "anything at all"));
}

TEST(ValueText, DiscreteDisplaysMatchByWordsOrByTheirNumber)
{
    const auto display = [](float n) { return juce::String(static_cast<int>(n * 4.0f + 0.5f) * 10) + " ms"; };
    EXPECT_EQ(ValueText::normalizedForDisplayText("30 MS", 0.0f, 5, display), 0.75f);
    EXPECT_EQ(ValueText::normalizedForDisplayText("30", 0.0f, 5, display), 0.75f);
    EXPECT_EQ(ValueText::normalizedForDisplayText("35", 0.25f, 5, display), 0.25f) << "no such step";
}
