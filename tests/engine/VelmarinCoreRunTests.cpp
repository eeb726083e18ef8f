// The run: what a careless signal path gets wrong at its boundaries.
#include "CoreRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{
float peakOf(const std::vector<float>& x, size_t from = 0)
{
    float peak = 0.0f;
    for (size_t i = from; i < x.size(); ++i)
        peak = std::max(peak, std::abs(x[i]));
    return peak;
}

size_t indexOfPeak(const std::vector<float>& x)
{
    return static_cast<size_t>(
        std::max_element(x.begin(), x.end(), [](float a, float b) { return std::abs(a) < std::abs(b); }) - x.begin());
}

/** Wet only, in the plain mixer: output = wet path. */
void wetOnly(CoreRig& rig)
{
    rig.setBool(Param::autoMixMode, false);
    rig.setFloat(Param::fxAmount, 1.0f);
}
} // namespace

TEST(CoreRun, ClockFrequencyAtRestMatchesTheVoltageLaw)
{
    CoreRig rig;
    rig.setFloat(Param::delayOffsetLeft, 0.0f);
    rig.setFloat(Param::lfoDepthLeft, 0.0f);
    rig.runStereo(testSignal(64));
    rig.prepare(44100.0); // a repeated prepare settles every smoother on its target
    rig.runStereo(testSignal(64));
    // V = 0.661: 675750 Hz on every curve, times R = 4, times 256 / 512.
    EXPECT_NEAR(rig.core.currentBbdFrequency.load(), 1351500.0f, 2.0f);
}

TEST(CoreRun, WetPathStartsSilentAndDryPathIsOneSampleLate)
{
    CoreRig rig;
    wetOnly(rig);
    rig.setFloat(Param::bbdFrequencyRange, 0.0f); // slowest range, so the line takes many samples to fill
    rig.setChoice(Param::bbdLength, 5);           // 512 stages
    rig.setFloat(Param::delayOffsetLeft, 1.0f);
    rig.runStereo(silence(16)); // the mixer's controls glide from 0 in the first run after construction
    rig.prepare(44100.0);
    const auto wet = rig.runStereo(testSignal(4000));
    for (size_t i = 0; i < 100; ++i)
        ASSERT_EQ(wet.left[i], 0.0f) << i;
    EXPECT_GT(peakOf(wet.left, 3000), 0.05f) << "the wet signal arrives once the line has filled";

    CoreRig dryRig;
    dryRig.setBool(Param::autoMixMode, false);
    dryRig.setFloat(Param::fxAmount, 0.0f);
    dryRig.prepare(44100.0);
    dryRig.runStereo(silence(16));
    dryRig.prepare(44100.0); // output volume settled at unity
    const auto input = testSignal(256);
    const auto dry = dryRig.runStereo(input);
    EXPECT_EQ(dry.left[0], 0.0f);
    for (size_t i = 1; i < 256; ++i)
    {
        ASSERT_EQ(dry.left[i], input.left[i - 1]) << i;
        ASSERT_EQ(dry.right[i], input.right[i - 1]) << i;
    }
}

TEST(CoreRun, BypassIsAOneSampleDelayThatFreezesTheEngine)
{
    CoreRig rig;
    rig.runStereo(testSignal(500));
    const double phase = rig.core.getLfo(0).getPhase();
    const auto input = testSignal(300);
    const auto out = rig.runStereo(input, 128, true);
    for (size_t i = 1; i < 300; ++i)
        ASSERT_EQ(out.left[i], input.left[i - 1]) << i;
    EXPECT_EQ(rig.core.getLfo(0).getPhase(), phase);
    EXPECT_EQ(rig.core.currentBbdFrequency.load(), 0.0f);
}

TEST(CoreRun, RepeatedPrepareKeepsLfoPhasesAndARateChangeRestartsThem)
{
    CoreRig rig;
    rig.runStereo(testSignal(1000));
    const double phase = rig.core.getLfo(0).getPhase();
    ASSERT_GT(phase, 0.0);
    rig.prepare(44100.0);
    EXPECT_EQ(rig.core.getLfo(0).getPhase(), phase);
    rig.prepare(48000.0);
    EXPECT_EQ(rig.core.getLfo(0).getPhase(), 0.0);
}

TEST(CoreRun, RateChangeRederivesEverythingThatDependsOnTheRate)
{
    // A core moved from 44100 to 96000 Hz must sound exactly like one that only ever ran at 96000.
    CoreRig moved(44100.0);
    moved.setFloat(Param::lfoDepthLeft, 0.0f);
    moved.runStereo(silence(256));
    moved.prepare(96000.0);

    CoreRig native(96000.0);
    native.setFloat(Param::lfoDepthLeft, 0.0f);
    native.runStereo(silence(256));
    native.prepare(96000.0);

    const auto input = testSignal(3000, 96000.0);
    const auto a = moved.runStereo(input);
    const auto b = native.runStereo(input);
    ASSERT_GT(peakOf(a.left), 0.01f);
    for (size_t i = 0; i < a.left.size(); ++i)
    {
        ASSERT_EQ(a.left[i], b.left[i]) << i;
        ASSERT_EQ(a.right[i], b.right[i]) << i;
    }
}

TEST(CoreRun, QualitySwitchKeepsTheWetSignalInPlace)
{
    std::vector<size_t> peaks;
    for (int quality = 0; quality < 4; ++quality)
    {
        CoreRig rig;
        wetOnly(rig);
        rig.setFloat(Param::lfoDepthLeft, 0.0f);
        rig.setChoice(Param::lowCut, 0);
        rig.setChoice(Param::processingQuality, quality);
        rig.runStereo(silence(64));
        rig.prepare(44100.0);
        auto impulse = silence(400);
        impulse.left[100] = 0.5f;
        peaks.push_back(indexOfPeak(rig.runStereo(impulse).left));
    }
    EXPECT_EQ(peaks[0], peaks[1]);
    EXPECT_EQ(peaks[1], peaks[2]);
    EXPECT_EQ(peaks[2], peaks[3]);
    EXPECT_GT(peaks[0], 110u);
}

TEST(CoreRun, AutoMixIgnoresTheMixerControlsAndVolumeZeroSilences)
{
    const auto input = testSignal(2000);
    CoreRig plain;
    const auto reference = plain.runStereo(input);

    CoreRig moved;
    moved.setFloat(Param::fxAmount, 0.1f);
    moved.setFloat(Param::gainLeft, 0.2f);
    moved.setFloat(Param::gainRight, 0.7f);
    const auto out = moved.runStereo(input);
    EXPECT_EQ(out.left, reference.left);
    EXPECT_EQ(out.right, reference.right);

    CoreRig muted;
    muted.setFloat(Param::outputVolume, 0.0f);
    muted.runStereo(input);
    muted.prepare(44100.0);
    const auto silent = muted.runStereo(input);
    EXPECT_EQ(peakOf(silent.left), 0.0f);
    EXPECT_EQ(peakOf(silent.right), 0.0f);
}

TEST(CoreRun, FeedbackLinkHoldsBackTheRightSideUntilReleased)
{
    const auto input = testSignal(3000);
    CoreRig reference;
    const auto base = reference.runStereo(input);

    CoreRig linked;
    linked.setFloat(Param::feedbackRight, 0.95f); // "Feedback R/S" while the link is on
    EXPECT_EQ(linked.runStereo(input).right, base.right);

    CoreRig released;
    released.setFloat(Param::feedbackRight, 0.95f);
    released.setBool(Param::feedbackLink, false);
    EXPECT_NE(released.runStereo(input).right, base.right);
}

TEST(CoreRun, SilenceGateHoldsThenFadesOverAHundredMilliseconds)
{
    CoreRig rig;
    rig.runStereo(testSignal(2000));
    // hold decays by 0.9996 per sample: below -96 dB after 27720 samples, then 4410 samples of fade.
    rig.runStereo(silence(27600));
    EXPECT_TRUE(rig.core.getGate().isActive(0));
    EXPECT_FALSE(rig.core.getGate().isFading(0));
    rig.runStereo(silence(200));
    EXPECT_TRUE(rig.core.getGate().isFading(0));
    const auto fading = rig.runStereo(silence(4300));
    EXPECT_TRUE(rig.core.getGate().isActive(0));
    EXPECT_GT(peakOf(fading.left), 0.0f) << "the wet tail fades rather than stopping";
    rig.runStereo(silence(200));
    EXPECT_FALSE(rig.core.getGate().isActive(0));
    EXPECT_FALSE(rig.core.getGate().isActive(1));

    const auto shut = rig.runStereo(silence(512));
    EXPECT_EQ(peakOf(shut.left), 0.0f);
    EXPECT_EQ(rig.core.currentBbdFrequency.load(), 0.0f) << "a shut gate reads out no clock";

    auto wake = silence(64);
    wake.right[10] = 0.1f;
    rig.runStereo(wake);
    EXPECT_TRUE(rig.core.getGate().isActive(1)) << "any input above the threshold reopens the channel";
    EXPECT_GT(rig.core.currentBbdFrequency.load(), 0.0f);
}

TEST(CoreRun, MonoRunIgnoresStereoControlsAndNeverShuts)
{
    const auto input = testSignal(3000).left;
    CoreRig reference;
    const auto base = reference.runMono(input);

    CoreRig stereoControls;
    stereoControls.setBool(Param::msMode, true);
    stereoControls.setFloat(Param::channelsCrossfade, 0.7f);
    EXPECT_EQ(stereoControls.runMono(input), base);
    EXPECT_EQ(stereoControls.core.peakLeft.load(), stereoControls.core.peakRight.load());

    // The second channel's gate is never cleared by a mono run, so the path keeps working.
    stereoControls.runMono(std::vector<float>(40000, 0.0f));
    EXPECT_TRUE(stereoControls.core.getGate().isActive(1));
    EXPECT_GT(stereoControls.core.currentBbdFrequency.load(), 0.0f);
}

TEST(CoreRun, ResultDoesNotDependOnHowTheBlockIsCut)
{
    // Signal, a gap long enough to shut the gate, then the left channel alone: with the crossfade the
    // right output carries the left signal through a channel whose gate is still shut and fading.
    auto input = testSignal(5000);
    const auto gap = silence(36000);
    const auto tail = testSignal(6000);
    input.left.insert(input.left.end(), gap.left.begin(), gap.left.end());
    input.right.insert(input.right.end(), gap.right.begin(), gap.right.end());
    input.left.insert(input.left.end(), tail.left.begin(), tail.left.end());
    input.right.resize(input.left.size(), 0.0f);

    CoreRig whole, pieces, single;
    for (auto* rig : {&whole, &pieces, &single})
        rig->setFloat(Param::channelsCrossfade, 0.5f);
    const auto a = whole.runStereo(input, static_cast<int>(input.left.size()));
    const auto b = pieces.runStereo(input, 37);
    EXPECT_EQ(a.left, b.left);
    EXPECT_EQ(a.right, b.right);
    EXPECT_EQ(single.runStereo(input, 1).right, a.right);

    EXPECT_EQ(peakOf(std::vector<float>(a.left.begin() + 38000, a.left.begin() + 41000)), 0.0f) << "shut";
    EXPECT_GT(peakOf(a.right, 41000), 0.0f) << "the right line hears the left through the crossfade";
}

TEST(CoreRun, PlainTickLoopGivesTheFastLoopsOutputBitForBit)
{
    // Every quality, at the heaviest clock and at a swept default with strong feedback (which would
    // amplify any difference in rounding), stereo and mono, in runs of odd length.
    for (int quality = 0; quality < 4; ++quality)
        for (const bool worstCase : {true, false})
        {
            CoreRig fast, plain;
            plain.core.setTickLoop(VelmarinCore::TickLoop::plain);
            for (auto* rig : {&fast, &plain})
            {
                rig->setChoice(Param::processingQuality, quality);
                if (worstCase)
                {
                    rig->setChoice(Param::bbdLength, 5); // 512 stages
                    rig->setFloat(Param::bbdFrequencyRange, 1.0f);
                    rig->setFloat(Param::lfoDepthLeft, 0.0f);
                    rig->setFloat(Param::delayOffsetLeft, 0.0f);
                }
                else
                {
                    rig->setFloat(Param::feedbackLeft, 0.97f);
                }
                rig->core.reset(true);
            }
            const auto input = testSignal(22050);
            const auto a = fast.runStereo(input, 373);
            const auto b = plain.runStereo(input, 373);
            ASSERT_GT(peakOf(a.left), 0.01f);
            EXPECT_EQ(a.left, b.left) << "quality " << quality << (worstCase ? " worst case" : " default");
            EXPECT_EQ(a.right, b.right) << "quality " << quality << (worstCase ? " worst case" : " default");
            EXPECT_EQ(fast.core.getTicksRun(), plain.core.getTicksRun());
            EXPECT_EQ(fast.runMono(input.left), plain.runMono(input.left)) << "quality " << quality;
        }
}

TEST(CoreRun, ShutGateShortcutGivesTheFullPathsOutputBitForBit)
{
    // Signal with feedback, a silence that shuts both channels, a click on the right alone (which
    // reopens one channel while the other stays shut), more silence, then signal again. The LFOs,
    // the smoothers (a parameter moves while shut), the gate and the meters must come out of the
    // shortcut exactly where the full path leaves them.
    Stereo input = testSignal(4000);
    const auto gap = silence(40000);
    for (int part = 0; part < 2; ++part)
    {
        input.left.insert(input.left.end(), gap.left.begin(), gap.left.end());
        input.right.insert(input.right.end(), gap.right.begin(), gap.right.end());
        if (part == 0)
            input.right.back() = 0.2f;
    }
    const auto tail = testSignal(6000);
    input.left.insert(input.left.end(), tail.left.begin(), tail.left.end());
    input.right.insert(input.right.end(), tail.right.begin(), tail.right.end());

    CoreRig shortcut, full;
    full.core.setShutShortcut(false);
    Stereo outShortcut, outFull;
    for (auto [rig, out] : {std::pair{&shortcut, &outShortcut}, std::pair{&full, &outFull}})
    {
        rig->setFloat(Param::feedbackLeft, 0.9f);
        rig->setFloat(Param::lfoPhaseShift, 0.3f);
        const Stereo first{{input.left.begin(), input.left.begin() + 40000},
                           {input.right.begin(), input.right.begin() + 40000}};
        const Stereo rest{{input.left.begin() + 40000, input.left.end()},
                          {input.right.begin() + 40000, input.right.end()}};
        *out = rig->runStereo(first, 301);
        EXPECT_TRUE(rig->core.getGate().isShut());
        rig->setFloat(Param::lfoDepthLeft, 0.8f);
        const auto second = rig->runStereo(rest, 301);
        out->left.insert(out->left.end(), second.left.begin(), second.left.end());
        out->right.insert(out->right.end(), second.right.begin(), second.right.end());
    }

    EXPECT_EQ(outShortcut.left, outFull.left);
    EXPECT_EQ(outShortcut.right, outFull.right);
    EXPECT_GT(peakOf(outShortcut.left, outShortcut.left.size() - 2000), 0.0f);
    EXPECT_EQ(shortcut.core.getLfo(0).getPhase(), full.core.getLfo(0).getPhase());
    EXPECT_EQ(shortcut.core.getLfo(1).getPhase(), full.core.getLfo(1).getPhase());
    EXPECT_EQ(shortcut.core.peakLeft.load(), full.core.peakLeft.load());
    EXPECT_EQ(shortcut.core.peakRight.load(), full.core.peakRight.load());
    EXPECT_EQ(shortcut.core.currentBbdFrequency.load(), full.core.currentBbdFrequency.load());
}

TEST(CoreRun, TickCountFollowsTheClock)
{
    // The tick count is the clock: 256 stages at rest run at about 1.35 MHz.
    CoreRig rig;
    rig.setFloat(Param::lfoDepthLeft, 0.0f);
    rig.setFloat(Param::delayOffsetLeft, 0.0f);
    rig.runStereo(testSignal(64));
    rig.prepare(44100.0); // settles every smoother on its target
    const auto before = rig.core.getTicksRun();
    rig.runStereo(testSignal(44100));
    EXPECT_NEAR(static_cast<double>(rig.core.getTicksRun() - before) / 2.0, 1351500.0, 2.0);
}
