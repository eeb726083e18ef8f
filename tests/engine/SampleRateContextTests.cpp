#include "engine/MarrowgateEffectCore.h"
#include "engine/SampleRateContext.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(SampleRateContext, At44100EveryScaleIsNeutral)
{
    SampleRateContext c;
    EXPECT_EQ(c.sampleRate, -1.0);
    EXPECT_TRUE(c.set(44100.0));
    EXPECT_EQ(c.speedScale, 1.0);
    EXPECT_EQ(c.inverseRatio, 1.0);
    EXPECT_DOUBLE_EQ(c.rateRatio, 1.0);
    EXPECT_EQ(c.expandScale, 1.0);
    EXPECT_NEAR(c.decayScale, 1.0, 1e-4);
    EXPECT_EQ(c.rateClass, 0);
    EXPECT_DOUBLE_EQ(c.smoothStep, 0.002);
    EXPECT_FLOAT_EQ(c.smoothStepFast, 0.005f);
    EXPECT_DOUBLE_EQ(c.samplesPerMs, 44.1);
    EXPECT_FALSE(c.set(44100.0)) << "an equal rate changes nothing";
}

TEST(SampleRateContext, DerivesScalesFromOtherRates)
{
    SampleRateContext c;
    ASSERT_TRUE(c.set(96000.0));
    const double q = 44100.0 / 96000.0;
    const double s = 2.0 * (1.0 - std::pow(0.5, q));
    EXPECT_DOUBLE_EQ(c.speedScale, s);
    EXPECT_DOUBLE_EQ(c.speedScaleCubed, s * s * s);
    EXPECT_DOUBLE_EQ(c.expandScale, std::pow(2.0, q) - 1.0);
    EXPECT_EQ(c.expandScaleRounded, static_cast<double>(static_cast<float>(c.expandScale)));
    EXPECT_DOUBLE_EQ(c.halfSamplePeriod, 1.0 / 192000.0);
    EXPECT_DOUBLE_EQ(c.slowDecay, 1.0 - 0.0001 * s);
    EXPECT_DOUBLE_EQ(c.inverseDecayScale * c.decayScale, 1.0);
    EXPECT_EQ(c.rateClass, 3);

    const int classes[] = {0, 1, 2, 3, 4};
    const double rates[] = {44100.0, 48000.0, 88200.0, 96000.0, 192000.0};
    for (int i = 0; i < 5; ++i)
    {
        c.set(rates[i]);
        EXPECT_EQ(c.rateClass, classes[i]) << rates[i];
    }
    c.set(32000.0);
    EXPECT_EQ(c.rateClass, 4) << "an unlisted rate keeps the class it had";
}

TEST(MarrowgateEffectCore, MeterTableMapsLevelsToPositions)
{
    MarrowgateEffectCore core;
    EXPECT_EQ(core.meterTable[200], 0.0) << "silence";
    EXPECT_EQ(core.meterTable[300], 0.8) << "x = 1.0 is 0 dB";
    EXPECT_EQ(core.meterTable[100], 0.8) << "x = -1.0 is 0 dB too";
    EXPECT_NEAR(core.meterTable[250], 20.0 * std::log10(0.5) / 30.0 + 0.8, 1e-12);
    EXPECT_NEAR(core.meterTable[399], 20.0 * std::log10(1.99) / 30.0 + 0.8, 1e-12);
    EXPECT_EQ(core.meterTable[201], 0.0) << "-40 dB is below the bottom";
}
