// The LFOs: waves, rates, tempo lock, the link between the channels and the phase shift.
#include "CoreRig.h"
#include "engine/LfoOscillator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
constexpr double twoPi = 6.283185307179586;

void startOscillator(LfoOscillator& lfo, const SampleRateContext& context, double rate)
{
    lfo.context = &context;
    lfo.freeRate = rate;
    lfo.updateRate();
}
} // namespace

TEST(LfoOscillator, TriangleRisesFromItsBottomAndWavesStayInRange)
{
    SampleRateContext context;
    context.set(44100.0);
    LfoOscillator lfo;
    startOscillator(lfo, context, 441.0); // 100 samples per cycle
    float out = 0.0f;
    lfo.next(out);
    EXPECT_EQ(out, -1.0f);
    for (int i = 1; i < 50; ++i)
    {
        const float before = out;
        lfo.next(out);
        ASSERT_GT(out, before) << i;
    }
    lfo.next(out);
    EXPECT_NEAR(out, 1.0f, 1e-6f);

    for (int wave = 0; wave <= 6; ++wave)
    {
        LfoOscillator shaped;
        startOscillator(shaped, context, 97.0);
        shaped.waveform = wave;
        for (int i = 0; i < 2000; ++i)
        {
            shaped.next(out);
            ASSERT_GE(out, -1.0f) << wave;
            ASSERT_LE(out, 1.0f) << wave;
            ASSERT_GE(shaped.wavePhase, 0.0) << wave;
            ASSERT_LE(shaped.wavePhase, twoPi) << wave;
        }
    }

    LfoOscillator unknown;
    startOscillator(unknown, context, 97.0);
    unknown.waveform = 9;
    out = 0.25f;
    unknown.next(out);
    EXPECT_EQ(out, 0.25f) << "an unknown wave leaves the output as it was";
}

TEST(LfoOscillator, RandomStepsChangeOncePerCycle)
{
    SampleRateContext context;
    context.set(44100.0);
    LfoOscillator lfo;
    startOscillator(lfo, context, 441.0);
    lfo.waveform = LfoOscillator::randomSteps;
    float out = 0.0f;
    int changes = 0;
    float last = 0.0f;
    for (int i = 0; i < 1000; ++i)
    {
        lfo.next(out);
        if (out != last)
            ++changes;
        last = out;
    }
    EXPECT_EQ(changes, 10);
}

TEST(LfoModulation, TempoSyncLocksThePhaseToTheHostPosition)
{
    CoreRig rig;
    rig.setChoice(8, 7);   // "1/4": one cycle per quarter note
    rig.setChoice(17, 3);  // "Full"
    rig.core.setTempo(120.0);
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).rate, 2.0);
    EXPECT_DOUBLE_EQ(rig.core.getLfo(1).rate, 2.0) << "the link carries the note to the right";

    rig.core.setPosition(10.25);
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).phase, twoPi * 0.25);
    rig.core.setPosition(-0.25);
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).phase, twoPi * 0.75) << "a negative position still gives 0..2 pi";

    rig.setChoice(17, 1);  // "Triplet": 1.5 times as fast
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).rate, 3.0);
    rig.setChoice(17, 2);  // "Dotted": two thirds
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).rate, 2.0 * 0.6666666666666666);
    rig.setChoice(17, 0);
    EXPECT_EQ(rig.core.getLfo(0).rate, rig.core.getLfo(0).freeRate);
    rig.core.setPosition(3.5);
    EXPECT_NE(rig.core.getLfo(0).phase, twoPi * 0.5) << "free oscillators are not re-locked";

    rig.setChoice(17, 3);
    rig.core.setTempo(0.0);
    EXPECT_EQ(rig.core.getLfo(0).rate, 0.0) << "no tempo yet: the oscillator stands";
}

TEST(LfoModulation, RateLinkStoresTheRightRateAndAppliesItWhenReleased)
{
    CoreRig rig;
    rig.runStereo(testSignal(300));
    const double leftRate = rig.core.getLfo(0).freeRate;

    rig.setFloat(7, 0.9f);
    rig.setChoice(9, 2);
    EXPECT_EQ(rig.core.getLfo(1).freeRate, leftRate) << "stored, not applied, while linked";
    EXPECT_EQ(rig.core.getLfo(1).clock.division.noteCode, rig.core.getLfo(0).clock.division.noteCode);

    rig.runStereo(testSignal(100));
    const double phaseBefore = rig.core.getLfo(1).phase;
    rig.setBool(10, false);
    EXPECT_EQ(rig.core.getLfo(1).freeRate, VelmarinCore::lfoRateForNormalized(0.9f));
    EXPECT_EQ(rig.core.getLfo(1).clock.division.noteCode, 3);
    EXPECT_EQ(rig.core.getLfo(1).phase, phaseBefore) << "the right phase runs on from where it stood";

    // Linking again snaps the right oscillator onto the left one.
    rig.runStereo(testSignal(100));
    EXPECT_NE(rig.core.getLfo(1).phase, rig.core.getLfo(0).phase);
    rig.setBool(10, true);
    EXPECT_EQ(rig.core.getLfo(1).phase, rig.core.getLfo(0).phase);
    EXPECT_EQ(rig.core.getLfo(1).freeRate, leftRate);
}

TEST(LfoModulation, PhaseShiftKeepsItsOffsetAndZeroRealignsTheChannels)
{
    CoreRig rig;
    rig.setFloat(18, 0.5f);
    rig.runStereo(testSignal(1000));
    EXPECT_EQ(rig.core.getLfo(1).phaseOffset, static_cast<double>(0.5f) * 3.141592653589793);
    EXPECT_EQ(rig.core.getLfo(0).phase, rig.core.getLfo(1).phase) << "linked rates share the phase; the offset stays on top";

    // Different rates drift apart; a shift of exactly 0 brings them back in step.
    rig.setBool(10, false);
    rig.setFloat(7, 0.9f);
    rig.runStereo(testSignal(1000));
    EXPECT_NE(rig.core.getLfo(0).phase, rig.core.getLfo(1).phase);
    rig.setFloat(18, 0.0f);
    EXPECT_EQ(rig.core.getLfo(0).phase, rig.core.getLfo(1).phase);
    EXPECT_EQ(rig.core.getLfo(1).phaseOffset, 0.0);
}
