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

TEST(FloatParameter, ClampsWritesIntoItsBoundsAndKeepsNormalizedInStep)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.5f);
    p.setNormalized(2.0f, false);
    EXPECT_EQ(p.getFloat(), 1.0f);
    EXPECT_EQ(p.getNormalized(), 1.0f);
    p.setFloat(-1.0f, false);
    EXPECT_EQ(p.getFloat(), 0.0f);
    EXPECT_EQ(p.getNormalized(), 0.0f);

    FloatParameter wide(1, "w", -10.0f, 30.0f, 0.0f);
    EXPECT_FLOAT_EQ(wide.getNormalized(), 0.25f);
    wide.setNormalized(0.75f, false);
    EXPECT_FLOAT_EQ(wide.getFloat(), 20.0f);
    wide.setText("12.5", false);
    EXPECT_FLOAT_EQ(wide.getFloat(), 12.5f);
    EXPECT_EQ(wide.getInt(), 12);
    wide.setFloat(-7.9f, false);
    EXPECT_EQ(wide.getInt(), -7) << "truncation toward zero";
    wide.setInt(100, false);
    EXPECT_EQ(wide.getFloat(), 30.0f);
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
    p.setBool(true, false);
    EXPECT_EQ(p.getFloat(), 1.0f);
    EXPECT_EQ(p.getNormalized(), 0.0f);
    EXPECT_FALSE(p.getBool());
    p.setBool(false, false);
    EXPECT_EQ(p.getFloat(), 0.0f);
    EXPECT_EQ(p.getNormalized(), 1.0f);
    EXPECT_TRUE(p.getBool());
}

TEST(FloatParameter, TextIsTheShortestDecimalForm)
{
    FloatParameter p(0, "f", 0.0f, 1.0f, 0.216000006f);
    EXPECT_EQ(p.getText(), "0.216");
    p.setFloat(1.0f, false);
    EXPECT_EQ(p.getText(), "1");
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
    p.setFloat(std::numeric_limits<float>::quiet_NaN(), false);
    EXPECT_EQ(p.getNormalized(), 0.5f);
    EXPECT_EQ(p.getInt(), 0) << "a NaN reads as 0, never as undefined behaviour";
}

TEST(IntParameter, SetNormalizedRoundsHalfUpWithoutClampingAfter)
{
    IntParameter p(0, "i", 0, 10, 0);
    p.setNormalized(0.25f, false);
    EXPECT_EQ(p.getInt(), 3);
    p.setNormalized(0.24f, false);
    EXPECT_EQ(p.getInt(), 2);
    p.setNormalized(-5.0f, false);
    EXPECT_EQ(p.getInt(), 0);
    p.setNormalized(std::numeric_limits<float>::quiet_NaN(), false);
    EXPECT_EQ(p.getInt(), 0);

    IntParameter offset(1, "o", -3, 3, 0);
    offset.setNormalized(1.0f, false);
    EXPECT_EQ(offset.getInt(), 3);
    EXPECT_FLOAT_EQ(offset.getNormalized(), 1.0f);
    EXPECT_FALSE(IntParameter(2, "m", -3, 3, -3).getBool()) << "the minimum is false";
}

TEST(IntParameter, OtherFormsTruncateAndClamp)
{
    IntParameter p(0, "i", 0, 10, 5);
    p.setFloat(7.9f, false);
    EXPECT_EQ(p.getInt(), 7);
    p.setText("42", false);
    EXPECT_EQ(p.getInt(), 10);
    p.setBool(false, false);
    EXPECT_EQ(p.getInt(), 0);
    p.setBool(true, false);
    EXPECT_EQ(p.getInt(), 10);
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
    p.setText("Low", false);
    EXPECT_EQ(p.getInt(), 1);
    p.setText("low", false);
    EXPECT_EQ(p.getInt(), 0) << "no match: its double value 0 goes to setNormalized";
    p.setText("2", false);
    EXPECT_EQ(p.getInt(), 2) << "a number that is no item is read as normalized and clamps to the last item";
    EXPECT_EQ(p.getText(), "High");
    p.setText("0.5", false);
    EXPECT_EQ(p.getInt(), 1);
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
    p.setText("C-2", false);
    EXPECT_EQ(p.getInt(), 24);
    p.setText("24", false);
    EXPECT_EQ(p.getInt(), 127);
    p.setText("A#H", false);
    EXPECT_EQ(p.getInt(), 127) << "capped at 127";
    p.setText("E#4", false);
    EXPECT_EQ(p.getInt(), 52) << "E# is E";
    p.setText("B#0", false);
    EXPECT_EQ(p.getInt(), 11);
    p.setText("c-2", false);
    EXPECT_EQ(p.getInt(), 0) << "lower case is no note name: 0 as normalized";
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
    state.setText("ON", false);
    EXPECT_TRUE(state.getBool());
    state.setText("oFf", false);
    EXPECT_FALSE(state.getBool());

    LogicParameter logic(1, "l", true);
    logic.setText("TRUE", false);
    EXPECT_FALSE(logic.getBool()) << "not a word: the number 0";

    BoolParameter plain(2, "b", true);
    plain.setText("TRUE", false);
    EXPECT_FALSE(plain.getBool());
    plain.setText("yes", false);
    EXPECT_TRUE(plain.getBool());
    plain.setText("0.4", false);
    EXPECT_FALSE(plain.getBool());
    plain.setText("0.5", false);
    EXPECT_TRUE(plain.getBool());

    AnswerParameter answer(3, "a");
    answer.setText("on", false);
    EXPECT_TRUE(answer.getBool()) << "the generic rule accepts every subclass's words";
}

TEST(BoolFamily, NumericFormsTurnOnForAnythingButZero)
{
    BoolParameter p(0, "b");
    p.setFloat(-0.1f, false);
    EXPECT_TRUE(p.getBool());
    p.setFloat(0.0f, false);
    EXPECT_FALSE(p.getBool());
    p.setInt(-4, false);
    EXPECT_TRUE(p.getBool());
    p.setNormalized(0.49f, false);
    EXPECT_FALSE(p.getBool());
    EXPECT_EQ(p.getNormalized(), 0.0f);
    p.setNormalized(0.5f, false);
    EXPECT_EQ(p.getFloat(), 1.0f);
}

TEST(StringParameter, NumericFormsReadTheText)
{
    StringParameter p(0, "s", "1.75");
    EXPECT_FLOAT_EQ(p.getFloat(), 1.75f);
    EXPECT_EQ(p.getNormalized(), 1.0f);
    EXPECT_EQ(p.getInt(), 1);
    p.setText("-3", false);
    EXPECT_EQ(p.getNormalized(), 0.0f);
    p.setFloat(0.5f, false);
    EXPECT_EQ(p.getText(), "0.5");
    p.setBool(true, false);
    EXPECT_EQ(p.getText(), "true");
    p.setInt(12, false);
    EXPECT_EQ(p.getText(), "12");
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
