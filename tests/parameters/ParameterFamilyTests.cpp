// How each class of the parameter family answers in its six forms, including the three cells that
// look like slips and are kept on purpose.
#include "parameters/BoolParameter.h"
#include "parameters/EnumParameter.h"
#include "parameters/FloatParameter.h"
#include "parameters/IntParameter.h"
#include "parameters/NoteParameter.h"
#include "parameters/StringParameter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
/** The parameter after one write without notification, for reading back in the same line. */
template <typename Value, typename Given>
Parameter& after(Parameter& p, void (Parameter::*write)(Value, bool), const Given& value)
{
    (p.*write)(value, false);
    return p;
}
} // namespace

TEST(FloatParameter, ClampsWritesIntoItsBoundsAndKeepsNormalizedInStep)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.5f);
    EXPECT_EQ(after(p, &Parameter::setNormalized, 2.0f).getFloat(), 1.0f);
    EXPECT_EQ(p.getNormalized(), 1.0f);
    EXPECT_EQ(after(p, &Parameter::setFloat, -1.0f).getFloat(), 0.0f);
    EXPECT_EQ(p.getNormalized(), 0.0f);

    FloatParameter wide(1, "w", -10.0f, 30.0f, 0.0f);
    EXPECT_FLOAT_EQ(wide.getNormalized(), 0.25f);
    EXPECT_FLOAT_EQ(after(wide, &Parameter::setNormalized, 0.75f).getFloat(), 20.0f);
    EXPECT_FLOAT_EQ(after(wide, &Parameter::setText, "12.5").getFloat(), 12.5f);
    EXPECT_EQ(wide.getInt(), 12);
    EXPECT_EQ(after(wide, &Parameter::setFloat, -7.9f).getInt(), -7) << "truncation toward zero";
    EXPECT_EQ(after(wide, &Parameter::setInt, 100).getFloat(), 30.0f);
}

TEST(FloatParameter, ConstructorOrdersBoundsAndClampsAgainstThemAsGiven)
{
    FloatParameter reversed(0, "r", 1.0f, 0.0f, 0.25f);
    EXPECT_EQ(reversed.getMinimum(), 0.0f);
    EXPECT_EQ(reversed.getMaximum(), 1.0f);
    // Clamped against a = 1 first: 0.25 is below it, so the value becomes 1.
    EXPECT_EQ(reversed.getFloat(), 1.0f);

    FloatParameter point(1, "p", 0.5f, 0.5f, 0.5f);
    EXPECT_EQ(point.getNormalized(), 0.0f) << "equal bounds give normalized 0";
}

TEST(FloatParameter, SetBoolWritesNormalizedTheWrongWayRound)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.5f);
    EXPECT_EQ(after(p, &Parameter::setBool, true).getFloat(), 1.0f);
    EXPECT_EQ(p.getNormalized(), 0.0f);
    EXPECT_FALSE(p.getBool());
    EXPECT_EQ(after(p, &Parameter::setBool, false).getFloat(), 0.0f);
    EXPECT_EQ(p.getNormalized(), 1.0f);
    EXPECT_TRUE(p.getBool());
}

TEST(FloatParameter, TextIsTheShortestDecimalForm)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.216000006f);
    EXPECT_EQ(p.getText(), "0.216");
    EXPECT_EQ(after(p, &Parameter::setFloat, 1.0f).getText(), "1");
    EXPECT_TRUE(p.getVar().isDouble());
}

TEST(FloatParameter, CloneCopiesBoundsAndValueButLeavesNormalizedAtZero)
{
    FloatParameter p(3, "orig", 0.0f, 2.0f, 1.0f);
    p.setUnit(" dB");
    p.setAutomatable(true);
    std::unique_ptr<Parameter> c(p.clone(7, "copy"));
    EXPECT_EQ(c->getIndex(), 7);
    EXPECT_EQ(c->getName(), "copy");
    EXPECT_EQ(c->getFloat(), 1.0f);
    EXPECT_EQ(c->getNormalized(), 0.0f);
    EXPECT_TRUE(c->isAutomatable());
    EXPECT_EQ(c->getUnit(), "") << "a clone has no unit";
}

TEST(FloatParameter, NanCountsAsUnchangedAndLeavesNormalizedAlone)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.5f);
    EXPECT_EQ(after(p, &Parameter::setFloat, std::numeric_limits<float>::quiet_NaN()).getNormalized(), 0.5f);
    EXPECT_EQ(p.getInt(), 0) << "a NaN reads as 0, never as undefined behaviour";
}

TEST(IntParameter, SetNormalizedRoundsHalfUpWithoutClampingAfter)
{
    IntParameter p(0, "i", 0, 10, 0);
    EXPECT_EQ(after(p, &Parameter::setNormalized, 0.25f).getInt(), 3);
    EXPECT_EQ(after(p, &Parameter::setNormalized, 0.24f).getInt(), 2);
    EXPECT_EQ(after(p, &Parameter::setNormalized, -5.0f).getInt(), 0);
    EXPECT_EQ(after(p, &Parameter::setNormalized, std::numeric_limits<float>::quiet_NaN()).getInt(), 0);

    IntParameter offset(1, "o", -3, 3, 0);
    EXPECT_EQ(after(offset, &Parameter::setNormalized, 1.0f).getInt(), 3);
    EXPECT_FLOAT_EQ(offset.getNormalized(), 1.0f);
    EXPECT_FALSE(IntParameter(2, "m", -3, 3, -3).getBool()) << "the minimum is false";
}

TEST(IntParameter, OtherFormsTruncateAndClamp)
{
    IntParameter p(0, "i", 0, 10, 5);
    EXPECT_EQ(after(p, &Parameter::setFloat, 7.9f).getInt(), 7);
    EXPECT_EQ(after(p, &Parameter::setText, "42").getInt(), 10);
    EXPECT_EQ(after(p, &Parameter::setBool, false).getInt(), 0);
    EXPECT_EQ(after(p, &Parameter::setBool, true).getInt(), 10);
    EXPECT_EQ(p.getText(), "10");
}

TEST(IntParameter, EqualBoundsDivideByZeroInGetNormalized)
{
    IntParameter p(0, "i", 4, 4, 4);
    EXPECT_TRUE(std::isnan(p.getNormalized()));
}

TEST(EnumParameter, MatchesItemsExactlyAndReadsOtherTextAsNormalized)
{
    EnumParameter p(0, "e");
    p.setItems("Off;Low;High");
    EXPECT_EQ(p.getMaximum(), 2);
    EXPECT_EQ(after(p, &Parameter::setText, "Low").getInt(), 1);
    EXPECT_EQ(after(p, &Parameter::setText, "low").getInt(), 0) << "no match: its double value 0 goes to setNormalized";
    EXPECT_EQ(after(p, &Parameter::setText, "2").getInt(), 2)
        << "a number that is no item is read as normalized and clamps to the last item";
    EXPECT_EQ(p.getText(), "High");
    EXPECT_EQ(after(p, &Parameter::setText, "0.5").getInt(), 1);
}

TEST(EnumParameter, WithoutItemsHasEmptyText)
{
    EnumParameter p(0, "e");
    p.setItems("");
    EXPECT_EQ(p.getText(), "");
    EXPECT_TRUE(p.getItems().isEmpty());
}

TEST(EnumParameter, ShrinkingItemsReclampsTheValueAndNotifies)
{
    struct Counter : Parameter::Listener
    {
        int calls = 0;
        void parameterChanged(Parameter&) override { ++calls; }
    } counter;

    EnumParameter p(0, "e");
    p.setItems("a;b;c;d");
    p.setInt(3, false);
    p.addListener(&counter);
    p.setItems("a;b");
    EXPECT_EQ(p.getInt(), 1);
    EXPECT_EQ(counter.calls, 1);
    p.setItems("a;b");
    EXPECT_EQ(counter.calls, 1) << "the same text changes nothing";

    std::unique_ptr<Parameter> c(p.clone(9, "clone"));
    EXPECT_EQ(c->getText(), "b");
    EXPECT_EQ(static_cast<EnumParameter*>(c.get())->getItemsText(), "a;b");
}

TEST(NoteParameter, NamesNotesWithSharpsAndOctaveH)
{
    EXPECT_EQ(NoteParameter::noteName(0), "C-0");
    EXPECT_EQ(NoteParameter::noteName(61), "C#5");
    EXPECT_EQ(NoteParameter::noteName(127), "G-H");
    EXPECT_EQ(NoteParameter::noteName(128), "");
}

TEST(NoteParameter, ParsesNamesAndReadsOtherTextAsNormalized)
{
    NoteParameter p(0, "n");
    EXPECT_EQ(after(p, &Parameter::setText, "C-2").getInt(), 24);
    EXPECT_EQ(after(p, &Parameter::setText, "24").getInt(), 127);
    EXPECT_EQ(after(p, &Parameter::setText, "A#H").getInt(), 127) << "capped at 127";
    EXPECT_EQ(after(p, &Parameter::setText, "E#4").getInt(), 52) << "E# is E";
    EXPECT_EQ(after(p, &Parameter::setText, "B#0").getInt(), 11);
    EXPECT_EQ(after(p, &Parameter::setText, "c-2").getInt(), 0) << "lower case is no note name: 0 as normalized";
    EXPECT_FALSE(NoteParameter::parseNoteName("C-10").has_value());
    EXPECT_FALSE(NoteParameter::parseNoteName("H-1").has_value());
    EXPECT_FALSE(NoteParameter::parseNoteName("C+1").has_value());
}

TEST(BoolFamily, WordsOfEachClass)
{
    EXPECT_EQ(BoolParameter(0, "b", true).getText(), "true");
    EXPECT_EQ(StateParameter(0, "s", false).getText(), "Off");
    EXPECT_EQ(LogicParameter(0, "l", true).getText(), "1");
    EXPECT_EQ(AnswerParameter(0, "a", false).getText(), "no");
}

TEST(BoolFamily, SetTextRulesOfEachClass)
{
    StateParameter state(0, "s");
    EXPECT_TRUE(after(state, &Parameter::setText, "ON").getBool());
    EXPECT_FALSE(after(state, &Parameter::setText, "oFf").getBool());

    LogicParameter logic(1, "l", true);
    EXPECT_FALSE(after(logic, &Parameter::setText, "TRUE").getBool()) << "not a word: the number 0";

    BoolParameter plain(2, "b", true);
    EXPECT_FALSE(after(plain, &Parameter::setText, "TRUE").getBool());
    EXPECT_TRUE(after(plain, &Parameter::setText, "yes").getBool());
    EXPECT_FALSE(after(plain, &Parameter::setText, "0.4").getBool());
    EXPECT_TRUE(after(plain, &Parameter::setText, "0.5").getBool());

    AnswerParameter answer(3, "a");
    EXPECT_TRUE(after(answer, &Parameter::setText, "on").getBool())
        << "the generic rule accepts every subclass's words";
}

TEST(BoolFamily, NumericFormsTurnOnForAnythingButZero)
{
    BoolParameter p(0, "b");
    EXPECT_TRUE(after(p, &Parameter::setFloat, -0.1f).getBool());
    EXPECT_FALSE(after(p, &Parameter::setFloat, 0.0f).getBool());
    EXPECT_TRUE(after(p, &Parameter::setInt, -4).getBool());
    EXPECT_FALSE(after(p, &Parameter::setNormalized, 0.49f).getBool());
    EXPECT_EQ(p.getNormalized(), 0.0f);
    EXPECT_EQ(after(p, &Parameter::setNormalized, 0.5f).getFloat(), 1.0f);
}

TEST(StringParameter, NumericFormsReadTheText)
{
    StringParameter p(0, "s", "1.75");
    EXPECT_FLOAT_EQ(p.getFloat(), 1.75f);
    EXPECT_EQ(p.getNormalized(), 1.0f);
    EXPECT_EQ(p.getInt(), 1);
    EXPECT_EQ(after(p, &Parameter::setText, "-3").getNormalized(), 0.0f);
    EXPECT_EQ(after(p, &Parameter::setFloat, 0.5f).getText(), "0.5");
    EXPECT_EQ(after(p, &Parameter::setBool, true).getText(), "true");
    EXPECT_EQ(after(p, &Parameter::setInt, 12).getText(), "12");
}

TEST(StringParameter, GetBoolIsTrueWhenTheTextsIntegerValueIsZero)
{
    for (const char* text : {"", "0", "abc"})
        EXPECT_TRUE(StringParameter(0, "s", text).getBool()) << text;
    EXPECT_FALSE(StringParameter(0, "s", "1").getBool());
}

TEST(CopyFrom, CrossesClassesThroughTheDocumentedForms)
{
    FloatParameter source(0, "f", 0.0f, 10.0f, 6.7f);
    IntParameter i(1, "i", 0, 5, 0);
    i.copyFrom(source, false);
    EXPECT_EQ(i.getInt(), 5) << "getInt 6, clamped";
    BoolParameter b(2, "b");
    b.copyFrom(source, false);
    EXPECT_TRUE(b.getBool());
    StringParameter s(3, "s");
    s.copyFrom(source, false);
    EXPECT_EQ(s.getText(), source.getText());
}
