// From parameter to engine quantity: links, stored pairs and the feedback compensation.
#include "CoreRig.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
class CoreIntake : public ::testing::Test, public CoreRig
{
protected:
    const VelmarinCore::Quantities& q() const { return core.getQuantities(); }
};
} // namespace

TEST_F(CoreIntake, LinkedLeftSettersDriveTheRightSide)
{
    setBool(5, true);
    setFloat(3, 0.3f);
    EXPECT_FLOAT_EQ(q().offsetLeft, 0.3f);
    EXPECT_FLOAT_EQ(q().offsetRight, 0.3f);
    setFloat(4, 0.8f);
    EXPECT_FLOAT_EQ(q().offsetRight, 0.3f) << "R/S only stores while linked";
    setBool(5, false);
    EXPECT_FLOAT_EQ(q().offsetRight, 0.8f) << "unlinking restores the stored right value";
    setFloat(3, 0.1f);
    EXPECT_FLOAT_EQ(q().offsetRight, 0.8f);
    setBool(5, true);
    EXPECT_FLOAT_EQ(q().offsetRight, 0.1f);

    setBool(13, true);
    setFloat(11, 0.6f);
    setFloat(12, 0.2f);
    EXPECT_FLOAT_EQ(q().depthRight, 0.6f);
    setBool(13, false);
    EXPECT_FLOAT_EQ(q().depthRight, 0.2f);
}

TEST_F(CoreIntake, FeedbackMapsToPlusMinus095WithCompensationForPositiveValues)
{
    setBool(16, true);
    setFloat(14, 1.0f);
    EXPECT_FLOAT_EQ(q().feedbackLeft, 0.95f);
    const float expected = 3.0990567f * std::pow(0.95f, 1.5f) - 2.2853994f * 0.95f * 0.95f + 1.3748739f;
    EXPECT_EQ(q().feedbackCompensationLeft, expected);
    EXPECT_EQ(q().feedbackCompensationRight, expected);
    EXPECT_FLOAT_EQ(q().feedbackRight, 0.95f);

    setFloat(14, 0.0f);
    EXPECT_FLOAT_EQ(q().feedbackLeft, -0.95f);
    EXPECT_EQ(q().feedbackCompensationLeft, expected) << "a negative amount keeps the last compensation";
    EXPECT_EQ(VelmarinCore::feedbackCompensation(0.0f), 1.3748739f);
}

TEST_F(CoreIntake, FeedbackRightIsInaudibleWhileLinkedAndReturnsOnUnlink)
{
    setBool(16, true);
    setFloat(14, 0.5f);
    const auto rightBefore = q().feedbackRight;
    const auto compensationBefore = q().feedbackCompensationRight;
    setFloat(15, 0.9f);
    EXPECT_EQ(q().feedbackRight, rightBefore);
    EXPECT_EQ(q().feedbackCompensationRight, compensationBefore);
    setBool(16, false);
    EXPECT_FLOAT_EQ(q().feedbackRight, 0.9f * 1.9f - 0.95f);
    EXPECT_EQ(q().feedbackCompensationRight, VelmarinCore::feedbackCompensation(0.9f * 1.9f - 0.95f));
}

TEST_F(CoreIntake, RatesNotesAndOtherLaws)
{
    setFloat(6, 0.216000006f);
    EXPECT_EQ(core.getLfo(0).freeRate, static_cast<double>(0.025037454f * std::exp(7.3762617f * 0.216000006f)));
    setFloat(7, 1.0f);
    EXPECT_NEAR(q().rateRight, 0.025037454 * std::exp(7.3762617), 1e-3);

    setChoice(8, 7);
    EXPECT_EQ(core.getLfo(0).clock.division.noteCode, 8);
    setChoice(9, 10);
    EXPECT_EQ(q().noteCodeRight, 11);

    setFloat(0, 0.5f);
    EXPECT_FLOAT_EQ(q().preampDb, 12.0f);
    setFloat(21, 0.6f);
    EXPECT_DOUBLE_EQ(q().frequencyRange, static_cast<double>(0.6f) * 5.0 + 1.0);
    setFloat(27, 0.5f);
    EXPECT_FLOAT_EQ(q().outputGain, 1.0f);
    setFloat(18, 1.0f);
    EXPECT_DOUBLE_EQ(core.getLfo(1).phaseOffset, 3.14159265358979323846);
    EXPECT_EQ(core.getLfo(0).phaseOffset, 0.0);
    setChoice(20, 5);
    EXPECT_EQ(core.getStageCount(), 512);
    setBool(25, false);
    EXPECT_FALSE(q().autoMixMode);
}

TEST_F(CoreIntake, NoteCodeOutOfRangeChangesNothing)
{
    setChoice(8, 3);
    EXPECT_EQ(core.getLfo(0).clock.division.noteCode, 4);
    setChoice(8, 12);
    EXPECT_EQ(core.getLfo(0).clock.division.noteCode, 4);
}
