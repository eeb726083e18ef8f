// The fixed tables and laws of the line: interpolator tables, the band-limited step, the voltage
// curves, the note table and the frequency read-out.
#include "engine/Clock.h"
#include "engine/FrequencyReadout.h"
#include "engine/SincTable.h"
#include "engine/VelmarinCore.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(SincTable, PeakSitsAtTheCentreJustOffTheMiddleAndRowsRunBackwardsInTime)
{
    for (int taps : {4, 8, 16, 32})
    {
        SincTable table(taps);
        const int n = taps * 1024;
        const int centre = (n - 2) / 2;
        EXPECT_EQ(*std::max_element(table.raw.get(), table.raw.get() + n), table.raw[centre]) << taps;
        EXPECT_EQ(table.raw[n - 1], 0.0f) << taps;
        // Whole-sample phases of the sinc vanish away from the centre.
        EXPECT_NEAR(table.raw[centre - 1024], 0.0f, 1e-6f) << taps;

        // Polyphase: tap k of phase p is at p * taps + (taps - 1 - k).
        for (int p : {0, 511, 1023})
            for (int k = 0; k < taps; ++k)
                ASSERT_EQ(table.polyphase[p * taps + (taps - 1 - k)], table.raw[k * 1024 + p]);

        // The centre falls on tap taps / 2 - 1 at the last phase.
        EXPECT_EQ(centre / 1024, taps / 2 - 1);
        EXPECT_EQ(centre % 1024, 1023);
    }
}

TEST(StepTable, RisesFromZeroToOneAndArrivesLaterForLaterTicks)
{
    StepTable table{};
    buildStepTable(table);
    for (int r = 0; r < 512; ++r)
    {
        EXPECT_NEAR(table[static_cast<size_t>(r)][0], 0.0f, 2e-3f);
        EXPECT_NEAR(table[static_cast<size_t>(r)][7], 1.0f, 2e-3f);
    }
    // Half-way at k = 3 + r / 512: a step at the start of a sample is half there three samples on,
    // one made later is less far.
    EXPECT_NEAR(table[0][3], 0.5f, 5e-3f);
    EXPECT_LT(table[256][3], table[0][3]);
    EXPECT_GT(table[256][4], 0.5f);
    EXPECT_LT(table[511][3], table[256][3]);
}

TEST(VoltageCurves, MeetAtTheEndsAndDifferInTheMiddle)
{
    for (int curve : {0, 1, 2})
    {
        EXPECT_NEAR(VelmarinCore::voltageToFrequency(0.661, curve), 675750.0, 1.0) << curve;
        EXPECT_NEAR(VelmarinCore::voltageToFrequency(32.661, curve), 17162.65, 0.05) << curve;
    }
    EXPECT_NEAR(VelmarinCore::voltageToFrequency(16.661, 0), 33475.0, 5.0);
    EXPECT_NEAR(VelmarinCore::voltageToFrequency(16.661, 1), 80000.0, 50.0);
    EXPECT_NEAR(VelmarinCore::voltageToFrequency(16.661, 2), 280000.0, 500.0);
    EXPECT_EQ(VelmarinCore::voltageToFrequency(5.0, 7), VelmarinCore::voltageToFrequency(5.0, 0))
        << "an unknown curve counts as the first";
}

TEST(ClockDivision, UnknownCodesGiveNoRateDotsWaitForRefreshAndPhaseStaysInACycle)
{
    EXPECT_EQ(ClockDivision::noteRateForCode(13), 0.0);
    EXPECT_EQ(ClockDivision::noteRateForCode(-1), 0.0);
    EXPECT_EQ(ClockDivision::multiplierForDotType(3), 0.0);

    Clock clock;
    EXPECT_EQ(clock.division.readEffectiveRate(), 4.0);
    clock.division.setNoteCode(8);
    EXPECT_TRUE(clock.division.setDotType(2));
    EXPECT_FALSE(clock.division.setDotType(2));
    EXPECT_EQ(clock.division.readEffectiveRate(), 4.0) << "effective only after refresh";
    clock.division.refresh();
    EXPECT_EQ(clock.division.readEffectiveRate(), 1.5);

    clock.position = 2.0;
    EXPECT_EQ(clock.phaseInCycle(), 0.0) << "exactly 0 at a whole cycle";
    clock.position = -0.5;
    EXPECT_DOUBLE_EQ(clock.phaseInCycle(), 0.25) << "a negative position still lands in 0..1";
    clock.position = 0.1;
    EXPECT_TRUE(clock.isInFirstHalf());
    clock.position = 0.6;
    EXPECT_FALSE(clock.isInFirstHalf());
}

TEST(FrequencyReadout, KeepsFiveCharactersAcrossTheBranches)
{
    EXPECT_EQ(bbdFrequencyText(0.0f), "");
    EXPECT_EQ(bbdFrequencyText(440.4f), "  440");
    EXPECT_EQ(bbdFrequencyText(9999.6f), "10000") << "the branch is chosen before rounding";
    EXPECT_EQ(bbdFrequencyText(12345.0f), "12.3k");
    EXPECT_EQ(bbdFrequencyText(99999.0f), " 99k") << "floored, with its leading blank";
    EXPECT_EQ(bbdFrequencyText(123999.0f), " 123k");
    EXPECT_EQ(bbdFrequencyText(999999.0f), "1.00M");
    EXPECT_EQ(bbdFrequencyText(1351500.0f), "1.35M");
}
