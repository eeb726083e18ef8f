// From parameter to engine quantity: links, stored pairs and the feedback compensation.
#include "CoreRig.h"

#include <gtest/gtest.h>

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

TEST_F(CoreIntake, FeedbackCompensationFollowsOnlyPositiveAmountsAndTheLink)
{
    setBool(Param::feedbackLink, true);
    setFloat(Param::feedbackLeft, 1.0f);
    const float atTop = VelmarinCore::feedbackCompensation(0.95f);
    EXPECT_FLOAT_EQ(q().feedback.right(), 0.95f);
    EXPECT_EQ(q().feedbackCompensationLeft, atTop);
    EXPECT_EQ(q().feedbackCompensationRight, atTop);
    setFloat(Param::feedbackLeft, 0.0f);
    EXPECT_FLOAT_EQ(q().feedback.left(), -0.95f);
    EXPECT_EQ(q().feedbackCompensationLeft, atTop) << "a negative amount keeps the last compensation";

    // R/S is inaudible while linked and takes over, compensation included, when released.
    setFloat(Param::feedbackLeft, 0.5f);
    const auto rightBefore = q().feedback.right();
    const auto compensationBefore = q().feedbackCompensationRight;
    setFloat(Param::feedbackRight, 0.9f);
    EXPECT_EQ(q().feedback.right(), rightBefore);
    EXPECT_EQ(q().feedbackCompensationRight, compensationBefore);
    setBool(Param::feedbackLink, false);
    EXPECT_FLOAT_EQ(q().feedback.right(), 0.9f * 1.9f - 0.95f);
    EXPECT_EQ(q().feedbackCompensationRight, VelmarinCore::feedbackCompensation(q().feedback.right()));
}

TEST_F(CoreIntake, NoteChoicesCountFromOneAndOutOfRangeChoicesChangeNothing)
{
    setChoice(Param::lfoNoteRateLeft, 7);
    EXPECT_EQ(core.getLfo(0).getNoteCode(), 8);
    setChoice(Param::lfoNoteRateLeft, 12);
    EXPECT_EQ(core.getLfo(0).getNoteCode(), 8);
    setChoice(Param::lfoNoteRateRight, 10);
    EXPECT_EQ(q().noteCodeRight, 11);

    setFloat(Param::lfoPhaseShift, 1.0f);
    EXPECT_EQ(core.getLfo(0).getPhaseOffset(), 0.0) << "the shift moves the right oscillator only";
    setChoice(Param::bbdLength, 5);
    EXPECT_EQ(core.getStageCount(), 512);
}
