#include "engine/MarrowgateEffectCore.h"
#include "engine/SampleRateContext.h"

#include <gtest/gtest.h>

TEST(SampleRateContext, CoefficientsTunedAt44100StayUnscaledThereAndAnEqualRateChangesNothing)
{
    SampleRateContext c;
    EXPECT_TRUE(c.set(44100.0));
    EXPECT_EQ(c.speedScale, 1.0);
    EXPECT_EQ(c.expandScale, 1.0);
    EXPECT_NEAR(c.decayScale, 1.0, 1e-4);
    EXPECT_FALSE(c.set(44100.0));

    const double rates[] = {44100.0, 48000.0, 88200.0, 96000.0, 192000.0};
    for (int i = 0; i < 5; ++i)
    {
        c.set(rates[i]);
        EXPECT_EQ(c.rateClass, i) << rates[i];
        EXPECT_DOUBLE_EQ(c.inverseDecayScale * c.decayScale, 1.0) << rates[i];
    }
    c.set(32000.0);
    EXPECT_EQ(c.rateClass, 4) << "an unlisted rate keeps the class it had";
}

TEST(MarrowgateEffectCore, MeterTableIsSymmetricRisesWithLevelAndStaysInRange)
{
    MarrowgateEffectCore core;
    EXPECT_EQ(core.meterTable[200], 0.0) << "silence";
    EXPECT_EQ(core.meterTable[300], 0.8) << "full scale";
    for (int i = 1; i < 100; ++i)
    {
        ASSERT_EQ(core.meterTable[200 + i], core.meterTable[200 - i]) << i;
        ASSERT_GE(core.meterTable[200 + i + 1], core.meterTable[200 + i]) << i;
    }
    EXPECT_LE(core.meterTable[399], 1.0);
}
