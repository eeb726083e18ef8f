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
    lfo.setContext(&context);
    lfo.setFreeRate(rate);
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
        shaped.setWaveform(wave);
        for (int i = 0; i < 2000; ++i)
        {
            shaped.next(out);
            ASSERT_GE(out, -1.0f) << wave;
            ASSERT_LE(out, 1.0f) << wave;
            ASSERT_GE(shaped.getWavePhase(), 0.0) << wave;
            ASSERT_LE(shaped.getWavePhase(), twoPi) << wave;
        }
    }

    LfoOscillator unknown;
    startOscillator(unknown, context, 97.0);
    unknown.setWaveform(9);
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
    lfo.setWaveform(LfoOscillator::randomSteps);
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
    rig.setChoice(Param::lfoNoteRateLeft, 7); // "1/4": one cycle per quarter note
    rig.setChoice(Param::lfoSync, 3);         // "Full"
    rig.core.setTempo(120.0);
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).getRate(), 2.0);
    EXPECT_DOUBLE_EQ(rig.core.getLfo(1).getRate(), 2.0) << "the link carries the note to the right";

    rig.core.setPosition(10.25);
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).getPhase(), twoPi * 0.25);
    rig.core.setPosition(-0.25);
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).getPhase(), twoPi * 0.75) << "a negative position still gives 0..2 pi";

    rig.setChoice(Param::lfoSync, 1); // "Triplet": 1.5 times as fast
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).getRate(), 3.0);
    rig.setChoice(Param::lfoSync, 2); // "Dotted": two thirds
    EXPECT_DOUBLE_EQ(rig.core.getLfo(0).getRate(), 2.0 * 0.6666666666666666);
    rig.setChoice(Param::lfoSync, 0);
    EXPECT_EQ(rig.core.getLfo(0).getRate(), rig.core.getLfo(0).getFreeRate());
    rig.core.setPosition(3.5);
    EXPECT_NE(rig.core.getLfo(0).getPhase(), twoPi * 0.5) << "free oscillators are not re-locked";

    rig.setChoice(Param::lfoSync, 3);
    rig.core.setTempo(0.0);
    EXPECT_EQ(rig.core.getLfo(0).getRate(), 0.0) << "no tempo yet: the oscillator stands";
}

TEST(LfoModulation, RateLinkStoresTheRightRateAndAppliesItWhenReleased)
{
    CoreRig rig;
    rig.runStereo(testSignal(300));
    const double leftRate = rig.core.getLfo(0).getFreeRate();

    rig.setFloat(Param::lfoRateRight, 0.9f);
    rig.setChoice(Param::lfoNoteRateRight, 2);
    EXPECT_EQ(rig.core.getLfo(1).getFreeRate(), leftRate) << "stored, not applied, while linked";
    EXPECT_EQ(rig.core.getLfo(1).getNoteCode(), rig.core.getLfo(0).getNoteCode());

    rig.runStereo(testSignal(100));
    const double phaseBefore = rig.core.getLfo(1).getPhase();
    rig.setBool(Param::lfoRateLink, false);
    EXPECT_EQ(rig.core.getLfo(1).getFreeRate(), VelmarinCore::lfoRateForNormalized(0.9f));
    EXPECT_EQ(rig.core.getLfo(1).getNoteCode(), 3);
    EXPECT_EQ(rig.core.getLfo(1).getPhase(), phaseBefore) << "the right phase runs on from where it stood";

    // Linking again snaps the right oscillator onto the left one.
    rig.runStereo(testSignal(100));
    EXPECT_NE(rig.core.getLfo(1).getPhase(), rig.core.getLfo(0).getPhase());
    rig.setBool(Param::lfoRateLink, true);
    EXPECT_EQ(rig.core.getLfo(1).getPhase(), rig.core.getLfo(0).getPhase());
    EXPECT_EQ(rig.core.getLfo(1).getFreeRate(), leftRate);
}

TEST(LfoModulation, PhaseShiftKeepsItsOffsetAndZeroRealignsTheChannels)
{
    CoreRig rig;
    rig.setFloat(Param::lfoPhaseShift, 0.5f);
    rig.runStereo(testSignal(1000));
    EXPECT_EQ(rig.core.getLfo(1).getPhaseOffset(), static_cast<double>(0.5f) * 3.141592653589793);
    EXPECT_EQ(rig.core.getLfo(0).getPhase(), rig.core.getLfo(1).getPhase())
        << "linked rates share the phase; the offset stays on top";

    // Different rates drift apart; a shift of exactly 0 brings them back in step.
    rig.setBool(Param::lfoRateLink, false);
    rig.setFloat(Param::lfoRateRight, 0.9f);
    rig.runStereo(testSignal(1000));
    EXPECT_NE(rig.core.getLfo(0).getPhase(), rig.core.getLfo(1).getPhase());
    rig.setFloat(Param::lfoPhaseShift, 0.0f);
    EXPECT_EQ(rig.core.getLfo(0).getPhase(), rig.core.getLfo(1).getPhase());
    EXPECT_EQ(rig.core.getLfo(1).getPhaseOffset(), 0.0);
}
