// A long run of one stereo instance driven as a host drives it: random automation of every host
// parameter (some of it inside gestures), blocks of 0 to 8192 samples whatever size was prepared,
// new sample rates between prepares, bypassed stretches, real-time and offline turns, quality
// changes, controllers and SysEx in the MIDI buffer, and input with bursts of NaN, infinities and
// finite values up to the float maximum (whole blocks of them too). Every output sample must be
// finite and bounded, and processBlock must not touch the heap.
//
// Run length: VELMARIN_SOAK_SECONDS seconds of audio (default 120). One line per minute of audio
// gives blocks and the CPU time per sample, median and maximum, so a script can see that the cost
// stays flat (a denormal slowdown would multiply it). Only runs of 600 s or more check flatness.
#include "AllocationCounter.h"
#include "PrivateFolders.h"
#include "ReliabilityHost.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>
#include <memory>
#include <vector>

namespace
{
constexpr int maxBlockSize = 8192;
const double sampleRates[] = {8000.0,   11025.0,  22050.0, 24000.0, 32000.0, 44100.0, 48000.0,  88200.0,  96000.0,
                              176400.0, 192000.0, 22051.0, 37800.0, 44099.5, 61379.0, 191999.0, 384000.0, 768000.0};
const char* const qualities[] = {"Draft", "Normal", "High", "Ultra"};

double threadCpuNanoseconds()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

/** Counts asynchronous deliveries: one per parameter that posted since the last dispatch. */
struct PostCounter : Parameter::Listener
{
    void parameterChanged(Parameter&) override { ++posts; }
    int posts = 0;
};

/** A message that does nothing when it arrives. */
struct IdleUpdater : juce::AsyncUpdater
{
    void handleAsyncUpdate() override {}
};

/** Heap calls that k message posts cost the posting thread when the message queue starts empty
    (the queue's array grows as it fills and is freed whenever it is drained), for k = 0..maxPosts. */
std::vector<std::uint64_t> measureQueueGrowth(int maxPosts)
{
    std::vector<std::unique_ptr<IdleUpdater>> updaters;
    for (int i = 0; i < maxPosts; ++i)
        updaters.push_back(std::make_unique<IdleUpdater>());
    reliability::dispatchPendingMessages();

    std::vector<std::uint64_t> calls(static_cast<size_t>(maxPosts) + 1, 0);
    const auto start = AllocationCounter::count();
    {
        const AllocationCounter::ScopedCountingThread counting;
        for (int k = 1; k <= maxPosts; ++k)
        {
            updaters[static_cast<size_t>(k - 1)]->triggerAsyncUpdate();
            calls[static_cast<size_t>(k)] = AllocationCounter::count() - start;
        }
    }
    reliability::dispatchPendingMessages();
    return calls;
}

/** CPU time per sample of each block of one minute of audio. */
struct MinuteFigures
{
    int blocks = 0;
    std::vector<double> nsPerSample;      // every block with samples
    std::vector<double> nsPerSampleLarge; // blocks of 256 samples or more: the maximum is read here

    double median()
    {
        if (nsPerSample.empty())
            return 0.0;
        auto middle = nsPerSample.begin() + static_cast<long>(nsPerSample.size() / 2);
        std::nth_element(nsPerSample.begin(), middle, nsPerSample.end());
        return *middle;
    }

    double maximum() const
    {
        return nsPerSampleLarge.empty() ? 0.0 : *std::max_element(nsPerSampleLarge.begin(), nsPerSampleLarge.end());
    }
};

/** Fills one block of input. The kind of signal holds for a stretch of blocks, so the silence gate
    gets time to shut; bursts of non-finite and huge values land anywhere. */
class InputMaker
{
public:
    explicit InputMaker(juce::Random& r) : random(r) {}

    void fill(juce::AudioBuffer<float>& buffer, int numSamples, double sampleRate)
    {
        if (--blocksLeft <= 0)
        {
            kind = random.nextInt(4);
            level = std::pow(10.0f, random.nextFloat() * 6.3f - 6.0f); // -120 dB .. +6 dB
            blocksLeft = 1 + random.nextInt(40);
        }
        for (int ch = 0; ch < 2; ++ch)
        {
            auto* x = buffer.getWritePointer(ch);
            for (int i = 0; i < numSamples; ++i)
            {
                switch (kind)
                {
                case 0:
                    x[i] = 0.0f;
                    break;
                case 1:
                    x[i] = level * (random.nextFloat() * 2.0f - 1.0f);
                    break;
                case 2:
                    x[i] = level * static_cast<float>(std::sin(phase + ch));
                    phase += 6.283185307179586 * 440.0 / sampleRate;
                    break;
                default:
                    x[i] = random.nextInt(64) == 0 ? level : 0.0f;
                    break; // clicks
                }
            }
        }
        if (numSamples > 0 && random.nextInt(10) == 0)
        {
            const float specials[] = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                                      -std::numeric_limits<float>::infinity(), 1e6f, -3e38f};
            for (int burst = 1 + random.nextInt(32); --burst >= 0;)
            {
                const int ch = random.nextInt(2), at = random.nextInt(numSamples);
                const int which = random.nextInt(6);
                buffer.setSample(ch, at, which < 5 ? specials[which] : (random.nextFloat() * 2.0f - 1.0f) * 1e6f);
            }
        }
        if (numSamples > 0 && random.nextInt(50) == 0)
        {
            // A whole block of huge values: up to 1e6, or near the float maximum.
            const float scale = random.nextBool() ? 1e6f : 3e38f;
            for (int ch = 0; ch < 2; ++ch)
                for (int i = 0; i < numSamples; ++i)
                    buffer.setSample(ch, i, (random.nextFloat() * 2.0f - 1.0f) * scale);
        }
    }

private:
    juce::Random& random;
    int kind = 0;
    int blocksLeft = 0;
    float level = 0.0f;
    double phase = 0.0;
};

/** The largest finite input magnitude of a block. */
float peakOfFiniteInput(const juce::AudioBuffer<float>& buffer, int numSamples)
{
    float peak = 0.0f;
    for (int ch = 0; ch < 2; ++ch)
        for (int i = 0; i < numSamples; ++i)
            if (const float x = buffer.getSample(ch, i); std::isfinite(x))
                peak = std::max(peak, std::abs(x));
    return peak;
}
} // namespace

TEST(Soak, HostDrivenInstanceStaysFiniteBoundedAndOffTheHeap)
{
    const double seconds = reliability::secondsFromEnvironment("VELMARIN_SOAK_SECONDS", 120.0);
    VelmarinProcessor processor{testsupport::privateFolders()};
    auto& plugin = processor.getPlugin();
    auto& manager = plugin.getParameterManager();
    auto& hostParameters = processor.getParameters();
    ASSERT_EQ(hostParameters.size(), 28);

    PostCounter postCounter;
    manager.addAsyncListenerToAll(&postCounter);
    reliability::mapControllers(plugin);
    reliability::Transport transport;
    processor.setPlayHead(&transport);
    const auto queueGrowth = measureQueueGrowth(manager.getNumParameters() + 4);

    juce::Random random(20240611);
    InputMaker input(random);
    juce::AudioBuffer<float> buffer(2, maxBlockSize);
    juce::MidiBuffer midi;
    midi.ensureSize(4096);

    double audioSeconds = 0.0, segmentEnd = 0.0, sampleRate = 44100.0;
    float inputEnvelope = 0.0f;
    int gestureParameter = -1, gestureBlocksLeft = 0, bypassBlocksLeft = 0;
    std::uint64_t blocks = 0, heapCalls = 0, heapCallsForPosts = 0, posts = 0;
    int minute = 0;
    MinuteFigures figures;
    std::vector<double> minuteMedians;
    double worstOutputRatio = 0.0;

    const auto reportMinute = [&](bool complete)
    {
        const double median = figures.median();
        std::printf("soak minute %d%s: %d blocks, ns/sample median %.1f max %.1f\n", minute + 1,
                    complete ? "" : " (part)", figures.blocks, median, figures.maximum());
        if (complete)
            minuteMedians.push_back(median);
        figures = {};
    };

    while (audioSeconds < seconds)
    {
        // A new prepare: new rate, maximum block and offline flag, as a host reconfigures.
        if (audioSeconds >= segmentEnd)
        {
            processor.releaseResources();
            sampleRate = sampleRates[random.nextInt(static_cast<int>(std::size(sampleRates)))];
            processor.setNonRealtime(random.nextInt(4) == 0);
            processor.prepareToPlay(sampleRate, 16 + random.nextInt(maxBlockSize));
            transport.bpm.store(40.0 + random.nextDouble() * 200.0);
            segmentEnd = audioSeconds + 1.0 + random.nextDouble() * 4.0;
        }

        // The host's work between blocks: automation, gestures, transport, options.
        for (int writes = random.nextInt(5); --writes >= 0;)
        {
            auto* p = hostParameters.getUnchecked(random.nextInt(hostParameters.size()));
            const int kind = random.nextInt(20);
            const float value = kind == 0   ? -0.25f
                                : kind == 1 ? 1.25f
                                : kind == 2 ? std::numeric_limits<float>::quiet_NaN()
                                            : random.nextFloat();
            p->setValue(value);
        }
        if (gestureParameter < 0 && random.nextInt(20) == 0)
        {
            gestureParameter = random.nextInt(hostParameters.size());
            gestureBlocksLeft = 1 + random.nextInt(30);
            hostParameters.getUnchecked(gestureParameter)->beginChangeGesture();
        }
        if (gestureParameter >= 0)
        {
            auto* p = hostParameters.getUnchecked(gestureParameter);
            p->setValueNotifyingHost(random.nextFloat());
            if (--gestureBlocksLeft <= 0)
            {
                p->endChangeGesture();
                gestureParameter = -1;
            }
        }
        if (random.nextInt(50) == 0)
            manager.getParameter(random.nextBool() ? "Real-time Processing Quality" : "Offline Processing Quality")
                ->setText(qualities[random.nextInt(4)], true);
        if (random.nextInt(40) == 0)
            processor.setNonRealtime(! processor.isNonRealtime());
        if (random.nextInt(30) == 0)
            transport.playing.store(! transport.playing.load());
        if (bypassBlocksLeft == 0 && random.nextInt(40) == 0)
            bypassBlocksLeft = 1 + random.nextInt(20);

        const int numSamples = random.nextInt(4) == 0 ? random.nextInt(65) : random.nextInt(maxBlockSize + 1);
        buffer.setSize(2, numSamples, false, false, true);
        input.fill(buffer, numSamples, sampleRate);
        midi.clear();
        for (int events = random.nextInt(9); --events >= 0;)
        {
            // Mostly inside the block, some beyond its end (they wait for a later block).
            const int position = random.nextInt(juce::jmax(1, numSamples) + (random.nextInt(10) == 0 ? 2048 : 0));
            const int kind = random.nextInt(10);
            if (kind < 8)
                midi.addEvent(juce::MidiMessage::controllerEvent(1 + random.nextInt(16),
                                                                 reliability::firstMappedController +
                                                                     random.nextInt(reliability::numMappedControllers),
                                                                 random.nextInt(128)),
                              position);
            else if (kind == 8)
                midi.addEvent(juce::MidiMessage::controllerEvent(1, random.nextInt(128), random.nextInt(128)),
                              position);
            else if (random.nextBool())
                midi.addEvent(juce::MidiMessage::noteOn(1, 60, 0.5f), position);
            else
            {
                // SysEx longer than a message keeps inline: it must pass without a heap call.
                std::uint8_t sysex[96];
                const int length = 9 + random.nextInt(static_cast<int>(sizeof sysex) - 9);
                for (int i = 0; i < length; ++i)
                    sysex[i] = static_cast<std::uint8_t>(random.nextInt(128));
                midi.addEvent(juce::MidiMessage::createSysExMessage(sysex, length), position);
            }
        }
        const float blockPeak = peakOfFiniteInput(buffer, numSamples);

        // The block itself, with the heap calls of this thread counted. Messages posted before it
        // were delivered first, so the message queue starts empty.
        reliability::dispatchPendingMessages();
        postCounter.posts = 0;
        const bool bypassed = bypassBlocksLeft > 0;
        const auto callsBefore = AllocationCounter::count();
        const double cpuBefore = threadCpuNanoseconds();
        {
            const AllocationCounter::ScopedCountingThread counting;
            if (bypassed)
                processor.processBlockBypassed(buffer, midi);
            else
                processor.processBlock(buffer, midi);
        }
        const double cpu = threadCpuNanoseconds() - cpuBefore;
        const auto calls = AllocationCounter::count() - callsBefore;
        reliability::dispatchPendingMessages();
        if (bypassed)
            --bypassBlocksLeft;

        // Posting a parameter's message may grow the message queue; that is the only heap call
        // processBlock may make (none when the queue still has room, as it may after the editor's
        // own messages).
        const auto blockPosts = static_cast<size_t>(postCounter.posts);
        ASSERT_LT(blockPosts, queueGrowth.size());
        ASSERT_LE(calls, queueGrowth[blockPosts])
            << "heap calls in processBlock beyond the message posts, block " << blocks << ", " << numSamples
            << " samples, " << blockPosts << " posts";
        heapCalls += calls;
        heapCallsForPosts += queueGrowth[blockPosts];
        posts += blockPosts;

        // The recent input peak halves every 50 ms of audio that has passed before this block.
        const float limit = reliability::outputLimit(std::max(inputEnvelope, blockPeak));
        const int bad = reliability::firstBadSample(buffer, numSamples, limit);
        ASSERT_EQ(bad, -1) << "block " << blocks << " at " << sampleRate << " Hz: sample " << bad << " is "
                           << buffer.getSample(0, juce::jmax(0, bad)) << " / "
                           << buffer.getSample(1, juce::jmax(0, bad)) << " against a limit of " << limit;
        for (int ch = 0; ch < 2; ++ch)
            for (int i = 0; i < numSamples; ++i)
                worstOutputRatio = std::max(worstOutputRatio, std::abs(buffer.getSample(ch, i)) /
                                                                  (1.0 + std::max(inputEnvelope, blockPeak)));
        inputEnvelope =
            std::max(blockPeak, inputEnvelope * static_cast<float>(std::pow(0.5, numSamples / (0.05 * sampleRate))));

        transport.advance(numSamples, sampleRate);
        ++blocks;
        ++figures.blocks;
        if (numSamples > 0)
        {
            figures.nsPerSample.push_back(cpu / numSamples);
            if (numSamples >= 256)
                figures.nsPerSampleLarge.push_back(cpu / numSamples);
        }
        audioSeconds += numSamples / sampleRate;
        if (static_cast<int>(audioSeconds / 60.0) > minute)
        {
            reportMinute(true);
            ++minute;
        }
    }
    if (figures.blocks > 0)
        reportMinute(false);

    if (gestureParameter >= 0)
        hostParameters.getUnchecked(gestureParameter)->endChangeGesture();
    processor.releaseResources();
    processor.setPlayHead(nullptr);
    manager.removeAsyncListenerFromAll(&postCounter);

    std::printf(
        "soak total: %.1f s of audio, %llu blocks, %llu heap calls in processBlock, all from %llu message posts; "
        "largest |output| / (1 + recent input peak): %.1f\n",
        audioSeconds, static_cast<unsigned long long>(blocks), static_cast<unsigned long long>(heapCalls),
        static_cast<unsigned long long>(posts), worstOutputRatio);
    EXPECT_LE(heapCalls, heapCallsForPosts);

    // The cost per sample must not creep up over a long run. The mix of rates, settings and
    // signals is the same in every minute, so the medians stay close; 4x is far below what a
    // denormal slowdown costs and far above the spread of a busy machine.
    if (seconds >= 600.0 && minuteMedians.size() >= 2)
    {
        const auto [fastest, slowest] = std::minmax_element(minuteMedians.begin(), minuteMedians.end());
        EXPECT_LT(*slowest, 4.0 * *fastest) << "the cost per sample did not stay flat";
    }
}
