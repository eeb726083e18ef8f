// Speed of the engine as a host drives it: the plug-in object with its block driver, 512-sample
// blocks, parameters set by name. Each run reports the real-time factor (audio seconds per CPU
// second) and the cost of one BBD clock tick, the unit of the engine's work. The plain tick loop
// runs beside the fast one and the speed-up is printed at the end.
#include "engine/VelmarinCore.h"
#include "plugin/FolderRule.h"
#include "product/Velmarin.h"
#include "product/VelmarinProcessor.h"

#include <benchmark/benchmark.h>
#include <juce_events/juce_events.h>

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include <map>

// GCC 12 takes the malloc/free pair inside replaced operators for a mismatch; it is not one.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

/** Every heap allocation made through operator new in this program, counted. */
std::atomic<std::uint64_t> allocationCount{0};

void* operator new(std::size_t size)
{
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size == 0 ? 1 : size))
        return p;
    throw std::bad_alloc();
}

void operator delete(void* p) noexcept
{
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept
{
    std::free(p);
}

namespace
{
constexpr int blockSize = 512;
/** Every instance a benchmark makes keeps its settings in the run's private folder, set by main. */
FolderRule benchFolders;
const char* const qualities[] = {"Draft", "Normal", "High", "Ultra"};

enum Setting
{
    defaults,
    worstCase,
    lightest
};

struct Instance
{
    Instance(Setting setting, int quality, double rate, bool stereo, bool plainLoop)
    {
        auto& manager = processor.getPlugin().getParameterManager();
        auto set = [&manager](const char* name, const juce::String& text)
        { manager.getParameter(juce::String(name))->setText(text, true); };
        if (setting == worstCase)
        {
            set("BBD Length", "512");
            set("BBD Frequency Range", "1");
            set("LFO Depth L/M", "0");
            set("Delay Offset L/M", "0");
        }
        else if (setting == lightest)
        {
            set("BBD Length", "16");
            set("BBD Frequency Range", "0");
            set("Delay Offset L/M", "1");
        }
        set("Real-time Processing Quality", qualities[quality]);

        juce::AudioProcessor::BusesLayout layout;
        layout.inputBuses.add(stereo ? juce::AudioChannelSet::stereo() : juce::AudioChannelSet::mono());
        layout.outputBuses.add(stereo ? juce::AudioChannelSet::stereo() : juce::AudioChannelSet::mono());
        processor.setBusesLayout(layout);
        processor.prepareToPlay(rate, blockSize);
        core().setTickLoop(plainLoop ? VelmarinCore::TickLoop::plain : VelmarinCore::TickLoop::fast);

        buffer.setSize(stereo ? 2 : 1, blockSize);
        juce::Random random(1);
        for (int ch = 0; ch < buffer.getNumChannels(); ++ch)
            for (int i = 0; i < blockSize; ++i)
                buffer.setSample(ch, i, random.nextFloat() * 0.5f - 0.25f);
        input.makeCopyOf(buffer);
    }

    VelmarinCore& core()
    {
        return *static_cast<VelmarinCore*>(static_cast<Velmarin&>(processor.getPlugin()).getCore());
    }

    void block(bool silent = false)
    {
        if (silent)
            buffer.clear();
        else
            buffer.makeCopyOf(input, true);
        processor.processBlock(buffer, midi);
    }

    VelmarinProcessor processor{benchFolders};
    juce::AudioBuffer<float> buffer, input;
    juce::MidiBuffer midi;
};

void report(benchmark::State& state, Instance& instance, double rate, std::uint64_t ticksBefore)
{
    const double samples = static_cast<double>(state.iterations()) * blockSize;
    state.counters["x_realtime"] = benchmark::Counter(samples / rate, benchmark::Counter::kIsRate);
    const auto ticks = static_cast<double>(instance.core().getTicksRun() - ticksBefore);
    if (ticks > 0.0)
        state.counters["s_per_tick"] =
            benchmark::Counter(ticks, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/** Args: setting, quality, rate, stereo, plain loop. */
void BM_Run(benchmark::State& state)
{
    const auto rate = static_cast<double>(state.range(2));
    Instance instance(static_cast<Setting>(state.range(0)), static_cast<int>(state.range(1)), rate, state.range(3) != 0,
                      state.range(4) != 0);
    for (int i = 0; i < 20; ++i)
        instance.block(); // past the smoothers' start
    const auto ticksBefore = instance.core().getTicksRun();
    for (auto _ : state)
        instance.block();
    report(state, instance, rate, ticksBefore);
}

void runArguments(benchmark::internal::Benchmark* b)
{
    b->ArgNames({"setting", "quality", "rate", "stereo", "plain"});
    for (const int rate : {44100, 48000, 96000})
        for (const int stereo : {0, 1})
        {
            b->Args({defaults, 1, rate, stereo, 0});
            b->Args({lightest, 1, rate, stereo, 0});
            for (int quality = 0; quality < 4; ++quality)
                b->Args({worstCase, quality, rate, stereo, 0});
        }
    // The plain loop beside the fast one, where the work is heaviest.
    for (int quality = 2; quality < 4; ++quality)
        b->Args({worstCase, quality, 48000, 1, 1});
}
BENCHMARK(BM_Run)->Apply(runArguments)->Unit(benchmark::kMicrosecond);

/** Silent input after three seconds of silence. Arg: stereo. A stereo instance's gate is shut and
    the engine only watches its input; a mono instance never shuts (its second gate channel stays
    open), so it runs the full path on silence. */
void BM_GateShut(benchmark::State& state)
{
    Instance instance(defaults, 1, 48000.0, state.range(0) != 0, false);
    for (int i = 0; i < 48000 * 3 / blockSize; ++i)
        instance.block(true);
    for (auto _ : state)
        instance.block(true);
    report(state, instance, 48000.0, instance.core().getTicksRun());
}
BENCHMARK(BM_GateShut)->ArgName("stereo")->Arg(1)->Arg(0)->Unit(benchmark::kMicrosecond);

/** A parameter change that rebuilds engine state, as the GUI or automation would make it, and the
    heap allocations it makes (there should be none). */
void BM_Change(benchmark::State& state)
{
    Instance instance(defaults, 1, 48000.0, true, false);
    auto* p = instance.processor.getPlugin().getParameterManager().getParameter(
        juce::String(state.range(0) == 0 ? "Processing Quality" : "BBD Length"));
    p->setText(state.range(0) == 0 ? "Draft" : "16", true);
    const int a = p->getInt();
    p->setText(state.range(0) == 0 ? "Ultra" : "512", true);
    const int b = p->getInt();
    bool flip = false;
    const auto allocationsBefore = allocationCount.load();
    for (auto _ : state)
    {
        p->setInt((flip = ! flip) ? a : b, true);
        benchmark::ClobberMemory();
    }
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount.load() - allocationsBefore),
                                                       benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_Change)->Arg(0)->Arg(1)->ArgName("length")->Unit(benchmark::kMicrosecond);

/** Keeps the console output and remembers each run's CPU time for the speed-up lines. */
class SpeedUpReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const auto& run : runs)
            if (run.run_type == Run::RT_Iteration && run.iterations > 0)
                cpuPerIteration[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }

    void printSpeedUps() const
    {
        for (int quality = 2; quality < 4; ++quality)
        {
            const auto name = [quality](int plain)
            {
                return "BM_Run/setting:1/quality:" + std::to_string(quality) +
                       "/rate:48000/stereo:1/plain:" + std::to_string(plain);
            };
            const auto fast = cpuPerIteration.find(name(0)), plain = cpuPerIteration.find(name(1));
            if (fast != cpuPerIteration.end() && plain != cpuPerIteration.end() && fast->second > 0.0)
                std::printf("speed-up of the fast tick loop, worst case, %s, 48 kHz stereo: %.2fx\n",
                            qualities[quality], plain->second / fast->second);
        }
    }

private:
    std::map<std::string, double> cpuPerIteration;
};
} // namespace

int main(int argc, char** argv)
{
    const juce::ScopedJuceInitialiser_GUI juce;
    // Instances keep their settings in a private folder, never the user's own.
    const auto folder =
        juce::File::getSpecialLocation(juce::File::tempDirectory).getNonexistentChildFile("velmarin-bench", {}, false);
    folder.createDirectory();
    benchFolders = FolderRule::fixed(folder, folder.getChildFile("data"));

    benchmark::Initialize(&argc, argv);
    SpeedUpReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printSpeedUps();
    benchmark::Shutdown();

    folder.deleteRecursively();
    return 0;
}
