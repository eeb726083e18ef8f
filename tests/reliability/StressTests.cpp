// Every thread a host and an editor bring, on one instance at once: an audio thread processing
// blocks with controllers in the MIDI buffer, a host thread automating and asking for texts and
// switching between real-time and offline, a thread saving and loading the state (which carries
// the editor's skin), and the message thread with the editor open on a packed skin: its timer
// ticking (meters, MIDI lamp, frequency read-out), values written inside gestures, skins switched,
// and the parameters' messages delivered. Meant to run under ThreadSanitizer and AddressSanitizer
// as much as plain.
//
// Run length: VELMARIN_STRESS_SECONDS seconds (default 2).
#include "ReliabilityHost.h"
#include "gui/editor/BasePluginEditor.h"
#include "gui/skin/EveryWordSkin.h"
#include "product/Velmarin.h"
#include "product/VelmarinProcessor.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace
{
constexpr int maxBlockSize = 1024;
constexpr double sampleRate = 48000.0;

/** What a host's wrapper hears from the processor: values and gestures, on whichever thread. */
struct HostListener : juce::AudioProcessorListener
{
    void audioProcessorParameterChanged(juce::AudioProcessor*, int, float) override { ++values; }
    void audioProcessorChanged(juce::AudioProcessor*, const ChangeDetails&) override {}
    void audioProcessorParameterChangeGestureBegin(juce::AudioProcessor*, int) override { ++gestures; }
    void audioProcessorParameterChangeGestureEnd(juce::AudioProcessor*, int) override {}
    std::atomic<int> values{0}, gestures{0};
};

/** The editor's view of the parameters: told on the message thread. */
struct EditorListener : Parameter::Listener
{
    void parameterChanged(Parameter&) override { ++updates; }
    int updates = 0;
};

void sleepMicroseconds(int us)
{
    std::this_thread::sleep_for(std::chrono::microseconds(us));
}

juce::MemoryBlock stateOf(VelmarinProcessor& processor)
{
    juce::MemoryBlock block;
    processor.getStateInformation(block);
    return block;
}
} // namespace

TEST(Stress, ConcurrentHostEditorStateAndAudioThreadsKeepTheInstanceSound)
{
    const double seconds = reliability::secondsFromEnvironment("VELMARIN_STRESS_SECONDS", 2.0);
    // Two skins packed as the skin tool packs them: every control of the grammar, and a bare panel.
    const testsupport::TemporaryFolder folder("stress");
    const auto skins = (folder / "data").getChildFile("Skins");
    skins.createDirectory();
    testskin::everyWordSkin().pack(skins, "Every");
    testskin::Skin::basic(300, 200).pack(skins, "Bare");
    VelmarinProcessor processor(FolderRule::fixed(folder / "user", folder / "data"));
    auto& plugin = static_cast<Velmarin&>(processor.getPlugin());
    // The host opens the editor's window: the skin settles, the timer ticks on a visible editor.
    reliability::dispatchPendingMessages();
    std::unique_ptr<juce::AudioProcessorEditor> window(processor.createEditor());
    auto* editorComponent = dynamic_cast<BasePluginEditor*>(plugin.getEditor());
    ASSERT_NE(editorComponent, nullptr);
    ASSERT_NE(editorComponent->getMainPanel(), nullptr) << "a skin is on screen";
    auto& manager = plugin.getParameterManager();
    const auto& hostParameters = processor.getParameters();

    // Before audio starts: the host's listener, the editor's listener, the learned controllers.
    HostListener host;
    processor.addListener(&host);
    EditorListener editor;
    manager.addAsyncListenerToAll(&editor);
    reliability::mapControllers(plugin);
    reliability::Transport transport;
    processor.setPlayHead(&transport);
    processor.prepareToPlay(sampleRate, maxBlockSize);

    std::atomic<bool> stop{false};
    std::atomic<int> blocks{0}, badBlocks{0}, automationWrites{0}, stateLoads{0};

    std::thread audio(
        [&]
        {
            juce::Random random(1);
            juce::AudioBuffer<float> buffer(2, maxBlockSize);
            juce::MidiBuffer midi;
            midi.ensureSize(1024);
            while (! stop.load())
            {
                const int n = 1 + random.nextInt(maxBlockSize);
                buffer.setSize(2, n, false, false, true);
                for (int ch = 0; ch < 2; ++ch)
                    for (int i = 0; i < n; ++i)
                        buffer.setSample(ch, i, random.nextFloat() - 0.5f);
                if (random.nextInt(20) == 0)
                    buffer.setSample(random.nextInt(2), random.nextInt(n), std::numeric_limits<float>::quiet_NaN());
                midi.clear();
                for (int e = random.nextInt(4); --e >= 0;)
                    midi.addEvent(
                        juce::MidiMessage::controllerEvent(
                            1, reliability::firstMappedController + random.nextInt(reliability::numMappedControllers),
                            random.nextInt(128)),
                        random.nextInt(n));
                if (random.nextInt(50) == 0)
                    processor.processBlockBypassed(buffer, midi);
                else
                    processor.processBlock(buffer, midi);
                if (reliability::firstBadSample(buffer, n, reliability::outputLimit(0.5f)) >= 0)
                    ++badBlocks;
                transport.advance(n, sampleRate);
                ++blocks;
            }
        });

    std::thread hostThread(
        [&]
        {
            juce::Random random(2);
            while (! stop.load())
            {
                auto* p = hostParameters.getUnchecked(random.nextInt(hostParameters.size()));
                p->setValue(random.nextFloat());
                // A host's display asks for values and texts at any time, and reads typed texts back.
                (void)p->getValue();
                (void)p->getValueForText(p->getText(random.nextFloat(), 32));
                (void)p->getCurrentValueAsText();
                ++automationWrites;
                if (random.nextInt(200) == 0)
                    processor.setNonRealtime(! processor.isNonRealtime());
                if (random.nextInt(100) == 0)
                    transport.bpm.store(60.0 + random.nextDouble() * 120.0);
                sleepMicroseconds(100);
            }
        });

    std::thread stateThread(
        [&]
        {
            juce::Random random(3);
            std::vector<juce::MemoryBlock> saved;
            while (! stop.load())
            {
                saved.push_back(stateOf(processor));
                if (saved.size() > 8)
                    saved.erase(saved.begin());
                const auto& state = saved[static_cast<size_t>(random.nextInt(static_cast<int>(saved.size())))];
                processor.setStateInformation(state.getData(), static_cast<int>(state.getSize()));
                ++stateLoads;
                sleepMicroseconds(2000);
            }
        });

    // This thread is the message thread: the editor's gestures and timer, skin switches, the messages.
    juce::Random random(4);
    int gestures = 0, skinSwitches = 0;
    const auto start = std::chrono::steady_clock::now();
    auto nextSwitch = start;
    while (std::chrono::steady_clock::now() - start < std::chrono::duration<double>(seconds))
    {
        auto* p = manager.getParameter(random.nextInt(reliability::numMappedControllers));
        p->beginChange();
        for (int step = 1 + random.nextInt(5); --step >= 0;)
        {
            p->setNormalized(random.nextFloat(), true);
            sleepMicroseconds(300);
        }
        p->endChange();
        ++gestures;
        if (std::chrono::steady_clock::now() >= nextSwitch)
        {
            editorComponent->requestSkin(editorComponent->getCurrentSkin() == "Every" ? "Bare" : "Every");
            ++skinSwitches;
            nextSwitch += std::chrono::milliseconds(400);
        }
        reliability::dispatchPendingMessages();
    }
    stop.store(true);
    audio.join();
    hostThread.join();
    stateThread.join();
    reliability::dispatchPendingMessages();
    EXPECT_NE(editorComponent->getMainPanel(), nullptr);
    EXPECT_NE(plugin.getParameterManager().getParameter("Current BBD Frequency")->getText(), "")
        << "the timer wrote the read-out while audio ran";
    window.reset();
    processor.releaseResources();
    processor.setPlayHead(nullptr);

    std::printf("stress: %.0f s, %d blocks, %d host automation writes, %d state loads, %d editor gestures, %d skin "
                "switches\n",
                seconds, blocks.load(), automationWrites.load(), stateLoads.load(), gestures, skinSwitches);
    EXPECT_EQ(badBlocks.load(), 0) << "blocks with a sample that is not finite or out of bounds";
    EXPECT_GT(blocks.load(), 0);
    EXPECT_GT(automationWrites.load(), 0);
    EXPECT_GT(stateLoads.load(), 0);
    EXPECT_GT(gestures, 0);
    EXPECT_GT(editor.updates, 0);
    EXPECT_GT(host.gestures.load(), 0);

    // What the instance holds after the storm is a whole state: a second instance takes it and,
    // once its editor shows the state's skin, gives back the same chunk.
    const auto state = stateOf(processor);
    VelmarinProcessor second(FolderRule::fixed(folder / "user", folder / "data"));
    second.setStateInformation(state.getData(), static_cast<int>(state.getSize()));
    reliability::dispatchPendingMessages(); // its editor puts the state's skin on screen
    EXPECT_EQ(stateOf(second), state);

    manager.removeAsyncListenerFromAll(&editor);
    processor.removeListener(&host);
}
