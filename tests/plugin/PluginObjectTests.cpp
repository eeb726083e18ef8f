// The plug-in object as a host sees it: start-up, layouts, latency, quality switching, state.
#include "PrivateFolders.h"
#include "parameters/ParameterManager.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
juce::AudioProcessor::BusesLayout layout(int ins, int outs)
{
    juce::AudioProcessor::BusesLayout l;
    l.inputBuses.add(juce::AudioChannelSet::canonicalChannelSet(ins));
    l.outputBuses.add(juce::AudioChannelSet::canonicalChannelSet(outs));
    return l;
}

juce::String text(VelmarinProcessor& p, int index)
{
    return p.getPlugin().getParameterManager().getText(index);
}

void setText(VelmarinProcessor& p, int index, const juce::String& t)
{
    p.getPlugin().getParameterManager().setText(index, t);
}

void processOneBlock(VelmarinProcessor& p, bool bypassed = false)
{
    juce::AudioBuffer<float> buffer(2, 32);
    buffer.clear();
    juce::MidiBuffer midi;
    if (bypassed)
        p.processBlockBypassed(buffer, midi);
    else
        p.processBlock(buffer, midi);
}
} // namespace

TEST(PluginObject, DeclaresItsLatencyLayoutsAndPreparedState)
{
    VelmarinProcessor p{testsupport::privateFolders()};
    EXPECT_EQ(p.getLatencySamples(), 1);
    EXPECT_TRUE(p.acceptsMidi());

    EXPECT_TRUE(p.checkBusesLayoutSupported(layout(1, 1)));
    EXPECT_TRUE(p.checkBusesLayoutSupported(layout(1, 2)));
    EXPECT_TRUE(p.checkBusesLayoutSupported(layout(2, 2)));
    EXPECT_FALSE(p.checkBusesLayoutSupported(layout(2, 1)));
    EXPECT_FALSE(p.checkBusesLayoutSupported(layout(0, 2)));
    EXPECT_FALSE(p.checkBusesLayoutSupported(layout(2, 0)));
    EXPECT_FALSE(p.checkBusesLayoutSupported(layout(6, 6)));

    p.prepareToPlay(96000.0, 64);
    EXPECT_EQ(p.getLatencySamples(), 1);
    EXPECT_TRUE(p.getPlugin().isPrepared());
    EXPECT_EQ(p.getPlugin().getSampleRateContext().sampleRate, 96000.0);
    p.releaseResources();
    EXPECT_FALSE(p.getPlugin().isPrepared());
}

TEST(PluginObject, BypassPassesAudioEndToEndOneSampleLateInEveryLayout)
{
    for (auto [ins, outs] : {std::pair{2, 2}, std::pair{1, 2}, std::pair{1, 1}})
    {
        VelmarinProcessor p{testsupport::privateFolders()};
        ASSERT_TRUE(p.setBusesLayout(layout(ins, outs)));
        p.prepareToPlay(44100.0, 64);
        EXPECT_EQ(p.getLatencySamples(), 1);
        juce::AudioBuffer<float> buffer(std::max(ins, outs), 64);
        const auto input = [](int ch, int i) { return static_cast<float>(ch + 1) * 0.01f * static_cast<float>(i % 7); };
        for (int ch = 0; ch < buffer.getNumChannels(); ++ch)
            for (int i = 0; i < 64; ++i)
                buffer.setSample(ch, i, input(ch, i));
        juce::MidiBuffer midi;
        p.processBlockBypassed(buffer, midi);
        for (int i = 1; i < 64; ++i)
        {
            ASSERT_FLOAT_EQ(buffer.getSample(0, i), input(0, i - 1)) << ins << "-" << outs;
            if (outs == 2)
            {
                // A mono input feeds both sides of a stereo output.
                ASSERT_FLOAT_EQ(buffer.getSample(1, i), input(ins == 2 ? 1 : 0, i - 1)) << ins << "-" << outs;
            }
        }
    }
}

TEST(PluginObject, QualityFollowsTheOfflineFlagButNotWhenBypassed)
{
    VelmarinProcessor p{testsupport::privateFolders()};
    setText(p, 100001, "Draft");
    EXPECT_EQ(text(p, 29), "Draft") << "a change of the real-time quality applies at once";
    setText(p, 100003, "Ultra");
    EXPECT_EQ(text(p, 29), "Draft") << "the offline quality waits for offline mode";

    p.prepareToPlay(44100.0, 32);
    p.setNonRealtime(true);
    processOneBlock(p, true);
    EXPECT_EQ(text(p, 29), "Draft") << "a bypassed block does not look at the flag";
    processOneBlock(p);
    EXPECT_EQ(text(p, 29), "Ultra");
    EXPECT_TRUE(p.getPlugin().isNonRealtime());
    p.setNonRealtime(false);
    processOneBlock(p);
    EXPECT_EQ(text(p, 29), "Draft");

    p.setNonRealtime(true);
    p.prepareToPlay(44100.0, 32);
    EXPECT_EQ(text(p, 29), "Ultra") << "prepare stores the flag and applies the quality";
}

TEST(PluginObject, StateRoundTripsIntoASecondInstance)
{
    VelmarinProcessor first{testsupport::privateFolders()};
    setText(first, 0, "0.25");
    setText(first, 20, "512");
    setText(first, 16, "Off");
    setText(first, 100001, "High");
    setText(first, 100003, "Draft");
    setText(first, 100000, "My Sound");
    juce::MemoryBlock state;
    first.getStateInformation(state);
    EXPECT_EQ(first.getPlugin().getStateReadCount(), 1);

    VelmarinProcessor second{testsupport::privateFolders()};
    second.setStateInformation(state.getData(), static_cast<int>(state.getSize()));
    EXPECT_EQ(second.getPlugin().getStateWriteCount(), 1);
    for (int index : {0, 20, 16, 100001, 100003, 100000, 29})
        EXPECT_EQ(text(second, index), text(first, index)) << index;

    juce::MemoryBlock again;
    second.getStateInformation(again);
    EXPECT_EQ(again, state) << "the state a host set is the state it gets back";
}

TEST(PluginObject, ForeignOrBrokenChunksChangeNothing)
{
    VelmarinProcessor p{testsupport::privateFolders()};
    setText(p, 14, "0.9");
    juce::MemoryBlock before;
    p.getStateInformation(before);

    auto chunkFor = [](const juce::String& xmlText)
    {
        juce::MemoryBlock block;
        juce::AudioProcessor::copyXmlToBinary(*juce::parseXML(xmlText), block);
        return block;
    };
    const juce::MemoryBlock foreign = chunkFor(
        R"(<PluginState application="Other"><ParametersState><Preset><Parameters><param name="Feedback L/M" value="0.1"/></Parameters></Preset></ParametersState></PluginState>)");
    const juce::MemoryBlock wrongRoot = chunkFor(R"(<State application="Velmarin"/>)");
    const char garbage[] = "VC2!\x10\x00\x00\x00<PluginState";
    juce::MemoryBlock noise(300);
    juce::Random random(7);
    random.fillBitsRandomly(noise.getData(), noise.getSize());
    const std::vector<std::pair<const void*, int>> chunks = {
        {before.getData(), static_cast<int>(before.getSize() / 2)},
        {noise.getData(), static_cast<int>(noise.getSize())},
        {foreign.getData(), static_cast<int>(foreign.getSize())},
        {wrongRoot.getData(), static_cast<int>(wrongRoot.getSize())},
        {garbage, static_cast<int>(sizeof(garbage))},
        {garbage, 1},
        {garbage, 0},
        {nullptr, 0},
    };
    for (const auto& [data, size] : chunks)
        p.setStateInformation(data, size);

    juce::MemoryBlock after;
    p.getStateInformation(after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(p.getPlugin().getStateWriteCount(), static_cast<int>(chunks.size()));
}

TEST(PluginObject, ChunkNamesTheApplicationIgnoringCaseAndFillsGapsFromDefaults)
{
    VelmarinProcessor p{testsupport::privateFolders()};
    setText(p, 0, "0.5");
    setText(p, 27, "0.9");
    juce::MemoryBlock block;
    juce::AudioProcessor::copyXmlToBinary(
        *juce::parseXML(juce::String(
            R"(<PluginState application="velmarin"><ParametersState><Preset name="Older"><Parameters>
             <param name="Output Volume" value="0.2"/><param name="Gone Knob" value="1"/>
           </Parameters></Preset></ParametersState></PluginState>)")),
        block);
    p.setStateInformation(block.getData(), static_cast<int>(block.getSize()));
    EXPECT_EQ(text(p, 27), "0.2");
    EXPECT_EQ(text(p, 0), "0") << "a parameter the chunk lacks goes to its default";
    EXPECT_EQ(text(p, 100000), "Older");
    EXPECT_EQ(text(p, 100001), "Normal") << "no ProcessingQuality element: the qualities stay";
}

TEST(PluginObject, RevertParameterReturnsToTheCurrentPreset)
{
    VelmarinProcessor p{testsupport::privateFolders()};
    setText(p, 23, "0.3");
    p.getPlugin().revertParameter(23);
    EXPECT_EQ(text(p, 23), "1");
    setText(p, 29, "Ultra");
    p.getPlugin().revertParameter(29);
    EXPECT_EQ(text(p, 29), "Ultra") << "not a preset parameter";
}

TEST(PluginObject, NonFiniteInputIsSilencedBeforeTheEngineAndNeverPoisonsIt)
{
    // Two instances: one gets NaN and infinities in place of some samples, the other zeros there.
    // Their outputs must be identical, and finite, during and long after the burst.
    VelmarinProcessor poisoned, clean;
    for (auto* p : {&poisoned, &clean})
        p->prepareToPlay(44100.0, 256);
    const float bad[] = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                         -std::numeric_limits<float>::infinity()};
    juce::Random random(11);
    for (int block = 0; block < 40; ++block)
    {
        juce::AudioBuffer<float> a(2, 256), b(2, 256);
        for (int ch = 0; ch < 2; ++ch)
            for (int i = 0; i < 256; ++i)
            {
                const float x = random.nextFloat() * 2.0f - 1.0f;
                const bool burst = block < 4 && (i % 5) == ch;
                a.setSample(ch, i, burst ? bad[i % 3] : x * 1.0e6f * (block == 5 ? 1.0f : 1.0e-6f));
                b.setSample(ch, i, burst ? 0.0f : a.getSample(ch, i));
            }
        juce::MidiBuffer midi;
        poisoned.processBlock(a, midi);
        clean.processBlock(b, midi);
        for (int ch = 0; ch < 2; ++ch)
            for (int i = 0; i < 256; ++i)
            {
                ASSERT_TRUE(std::isfinite(a.getSample(ch, i))) << block << " " << i;
                ASSERT_EQ(a.getSample(ch, i), b.getSample(ch, i)) << block << " " << i;
            }
    }
}

TEST(PluginObject, InputNearTheFloatMaximumLeavesTheOutputFiniteAndAlive)
{
    // A tenth of a second of input near 3e38 would overflow the input filters; afterwards the
    // instance must still answer ordinary input with finite, audible output.
    VelmarinProcessor p{testsupport::privateFolders()};
    p.prepareToPlay(44100.0, 441);
    juce::Random random(5);
    float lastPeak = 0.0f;
    for (int block = 0; block < 100; ++block)
    {
        juce::AudioBuffer<float> buffer(2, 441);
        for (int ch = 0; ch < 2; ++ch)
            for (int i = 0; i < 441; ++i)
                buffer.setSample(ch, i, (random.nextFloat() * 2.0f - 1.0f) * (block < 10 ? 3.0e38f : 0.25f));
        juce::MidiBuffer midi;
        p.processBlock(buffer, midi);
        for (int ch = 0; ch < 2; ++ch)
            for (int i = 0; i < 441; ++i)
                ASSERT_TRUE(std::isfinite(buffer.getSample(ch, i))) << "block " << block << " sample " << i;
        lastPeak = buffer.getMagnitude(0, 441);
    }
    EXPECT_GT(lastPeak, 0.01f);
    EXPECT_LT(lastPeak, 4.0f);
}
