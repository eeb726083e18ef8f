// Every sample rate a host may run at, from 8 kHz to 768 kHz, at every processing quality, through
// the processor as a host drives it. Short renders: under the sanitizers an out-of-bounds read of
// the engine's rings fails here.
#include "PrivateFolders.h"
#include "parameters/ParameterManager.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace
{
struct Render
{
    bool finite = true;
    float peak = 0.0f;
};

/** A plucked chord with a little noise, `seconds` long at `rate`, through a fresh instance. */
Render render(double rate, const char* quality, double seconds)
{
    VelmarinProcessor p{testsupport::privateFolders()};
    auto& manager = p.getPlugin().getParameterManager();
    for (auto* name : {"Real-time Processing Quality", "Offline Processing Quality"})
        manager.getParameter(juce::String(name))->setText(quality, true);
    constexpr int blockSize = 512;
    p.prepareToPlay(rate, blockSize);

    juce::Random random(3);
    Render result;
    const auto total = static_cast<int>(rate * seconds);
    juce::AudioBuffer<float> buffer(2, blockSize);
    juce::MidiBuffer midi;
    for (int start = 0; start < total; start += blockSize)
    {
        const int n = std::min(blockSize, total - start);
        buffer.setSize(2, n, false, false, true);
        for (int ch = 0; ch < 2; ++ch)
            for (int i = 0; i < n; ++i)
            {
                const double t = (start + i) / rate;
                const double chord = std::sin(6.283185307179586 * 110.0 * t) + std::sin(6.283185307179586 * 165.0 * t) +
                                     std::sin(6.283185307179586 * 220.0 * (t + ch * 0.001));
                buffer.setSample(ch, i,
                                 static_cast<float>(0.2 * chord * std::exp(-3.0 * t)) +
                                     0.02f * (random.nextFloat() * 2.0f - 1.0f));
            }
        p.processBlock(buffer, midi);
        for (int ch = 0; ch < 2; ++ch)
            for (int i = 0; i < n; ++i)
            {
                const float y = buffer.getSample(ch, i);
                result.finite = result.finite && std::isfinite(y);
                result.peak = std::max(result.peak, std::abs(y));
            }
    }
    return result;
}

class EveryHostRate : public ::testing::TestWithParam<std::tuple<double, const char*>>
{
};
} // namespace

TEST_P(EveryHostRate, RendersFiniteOutputAtASaneLevel)
{
    const auto [rate, quality] = GetParam();
    const auto r = render(rate, quality, 0.2);
    EXPECT_TRUE(r.finite);
    EXPECT_GT(r.peak, 0.01f);
    EXPECT_LT(r.peak, 4.0f);
}

INSTANTIATE_TEST_SUITE_P(Rates, EveryHostRate,
                         ::testing::Combine(::testing::Values(8000.0, 11025.0, 384000.0, 768000.0),
                                            ::testing::Values("Draft", "Normal", "High", "Ultra")));

TEST(HostRates, LowRatesPeakWithinSixDecibelsOfTheSameRenderAt22050)
{
    const float reference = render(22050.0, "Normal", 1.0).peak;
    for (double rate : {8000.0, 9600.0, 11025.0, 11799.0, 12000.0, 16000.0})
    {
        const auto r = render(rate, "Normal", 1.0);
        EXPECT_TRUE(r.finite) << rate;
        EXPECT_LT(r.peak, reference * 2.0f) << rate << " Hz";
        EXPECT_GT(r.peak, reference * 0.5f) << rate << " Hz";
    }
}

TEST(HostRates, RatesOutsideTheEnginesRangeAreTakenAsTheNearestEnd)
{
    for (double rate : {1000.0, 2000000.0, 0.0, -44100.0, std::nan("")})
    {
        VelmarinProcessor p{testsupport::privateFolders()};
        p.prepareToPlay(rate, 64);
        juce::AudioBuffer<float> buffer(2, 64);
        for (int i = 0; i < 64; ++i)
            buffer.setSample(0, i, 0.5f), buffer.setSample(1, i, -0.5f);
        juce::MidiBuffer midi;
        p.processBlock(buffer, midi);
        EXPECT_TRUE(std::isfinite(buffer.getMagnitude(0, 64))) << rate;
    }
}

TEST(HostRates, ChannelsStayApartAtTheHighestRates)
{
    // With the default sound the two channels share nothing: a silent right input gives a silent
    // right output. A read before the start of the right channel's input ring would find the left
    // channel's samples there.
    for (double rate : {384000.0, 768000.0})
        for (const char* quality : {"Draft", "Ultra"})
        {
            VelmarinProcessor p{testsupport::privateFolders()};
            auto& manager = p.getPlugin().getParameterManager();
            for (auto* name : {"Real-time Processing Quality", "Offline Processing Quality"})
                manager.getParameter(juce::String(name))->setText(quality, true);
            p.prepareToPlay(rate, 1024);
            float rightPeak = 0.0f, leftPeak = 0.0f;
            juce::AudioBuffer<float> buffer(2, 1024);
            juce::MidiBuffer midi;
            for (int block = 0; block < 40; ++block)
            {
                for (int i = 0; i < 1024; ++i)
                {
                    buffer.setSample(0, i, 0.5f * static_cast<float>(std::sin((block * 1024 + i) * 0.002)));
                    buffer.setSample(1, i, 0.0f);
                }
                p.processBlock(buffer, midi);
                leftPeak = std::max(leftPeak, buffer.getMagnitude(0, 0, 1024));
                rightPeak = std::max(rightPeak, buffer.getMagnitude(1, 0, 1024));
            }
            EXPECT_GT(leftPeak, 0.05f) << rate << " " << quality;
            EXPECT_EQ(rightPeak, 0.0f) << rate << " " << quality;
        }
}
