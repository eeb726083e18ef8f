// The run: what a careless signal path gets wrong at its boundaries.
#include "CoreRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>
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

TEST(CoreRun, ClockAtRestMatchesTheVoltageLawInReadOutAndTickCount)
{
    CoreRig rig;
    rig.setFloat(Param::delayOffsetLeft, 0.0f);
    rig.setFloat(Param::lfoDepthLeft, 0.0f);
    rig.runStereo(testSignal(64));
    rig.prepare(44100.0); // a repeated prepare settles every smoother on its target
    const auto before = rig.core.getTicksRun();
    rig.runStereo(testSignal(44100));
    // V = 0.661: 675750 Hz on every curve, times R = 4, times 256 / 512.
    EXPECT_NEAR(rig.core.currentBbdFrequency.load(), 1351500.0f, 2.0f);
    EXPECT_NEAR(static_cast<double>(rig.core.getTicksRun() - before) / 2.0, 1351500.0, 2.0) << "one second of ticks";
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
    // Every quality's wet impulse response lines up with Normal's at lag 0 and has its shape.
    std::vector<std::vector<float>> responses;
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
        responses.push_back(rig.runStereo(impulse).left);
    }
    ASSERT_GT(indexOfPeak(responses[1]), 110u) << "the wet path is late";
    const auto correlation = [](const std::vector<float>& a, const std::vector<float>& b, int lag)
    {
        double ab = 0.0, aa = 0.0, bb = 0.0;
        for (size_t i = 20; i + 20 < a.size(); ++i)
        {
            const double x = a[i], y = b[static_cast<size_t>(static_cast<int>(i) + lag)];
            ab += x * y;
            aa += x * x;
            bb += y * y;
        }
        return ab / std::sqrt(aa * bb);
    };
    for (int quality : {0, 2, 3})
    {
        int bestLag = 0;
        for (int lag = -8; lag <= 8; ++lag)
            if (correlation(responses[1], responses[static_cast<size_t>(quality)], lag) >
                correlation(responses[1], responses[static_cast<size_t>(quality)], bestLag))
                bestLag = lag;
        EXPECT_EQ(bestLag, 0) << "quality " << quality;
        EXPECT_GT(correlation(responses[1], responses[static_cast<size_t>(quality)], 0), 0.95) << "quality " << quality;
    }
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
    const auto out = released.runStereo(input);
    EXPECT_EQ(out.left, base.left) << "the left side never hears the right feedback";
    double difference = 0.0, level = 0.0;
    for (size_t i = 0; i < out.right.size(); ++i)
    {
        difference += std::pow(out.right[i] - base.right[i], 2.0);
        level += std::pow(base.right[i], 2.0);
    }
    EXPECT_GT(difference, 0.25 * level) << "strong feedback changes the right side by more than -6 dB";
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

class BlockCut : public ::testing::TestWithParam<std::tuple<double, int>>
{
};

TEST_P(BlockCut, ResultDoesNotDependOnHowTheBlockIsCut)
{
    // Signal, a gap long enough to shut the gate, then the left channel alone: with the crossfade the
    // right output carries the left signal through a channel whose gate is still shut and fading.
    const auto [rate, runLength] = GetParam();
    const auto at = [rate = rate](int samplesAt44100) { return static_cast<size_t>(samplesAt44100 * rate / 44100.0); };
    auto input = testSignal(static_cast<int>(at(5000)), rate);
    const auto tail = testSignal(static_cast<int>(at(6000)), rate);
    input.left.resize(at(41000), 0.0f);
    input.left.insert(input.left.end(), tail.left.begin(), tail.left.end());
    input.right.resize(input.left.size(), 0.0f);

    CoreRig whole(rate), cut(rate);
    for (auto* rig : {&whole, &cut})
        rig->setFloat(Param::channelsCrossfade, 0.5f);
    const auto a = whole.runStereo(input, static_cast<int>(input.left.size()));
    const auto b = cut.runStereo(input, runLength);
    EXPECT_EQ(a.left, b.left);
    EXPECT_EQ(a.right, b.right);

    EXPECT_EQ(peakOf(std::vector<float>(a.left.begin() + static_cast<long>(at(38000)),
                                        a.left.begin() + static_cast<long>(at(41000)))),
              0.0f)
        << "shut";
    EXPECT_GT(peakOf(a.right, at(41000)), 0.0f) << "the right line hears the left through the crossfade";
}

INSTANTIATE_TEST_SUITE_P(RatesAndRunLengths, BlockCut,
                         ::testing::Combine(::testing::Values(44100.0, 48000.0, 96000.0),
                                            ::testing::Values(1, 37, 512, 4096)));

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
