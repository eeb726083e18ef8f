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
    setBool(Param::delayOffsetLink, true);
    setFloat(Param::delayOffsetLeft, 0.3f);
    EXPECT_FLOAT_EQ(q().offset.left(), 0.3f);
    EXPECT_FLOAT_EQ(q().offset.right(), 0.3f);
    setFloat(Param::delayOffsetRight, 0.8f);
    EXPECT_FLOAT_EQ(q().offset.right(), 0.3f) << "R/S only stores while linked";
    setBool(Param::delayOffsetLink, false);
    EXPECT_FLOAT_EQ(q().offset.right(), 0.8f) << "unlinking restores the stored right value";
    setFloat(Param::delayOffsetLeft, 0.1f);
    EXPECT_FLOAT_EQ(q().offset.right(), 0.8f);
    setBool(Param::delayOffsetLink, true);
    EXPECT_FLOAT_EQ(q().offset.right(), 0.1f);

    setBool(Param::lfoDepthLink, true);
    setFloat(Param::lfoDepthLeft, 0.6f);
    setFloat(Param::lfoDepthRight, 0.2f);
    EXPECT_FLOAT_EQ(q().depth.right(), 0.6f);
    setBool(Param::lfoDepthLink, false);
    EXPECT_FLOAT_EQ(q().depth.right(), 0.2f);
}

TEST_F(CoreIntake, FeedbackMapsToPlusMinus095WithCompensationForPositiveValues)
{
    setBool(Param::feedbackLink, true);
    setFloat(Param::feedbackLeft, 1.0f);
    EXPECT_FLOAT_EQ(q().feedback.left(), 0.95f);
    const float expected = 3.0990567f * std::pow(0.95f, 1.5f) - 2.2853994f * 0.95f * 0.95f + 1.3748739f;
    EXPECT_EQ(q().feedbackCompensationLeft, expected);
    EXPECT_EQ(q().feedbackCompensationRight, expected);
    EXPECT_FLOAT_EQ(q().feedback.right(), 0.95f);

    setFloat(Param::feedbackLeft, 0.0f);
    EXPECT_FLOAT_EQ(q().feedback.left(), -0.95f);
    EXPECT_EQ(q().feedbackCompensationLeft, expected) << "a negative amount keeps the last compensation";
    EXPECT_EQ(VelmarinCore::feedbackCompensation(0.0f), 1.3748739f);
}

TEST_F(CoreIntake, FeedbackRightIsInaudibleWhileLinkedAndReturnsOnUnlink)
{
    setBool(Param::feedbackLink, true);
    setFloat(Param::feedbackLeft, 0.5f);
    const auto rightBefore = q().feedback.right();
    const auto compensationBefore = q().feedbackCompensationRight;
    setFloat(Param::feedbackRight, 0.9f);
    EXPECT_EQ(q().feedback.right(), rightBefore);
    EXPECT_EQ(q().feedbackCompensationRight, compensationBefore);
    setBool(Param::feedbackLink, false);
    EXPECT_FLOAT_EQ(q().feedback.right(), 0.9f * 1.9f - 0.95f);
    EXPECT_EQ(q().feedbackCompensationRight, VelmarinCore::feedbackCompensation(0.9f * 1.9f - 0.95f));
}

TEST_F(CoreIntake, RatesNotesAndOtherLaws)
{
    setFloat(Param::lfoRateLeft, 0.216000006f);
    EXPECT_EQ(core.getLfo(0).getFreeRate(), static_cast<double>(0.025037454f * std::exp(7.3762617f * 0.216000006f)));
    setFloat(Param::lfoRateRight, 1.0f);
    EXPECT_NEAR(q().rateRight, 0.025037454 * std::exp(7.3762617), 1e-3);

    setChoice(Param::lfoNoteRateLeft, 7);
    EXPECT_EQ(core.getLfo(0).getNoteCode(), 8);
    setChoice(Param::lfoNoteRateRight, 10);
    EXPECT_EQ(q().noteCodeRight, 11);

    setFloat(Param::preamp, 0.5f);
    EXPECT_FLOAT_EQ(q().preampDb, 12.0f);
    setFloat(Param::bbdFrequencyRange, 0.6f);
    EXPECT_DOUBLE_EQ(q().frequencyRange, static_cast<double>(0.6f) * 5.0 + 1.0);
    setFloat(Param::outputVolume, 0.5f);
    EXPECT_FLOAT_EQ(q().outputGain, 1.0f);
    setFloat(Param::lfoPhaseShift, 1.0f);
    EXPECT_DOUBLE_EQ(core.getLfo(1).getPhaseOffset(), 3.14159265358979323846);
    EXPECT_EQ(core.getLfo(0).getPhaseOffset(), 0.0);
    setChoice(Param::bbdLength, 5);
    EXPECT_EQ(core.getStageCount(), 512);
    setBool(Param::autoMixMode, false);
    EXPECT_FALSE(q().autoMixMode);
}

TEST_F(CoreIntake, NoteCodeOutOfRangeChangesNothing)
{
    setChoice(Param::lfoNoteRateLeft, 3);
    EXPECT_EQ(core.getLfo(0).getNoteCode(), 4);
    setChoice(Param::lfoNoteRateLeft, 12);
    EXPECT_EQ(core.getLfo(0).getNoteCode(), 4);
}
