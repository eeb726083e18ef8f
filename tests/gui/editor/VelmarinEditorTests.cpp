#include "engine/VelmarinParameterIndex.h"
#include "gui/GuiTestSupport.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/GFXSwitch.h"
#include "gui/core/ComponentSearch.h"
#include "gui/skin/TestSkin.h"
#include "plugin/MarrowgateEffect.h"
#include "product/Velmarin.h"
#include "product/VelmarinEditor.h"

namespace
{
/** A skin with the controls the product's editor looks up, the twins at one place. */
testskin::Skin linkedSkin()
{
    auto skin = testskin::Skin::basic(600, 300);
    skin.files["skin.xml"] =
        testskin::text(R"(<PluginEditor><Panel name="MainPanel"><gfx resource="Background.png"/><controls>
  <Knob name="FeedbackRSKnob"><size width="40" height="40"/><pos left="10" top="10"/>
    <links><link as="connectedTo" param="Feedback R/S"/></links></Knob>
  <Knob name="FeedbackRSKnobLinked"><size width="40" height="40"/><pos left="10" top="10"/>
    <links><link as="connectedTo" param="Feedback L/M"/></links></Knob>
  <Panel name="LFOFreePanel"><size width="100" height="60"/><pos left="100" top="10"/><controls>
    <Knob name="LFORateRSKnob"><size width="40" height="40"/></Knob>
    <Knob name="LFORateRSKnobLinked"><size width="40" height="40"/></Knob></controls></Panel>
  <Panel name="LFOSyncPanel"><size width="100" height="60"/><pos left="100" top="10"/><controls>
    <Switch name="LFONoteRateRSSwitch"><size width="40" height="40"/></Switch>
    <Switch name="LFONoteRateRSSwitchLinked"><size width="40" height="40"/></Switch></controls></Panel>
  <Animation name="LeftVUMeter"><gfx resource="Meter.png" framesNum="64"/><pos left="300" top="10"/></Animation>
  <Animation name="RightVUMeter"><gfx resource="Meter.png" framesNum="64"/><pos left="320" top="10"/></Animation>
</controls></Panel></PluginEditor>)");
    juce::MemoryBlock meter;
    {
        juce::MemoryOutputStream out(meter, false);
        juce::PNGImageFormat().writeImageToStream(guitest::strip(10, 40, 64), out);
    }
    skin.files["Meter.png"] = meter;
    return skin;
}

class ProductEditor : public guitest::VelmarinFixture
{
protected:
    ProductEditor()
    {
        const auto skins = (folder / "data").getChildFile("Skins");
        skins.createDirectory();
        linkedSkin().pack(skins, "Linked");
    }

    std::unique_ptr<VelmarinEditor> open()
    {
        auto editor = std::make_unique<VelmarinEditor>(dynamic_cast<Velmarin&>(plugin()));
        editor->firstDisplay = [] { return std::optional<juce::Rectangle<int>>(); };
        editor->initialise();
        testsupport::dispatchPendingMessages();
        return editor;
    }

    template <typename T> T& find(VelmarinEditor& editor, const char* name)
    {
        auto* found = ComponentSearch::find<T>(*editor.getMainPanel(), name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
};

/** One tick of the editor's 25-millisecond timer. */
void tick(juce::Timer& editor)
{
    editor.timerCallback();
}
} // namespace

TEST_F(ProductEditor, LinksAndSyncShowTheirControlsAtLoadAndOnChange)
{
    parameter("Feedback Link").setBool(true, true);
    parameter("LFO Sync").setInt(0, true);
    testsupport::dispatchPendingMessages();
    auto editor = open();
    ASSERT_EQ(editor->getCurrentSkin(), "Linked");
    auto& own = find<GFXKnob>(*editor, "FeedbackRSKnob");
    auto& linked = find<GFXKnob>(*editor, "FeedbackRSKnobLinked");
    EXPECT_FALSE(own.isVisible());
    EXPECT_TRUE(linked.isVisible());
    EXPECT_TRUE(find<GFXPanel>(*editor, "LFOFreePanel").isVisible());
    EXPECT_FALSE(find<GFXPanel>(*editor, "LFOSyncPanel").isVisible()) << "hidden at the first choice";

    parameter("Feedback Link").setBool(false, true);
    parameter("LFO Sync").setText("Dotted", true);
    parameter("LFO Rate Link").setBool(true, true);
    EXPECT_TRUE(linked.isVisible()) << "not before the async update";
    testsupport::dispatchPendingMessages();
    EXPECT_TRUE(own.isVisible());
    EXPECT_FALSE(linked.isVisible());
    EXPECT_FALSE(find<GFXPanel>(*editor, "LFOFreePanel").isVisible());
    EXPECT_TRUE(find<GFXPanel>(*editor, "LFOSyncPanel").isVisible());
    EXPECT_TRUE(find<GFXSwitch>(*editor, "LFONoteRateRSSwitchLinked").isVisible());
    EXPECT_FALSE(find<GFXSwitch>(*editor, "LFONoteRateRSSwitch").isVisible());
}

TEST_F(ProductEditor, MetersFallToZeroAndEachTickWritesTheReadOutOnce)
{
    auto editor = open();
    auto& readOut = parameter("Current BBD Frequency");
    readOut.setText("stale", false);
    guitest::ParameterCounter counter;
    readOut.addListener(&counter);
    tick(*editor);
    EXPECT_EQ(counter.writes, 1);
    EXPECT_EQ(readOut.getText(), "") << "not processing: no clock";
    readOut.removeListener(&counter);

    // Not processing: shown levels fall by the decay factor and then to exactly 0.
    auto* core = dynamic_cast<MarrowgateEffect&>(plugin()).getCore();
    ASSERT_NE(core, nullptr);
    auto& meter = find<GFXAnimation>(*editor, "LeftVUMeter");
    plugin().prepareToPlay(48000.0, 256);
    core->peakLeft = 0.9f;
    tick(*editor);
    EXPECT_FLOAT_EQ(editor->getShownLevel(0), 0.9f);
    EXPECT_EQ(meter.getFrame(), 57);
    plugin().releaseResources();
    int ticks = 0;
    while (editor->getShownLevel(0) != 0.0f && ticks < 100)
    {
        tick(*editor);
        ++ticks;
    }
    EXPECT_EQ(editor->getShownLevel(0), 0.0f);
    EXPECT_EQ(ticks, 13) << "0.9 x 0.675^12 is the first level below 0.01; the next tick sets 0";
    EXPECT_EQ(meter.getFrame(), 0);
}
