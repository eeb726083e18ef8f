// What the editor costs: an instance's start-up and heap with the editor on each shipped skin,
// beside the core alone and the instance with no skin installed, and the 25-millisecond tick the
// editor runs for the instance's whole life while no window shows it.
#include "TestSupport.h"
#include "engine/VelmarinCore.h"
#include "gui/editor/BasePluginEditor.h"
#include "plugin/BasePlugin.h"
#include "plugin/FolderRule.h"
#include "product/VelmarinProcessor.h"

#include <benchmark/benchmark.h>
#include <juce_events/juce_events.h>

#include <malloc.h>

#include <atomic>

/** Every heap allocation made through operator new in this program (counted by the engine's file). */
extern std::atomic<std::uint64_t> allocationCount;

namespace
{
const char* const skinNames[] = {"", "Big", "Small"};

/** Folders of their own for one benchmark, with the one shipped skin asked for installed. */
struct SkinFolders
{
    explicit SkinFolders(const juce::String& skin)
    {
        root.createDirectory();
        if (skin.isNotEmpty())
        {
            const auto skins = root.getChildFile("data").getChildFile("Skins");
            skins.createDirectory();
            const auto built = juce::File(VELMARIN_BUILT_SKINS_DIR).getChildFile(skin + ".q41skin");
            available = built.copyFileTo(skins.getChildFile(built.getFileName()));
        }
    }
    ~SkinFolders() { root.deleteRecursively(); }
    FolderRule rule() const { return FolderRule::fixed(root.getChildFile("user"), root.getChildFile("data")); }

    juce::File root =
        juce::File::getSpecialLocation(juce::File::tempDirectory).getNonexistentChildFile("velmarin-editor-bench", {});
    bool available = true;
};

using testsupport::dispatchPendingMessages;

/** Heap bytes in use: the small blocks and the large ones malloc maps on their own (images, rings). */
double heapInUse()
{
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/** The core alone: what the engine holds without the plug-in object, its parameters and editor. */
void BM_CoreConstruction(benchmark::State& state)
{
    double heldBytes = 0.0;
    for (auto _ : state)
    {
        const auto before = heapInUse();
        auto core = std::make_unique<VelmarinCore>();
        heldBytes = heapInUse() - before;
        core.reset();
    }
    state.counters["heap_bytes"] = heldBytes;
}
BENCHMARK(BM_CoreConstruction)->Unit(benchmark::kMillisecond);

/** A new instance until its editor shows the installed skin (or none: the plug-in with its editor
    and no panel), and the heap it holds then. */
void BM_StartupWithSkin(benchmark::State& state)
{
    const juce::String skin = skinNames[state.range(0)];
    SkinFolders folders(skin);
    if (! folders.available)
    {
        state.SkipWithError("the shipped skins are not built");
        return;
    }
    double heldBytes = 0.0;
    for (auto _ : state)
    {
        const auto before = heapInUse();
        auto instance = std::make_unique<VelmarinProcessor>(folders.rule());
        dispatchPendingMessages();
        auto* editor = dynamic_cast<BasePluginEditor*>(instance->getPlugin().getEditor());
        if (editor == nullptr || editor->getCurrentSkin() != skin)
        {
            state.SkipWithError("the editor did not show the skin");
            return;
        }
        heldBytes = heapInUse() - before;
        instance.reset();
    }
    state.counters["heap_bytes"] = heldBytes;
}
BENCHMARK(BM_StartupWithSkin)->ArgName("skin")->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

/** One tick of the editor with no window open, on a prepared instance that is not processing:
    the meters fall, the read-out is written. Its CPU time times 40 is the editor's idle load. */
void BM_IdleTick(benchmark::State& state)
{
    SkinFolders folders(skinNames[state.range(0)]);
    VelmarinProcessor instance(folders.rule());
    dispatchPendingMessages();
    instance.prepareToPlay(48000.0, 512);
    auto* editor = dynamic_cast<BasePluginEditor*>(instance.getPlugin().getEditor());
    if (editor == nullptr)
    {
        state.SkipWithError("no editor");
        return;
    }
    juce::Timer& timer = *editor;
    const auto allocationsBefore = allocationCount.load();
    for (auto _ : state)
    {
        timer.timerCallback();
        benchmark::ClobberMemory();
    }
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount.load() - allocationsBefore),
                                                       benchmark::Counter::kAvgIterations);
    instance.releaseResources();
    dispatchPendingMessages();
}
BENCHMARK(BM_IdleTick)->ArgName("skin")->DenseRange(0, 2)->Unit(benchmark::kNanosecond);
} // namespace
