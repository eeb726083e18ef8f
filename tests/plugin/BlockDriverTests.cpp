// The block driver: how a block is cut into runs at controller events and handed to the core.
#include "product/Velmarin.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
struct Run
{
    bool stereo = false;
    int numSamples = 0;
    const float* inLeft = nullptr;
    const float* inRight = nullptr;
    float* outLeft = nullptr;
    float* outRight = nullptr;
    bool bypassed = false;
};

/** A core that records every call it gets and passes audio through (left + right into left). */
class RecordingCore : public MarrowgateEffectCore
{
public:
    std::vector<Run>* runs = nullptr;
    std::vector<double>* tempos = nullptr;
    std::vector<double>* positions = nullptr;
    std::vector<bool>* resets = nullptr;

    void reset(bool rateChanged) override { resets->push_back(rateChanged); }
    void setTempo(double bpm) override { tempos->push_back(bpm); }
    void setPosition(double ppq) override { positions->push_back(ppq); }
    void processStereo(const float* inL, const float* inR, float* outL, float* outR, int n, bool bypassed) override
    {
        runs->push_back({true, n, inL, inR, outL, outR, bypassed});
    }
    void processMono(float* buffer, int n, bool bypassed) override
    {
        runs->push_back({false, n, buffer, nullptr, buffer, nullptr, bypassed});
    }
};

/** The product with the recording core and a log of controllers and the runs before each. */
class RecordingEffect : public Velmarin
{
public:
    std::vector<Run> runs;
    std::vector<double> tempos, positions;
    std::vector<bool> resets;
    struct Controller
    {
        int runsBefore, controller, value;
    };
    std::vector<Controller> controllers;

    void handleController(const juce::MidiMessage& message) override
    {
        controllers.push_back(
            {static_cast<int>(runs.size()), message.getControllerNumber(), message.getControllerValue()});
    }

protected:
    std::unique_ptr<MarrowgateEffectCore> createEffectCore() override
    {
        auto core = std::make_unique<RecordingCore>();
        core->runs = &runs;
        core->tempos = &tempos;
        core->positions = &positions;
        core->resets = &resets;
        return core;
    }
};

class BlockDriver : public ::testing::Test
{
protected:
    void SetUp() override
    {
        effect.initialise();
        effect.createCore();
        effect.finishInitialisation();
        effect.prepareToPlay(44100.0, 512);
    }

    void process(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi, int ins = 2, int outs = 2,
                 juce::AudioPlayHead* playHead = nullptr, bool bypassed = false)
    {
        ProcessContext context;
        context.buffer = &buffer;
        context.midi = &midi;
        context.numInputChannels = ins;
        context.numOutputChannels = outs;
        context.playHead = playHead;
        context.bypassed = bypassed;
        effect.process(context);
    }

    static void addController(juce::MidiBuffer& midi, int position, int controller, int value = 64)
    {
        midi.addEvent(juce::MidiMessage::controllerEvent(1, controller, value), position);
    }

    std::vector<int> runLengths() const
    {
        std::vector<int> lengths;
        for (const auto& r : effect.runs)
            lengths.push_back(r.numSamples);
        return lengths;
    }

    RecordingEffect effect;
};

class FixedPlayHead : public juce::AudioPlayHead
{
public:
    bool playing = false;
    bool deliver = true;
    juce::Optional<PositionInfo> getPosition() const override
    {
        if (! deliver)
            return {};
        PositionInfo info;
        info.setBpm(97.5);
        info.setPpqPosition(12.25);
        info.setIsPlaying(playing);
        return info;
    }
};
} // namespace

TEST_F(BlockDriver, ZeroSampleBlockRunsNothingButKeepsTransportAndQueuedMidi)
{
    FixedPlayHead head;
    juce::AudioBuffer<float> empty(2, 0);
    juce::MidiBuffer midi;
    addController(midi, 0, 7);
    process(empty, midi, 2, 2, &head);
    EXPECT_TRUE(effect.runs.empty());
    EXPECT_TRUE(effect.controllers.empty());
    EXPECT_EQ(effect.tempos, (std::vector<double>{97.5}));

    juce::AudioBuffer<float> buffer(2, 10);
    juce::MidiBuffer none;
    process(buffer, none);
    ASSERT_EQ(effect.controllers.size(), 1u) << "the queued controller arrives in the next block";
    EXPECT_EQ(effect.controllers[0].runsBefore, 0);
    EXPECT_EQ(runLengths(), (std::vector<int>{10}));
}

TEST_F(BlockDriver, MonoInStereoOutClearsChannelOneAndReadsChannelZeroTwice)
{
    juce::AudioBuffer<float> buffer(2, 64);
    buffer.clear();
    buffer.setSample(1, 5, 0.75f);
    juce::MidiBuffer midi;
    process(buffer, midi, 1, 2);
    EXPECT_EQ(buffer.getSample(1, 5), 0.0f);
    ASSERT_EQ(effect.runs.size(), 1u);
    EXPECT_TRUE(effect.runs[0].stereo);
    EXPECT_EQ(effect.runs[0].inLeft, buffer.getReadPointer(0));
    EXPECT_EQ(effect.runs[0].inRight, buffer.getReadPointer(0));
    EXPECT_EQ(effect.runs[0].outRight, buffer.getWritePointer(1));
}

TEST_F(BlockDriver, MonoLayoutRunsTheMonoPath)
{
    juce::AudioBuffer<float> buffer(1, 32);
    juce::MidiBuffer midi;
    process(buffer, midi, 1, 1);
    ASSERT_EQ(effect.runs.size(), 1u);
    EXPECT_FALSE(effect.runs[0].stereo);
    EXPECT_EQ(effect.runs[0].outLeft, buffer.getWritePointer(0));
}

TEST_F(BlockDriver, RunsAreInPlaceAndMidiSplitsThemOnceAtEachPositionWithoutEmptyRuns)
{
    struct Case
    {
        const char* what;
        int length;
        std::vector<std::pair<int, int>> controllers; // position, number
        bool noteOnAt8;
        std::vector<int> runs;
    };
    const std::vector<Case> cases = {
        {"no MIDI", 300, {}, false, {300}},
        {"two at one position", 100, {{40, 1}, {40, 2}}, false, {40, 60}},
        {"at the last sample", 100, {{99, 3}}, false, {99, 1}},
        {"at zero", 50, {{0, 3}}, false, {50}},
        {"a note is dropped but splits", 20, {}, true, {8, 12}},
    };
    for (const auto& c : cases)
    {
        effect.runs.clear();
        effect.controllers.clear();
        juce::AudioBuffer<float> buffer(2, c.length);
        juce::MidiBuffer midi;
        for (auto [position, number] : c.controllers)
            addController(midi, position, number);
        if (c.noteOnAt8)
            midi.addEvent(juce::MidiMessage::noteOn(1, 60, 0.5f), 8);
        process(buffer, midi);
        EXPECT_EQ(runLengths(), c.runs) << c.what;
        std::vector<int> starts; // where each run starts in the block
        for (const auto& run : effect.runs)
        {
            starts.push_back(static_cast<int>(run.inLeft - buffer.getReadPointer(0)));
            EXPECT_TRUE(run.stereo);
            EXPECT_EQ(run.outLeft, buffer.getWritePointer(0) + starts.back()) << c.what;
            EXPECT_EQ(run.inRight, buffer.getReadPointer(1) + starts.back()) << c.what;
            EXPECT_EQ(run.outRight, buffer.getWritePointer(1) + starts.back()) << c.what;
        }
        ASSERT_EQ(effect.controllers.size(), c.controllers.size()) << c.what;
        for (size_t i = 0; i < c.controllers.size(); ++i)
        {
            EXPECT_EQ(effect.controllers[i].controller, c.controllers[i].second) << c.what;
            const auto runsBefore = static_cast<size_t>(effect.controllers[i].runsBefore);
            EXPECT_EQ(runsBefore < starts.size() ? starts[runsBefore] : c.length, c.controllers[i].first) << c.what;
        }
    }
}

TEST_F(BlockDriver, NegativePositionsAreDroppedAndLateOnesWaitForTheNextBlock)
{
    juce::AudioBuffer<float> buffer(2, 64);
    juce::MidiBuffer midi;
    addController(midi, -5, 10);
    addController(midi, 64, 11);
    addController(midi, 70, 12);
    process(buffer, midi);
    EXPECT_TRUE(effect.controllers.empty());
    EXPECT_EQ(runLengths(), (std::vector<int>{64}));

    effect.runs.clear();
    juce::MidiBuffer none;
    process(buffer, none);
    ASSERT_EQ(effect.controllers.size(), 2u);
    EXPECT_EQ(effect.controllers[0].controller, 11);
    EXPECT_EQ(effect.controllers[0].runsBefore, 0) << "arrives at position 0";
    EXPECT_EQ(effect.controllers[1].controller, 12);
    EXPECT_EQ(runLengths(), (std::vector<int>{6, 58}));
}

TEST_F(BlockDriver, OtherMidiIsDroppedButStillSplitsTheBlock)
{
    juce::AudioBuffer<float> buffer(2, 20);
    juce::MidiBuffer midi;
    midi.addEvent(juce::MidiMessage::noteOn(1, 60, 0.5f), 8);
    process(buffer, midi);
    EXPECT_TRUE(effect.controllers.empty());
    EXPECT_EQ(runLengths(), (std::vector<int>{8, 12}));
}

TEST_F(BlockDriver, TransportGivesTempoAlwaysAndPositionOnlyWhilePlaying)
{
    FixedPlayHead head;
    juce::AudioBuffer<float> buffer(2, 16);
    juce::MidiBuffer midi;
    process(buffer, midi, 2, 2, &head);
    EXPECT_EQ(effect.tempos.size(), 1u);
    EXPECT_TRUE(effect.positions.empty());
    EXPECT_FLOAT_EQ(effect.getHostTempo(), 97.5f);
    head.playing = true;
    process(buffer, midi, 2, 2, &head);
    EXPECT_EQ(effect.positions, (std::vector<double>{12.25}));
    head.deliver = false;
    process(buffer, midi, 2, 2, &head);
    EXPECT_EQ(effect.tempos.size(), 2u) << "no position: tempo and position stay as they were";
}

TEST_F(BlockDriver, RepeatedPrepareAtTheSameRateResetsWithoutRateChange)
{
    effect.resets.clear();
    effect.prepareToPlay(44100.0, 512);
    effect.prepareToPlay(48000.0, 256);
    EXPECT_EQ(effect.resets, (std::vector<bool>{false, true}));
}

class BlockSplitting : public BlockDriver, public ::testing::WithParamInterface<int>
{
};

TEST_P(BlockSplitting, RunsCoverTheBlockAndControllersArriveAtTheirSample)
{
    // Controllers at absolute samples of a stream, cut into blocks of every size: each controller
    // must arrive exactly after the samples before it, whatever the block size.
    const int blockSize = GetParam();
    const int total = 257;
    const std::vector<int> ccSamples = {0, 1, 31, 32, 100, 200, 255, 256};

    int processed = 0;
    std::vector<int> arrival; // samples handed to the core before each controller
    int handed = 0;
    while (processed < total)
    {
        const int n = std::min(blockSize, total - processed);
        juce::AudioBuffer<float> buffer(2, n);
        juce::MidiBuffer midi;
        for (int s : ccSamples)
            if (s >= processed && s < processed + n)
                addController(midi, s - processed, 1, s % 128);
        const auto before = effect.controllers.size();
        const auto runsBefore = effect.runs.size();
        process(buffer, midi);
        int sum = 0;
        for (auto r = runsBefore; r < effect.runs.size(); ++r)
        {
            EXPECT_GT(effect.runs[r].numSamples, 0);
            sum += effect.runs[r].numSamples;
        }
        EXPECT_EQ(sum, n);
        for (auto c = before; c < effect.controllers.size(); ++c)
        {
            int samplesBefore = handed;
            for (auto r = runsBefore; r < static_cast<size_t>(effect.controllers[c].runsBefore); ++r)
                samplesBefore += effect.runs[r].numSamples;
            arrival.push_back(samplesBefore);
        }
        handed += n;
        processed += n;
    }
    EXPECT_EQ(arrival, ccSamples);
}

INSTANTIATE_TEST_SUITE_P(EveryBlockSize, BlockSplitting, ::testing::Range(1, 70));
INSTANTIATE_TEST_SUITE_P(LargeBlockSizes, BlockSplitting, ::testing::Values(255, 256, 257, 512, 4096));
