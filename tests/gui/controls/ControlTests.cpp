#include "gui/GuiTestSupport.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/GFXAnimation.h"
#include "gui/controls/GFXButton.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/GFXMultiStateButton.h"
#include "gui/controls/GFXRocker.h"
#include "gui/controls/GFXSwitch.h"
#include "gui/controls/GFXToggleButton.h"
#include "io/XmlInput.h"

using guitest::TestSkinContext;

using guitest::left;
using guitest::right;
using guitest::shiftLeft;
using guitest::xml;

namespace
{

class Controls : public guitest::VelmarinFixture
{
protected:
    Controls()
    {
        skin.images["Knob.png"] = guitest::strip(40, 40, 128);
        skin.images["Switch.png"] = guitest::strip(30, 20, 4);
        skin.images["Two.png"] = guitest::strip(30, 20, 2);
        skin.images["Four.png"] = guitest::strip(30, 20, 4);
        skin.images["Three.png"] = guitest::strip(20, 40, 3);
    }

    TestSkinContext skin{&plugin()};
};

/** What listens to a control: the editor's side of the conversation. */
struct EditorEar : GUIController::Listener
{
    void controllerDragStarted(GUIController&) override { ++started; }
    void controllerDragEnded(GUIController&) override { ++ended; }
    void controllerValueChanged(GUIController&) override { ++changed; }
    void controllerEvent(GUIController&, int eventId) override { events.add(eventId); }
    int started = 0, ended = 0, changed = 0;
    juce::Array<int> events;
};
} // namespace

TEST_F(Controls, AKnobShowsTheFrameOfItsValueAndOneGesturePerDrag)
{
    GFXKnob knob("Amount");
    knob.load(
        *xml(R"(<Knob><gfx resource="Knob.png" framesNum="128"/><pos left="5" top="7"/><size width="300" height="300"/>
                      <links><link as="connectedTo" param="FX Amount"/></links></Knob>)"),
        skin);
    EXPECT_EQ(knob.getBounds(), juce::Rectangle<int>(5, 7, 40, 40)) << "the image decides the size";
    auto& amount = count("FX Amount");

    for (const auto& [value, frame] :
         std::vector<std::pair<float, int>>{{1.0f, 127}, {0.5f, 64}, {0.0f, 0}, {0.25f, 32}})
    {
        parameter("FX Amount").setNormalized(value, true);
        testsupport::dispatchPendingMessages();
        EXPECT_EQ(guitest::shownFrame(knob), frame) << value;
    }
    const int writesBefore = amount.writes;

    EditorEar ear;
    static_cast<GUIController&>(knob).addListener(&ear);
    guitest::drag(knob, {20, 30}, {20, 30 - 125});
    EXPECT_NEAR(parameter("FX Amount").getNormalized(), 0.75f, 0.01f);
    EXPECT_EQ(amount.started, 1);
    EXPECT_EQ(amount.ended, 1);
    EXPECT_EQ(ear.started, 1);
    EXPECT_EQ(ear.ended, 1);
    EXPECT_EQ(amount.writes - writesBefore, ear.changed) << "every write told the editor";
    const int writesAfterDrag = amount.writes;
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(amount.writes, writesAfterDrag) << "the value comes back to the knob without a second write";

    // Shift and the right button belong to the editor: the knob stays where it is.
    const float before = parameter("FX Amount").getNormalized();
    guitest::drag(knob, {20, 30}, {20, 0}, shiftLeft);
    guitest::drag(knob, {20, 30}, {20, 0}, right);
    EXPECT_EQ(parameter("FX Amount").getNormalized(), before);
    EXPECT_EQ(amount.started, 1);
    static_cast<GUIController&>(knob).removeListener(&ear);
}

TEST_F(Controls, SwitchesShowFrameZeroWhenDisabledAndPitchBendersSpringBack)
{
    juce::Component panel;
    GFXSwitch sw("Sync");
    sw.load(*xml(R"(<Switch style="vertical" thumb="6"><gfx resource="Switch.png" framesNum="4"/>
                    <links><link as="connectedTo" param="LFO Sync"/></links></Switch>)"),
            skin);
    panel.addAndMakeVisible(sw);
    EXPECT_EQ(sw.getSwitchStyle(), GFXSwitch::vertical);
    EXPECT_FALSE(sw.resetsOnDoubleClick()) << "a linear switch resets only when the skin says so";
    parameter("LFO Sync").setText("Full", true);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(guitest::shownFrame(sw), 3);
    panel.setEnabled(false);
    EXPECT_EQ(guitest::shownFrame(sw), 0) << "a disabled parent shows frame 0";

    GFXSwitch oddStyle("Odd");
    oddStyle.load(*xml(R"(<Switch style="diagonal"/>)"), skin);
    EXPECT_EQ(oddStyle.getSwitchStyle(), GFXSwitch::rotary);
    EXPECT_TRUE(oddStyle.resetsOnDoubleClick());

    PitchBender bender("Bend");
    bender.load(*xml(R"(<PitchBender><size width="30" height="100"/>
                        <links><link as="connectedTo" param="Channels Crossfade"/></links></PitchBender>)"),
                skin);
    parameter("Channels Crossfade").setNormalized(0.5f, true);
    testsupport::dispatchPendingMessages();
    auto& crossfade = count("Channels Crossfade");
    bender.mouseDown(guitest::mouseAt(bender, {15, 80}));
    bender.mouseDrag(guitest::mouseAt(bender, {15, 20}, 1, left, juce::Point<int>(15, 80)));
    EXPECT_NEAR(bender.getValue(), 0.48, 0.01) << "60 of 250 pixels up, from the middle";
    EXPECT_NEAR(parameter("Channels Crossfade").getNormalized(), 0.74f, 0.01f);
    bender.mouseUp(guitest::mouseAt(bender, {15, 20}, 1, left, juce::Point<int>(15, 80)));
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(bender.getValue(), 0.0);
    EXPECT_FLOAT_EQ(parameter("Channels Crossfade").getNormalized(), 0.5f) << "released, it returns to the middle";
    EXPECT_EQ(crossfade.started, 1);
}

TEST_F(Controls, ABoundButtonIsMomentaryAndTriggersOnThePress)
{
    GFXButton button("Hold");
    button.load(*xml(R"(<Button clickEvent="onRelease"><gfx resource="Two.png" framesNum="2"/>
                        <links><link as="connectedTo" param="Delay Offset Link"/></links></Button>)"),
                skin);
    button.setVisible(true);
    EXPECT_TRUE(button.getTriggeredOnMouseDown()) << "bound, it triggers on the press whatever the skin says";
    EXPECT_FALSE(button.resetsOnDoubleClick());
    parameter("Delay Offset Link").setBool(false, true);
    auto& link = count("Delay Offset Link");

    button.mouseDown(guitest::mouseAt(button, {5, 5}));
    EXPECT_TRUE(parameter("Delay Offset Link").getBool());
    button.mouseUp(guitest::mouseAt(button, {5, 5}));
    EXPECT_FALSE(parameter("Delay Offset Link").getBool()) << "on just while held";
    EXPECT_EQ(link.started, 1);
    EXPECT_EQ(link.ended, 1);

    // Unbound: events by click, Ctrl and right button, with no fall-through from Ctrl.
    GFXButton unbound("Next");
    const int next = plugin().getEvents().getUid("Select Next Preset");
    const int browse = plugin().getEvents().getUid("Browse Presets");
    unbound.load(*xml(R"(<Button><actions><action type="onClick" event="Select Next Preset"/>
                         <action type="onRightClick" event="Browse Presets"/><action type="" event="Browse Presets"/>
                         <action type="onClickWithCtrl" event="No Such Event"/></actions></Button>)"),
                 skin);
    EditorEar ear;
    static_cast<GUIController&>(unbound).addListener(&ear);
    EXPECT_FALSE(unbound.getTriggeredOnMouseDown());
    unbound.clicked(juce::ModifierKeys());
    unbound.clicked(juce::ModifierKeys(juce::ModifierKeys::rightButtonModifier));
    unbound.clicked(juce::ModifierKeys(juce::ModifierKeys::ctrlModifier));
    EXPECT_EQ(ear.events, juce::Array<int>({next, browse}));
}

TEST_F(Controls, TogglesMultiStateButtonsRockersAndAnimationsFollowTheirFrameRules)
{
    GFXToggleButton toggle("Link");
    toggle.load(*xml(R"(<ToggleButton style="2D"><gfx resource="Four.png" framesNum="4"/>
                        <links><link as="connectedTo" param="Feedback Link"/></links></ToggleButton>)"),
                skin);
    EXPECT_EQ(toggle.getFrames(), 2) << "2D uses two frames of any strip";
    EXPECT_EQ(toggle.getFrameHeight(), 40);
    parameter("Feedback Link").setBool(true, true);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(toggle.frameFor(false, false), 1);
    auto& link = count("Feedback Link");
    toggle.setVisible(true);
    toggle.mouseDown(guitest::mouseAt(toggle, {5, 5}));
    toggle.mouseUp(guitest::mouseAt(toggle, {5, 5}));
    EXPECT_FALSE(parameter("Feedback Link").getBool());
    EXPECT_EQ(link.writes, 1);
    EXPECT_EQ(link.started, 1);
    toggle.mouseDown(guitest::mouseAt(toggle, {5, 5}, 1, shiftLeft));
    toggle.mouseUp(guitest::mouseAt(toggle, {5, 5}, 1, shiftLeft));
    EXPECT_FALSE(parameter("Feedback Link").getBool()) << "Shift-click belongs to the editor";

    GFXMultiStateButton multi("Quality");
    multi.load(*xml(R"(<MultiStateButton states="1"><actions><action type="onRightClick" event="Browse Presets"/>
                       <action type="onClick" event="Select Next Preset"/></actions></MultiStateButton>)"),
               skin);
    EXPECT_EQ(multi.getStateCount(), 2);
    EditorEar ear;
    static_cast<GUIController&>(multi).addListener(&ear);
    multi.clicked(juce::ModifierKeys(juce::ModifierKeys::rightButtonModifier));
    EXPECT_TRUE(ear.events.isEmpty()) << "a right click is the editor's";
    multi.clicked(juce::ModifierKeys());
    EXPECT_EQ(ear.events.size(), 1);

    GFXRocker rocker("Preset");
    rocker.load(*xml(R"(<Rocker><gfx resource="Three.png" framesNum="3"/>
                        <actions><action type="onLessClick" event="Select Previous Preset"/>
                        <action type="onMoreClick" event="Select Next Preset"/></actions></Rocker>)"),
                skin);
    static_cast<GUIController&>(rocker).addListener(&ear);
    ear.events.clear();
    rocker.mouseDown(guitest::mouseAt(rocker, {10, 20}));
    EXPECT_EQ(rocker.getShownFrame(), 0) << "exactly half way is \"less\"";
    rocker.mouseUp(guitest::mouseAt(rocker, {10, 20}));
    rocker.mouseDown(guitest::mouseAt(rocker, {10, 19}));
    EXPECT_EQ(rocker.getShownFrame(), 2);
    rocker.mouseUp(guitest::mouseAt(rocker, {10, 19}));
    EXPECT_EQ(rocker.getShownFrame(), 1);
    EXPECT_EQ(ear.events, juce::Array<int>({plugin().getEvents().getUid("Select Previous Preset"),
                                            plugin().getEvents().getUid("Select Next Preset")}));

    GFXAnimation meter("LeftVUMeter");
    meter.load(*xml(R"(<Animation><gfx resource="Knob.png" framesNum="128"/></Animation>)"), skin);
    meter.setValue(2.0f);
    EXPECT_EQ(meter.getFrame(), 127);
    meter.setValue(-1.0f);
    EXPECT_EQ(meter.getFrame(), 0);
    meter.setValue(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(meter.getFrame(), 0);
}

TEST_F(Controls, LinksAndActionsBindOnlyWhatTheyNameExactly)
{
    GFXKnob knob("Amount");
    knob.load(*xml(R"(<Knob paramReset="false"><links><link as="ConnectedTo" param="FX Amount"/></links></Knob>)"),
              skin);
    EXPECT_EQ(knob.getParameter(), nullptr) << "the role is compared exactly";
    EXPECT_FALSE(knob.resetsOnDoubleClick());

    GFXKnob twice("Twice");
    twice.load(*xml(R"(<Knob><links><link as="connectedTo" param="Preamp"/><link as="connectedTo" param="Low Cut"/>
                       <link as="connectedTo" param="No Such Parameter"/></links></Knob>)"),
               skin);
    EXPECT_EQ(twice.getParameter(), &parameter("Low Cut")) << "the last link found wins";
    EXPECT_FALSE(parameter("Preamp").hasAsyncListener(&twice));
    EXPECT_TRUE(parameter("Low Cut").hasAsyncListener(&twice));
    EXPECT_TRUE(twice.resetsOnDoubleClick());

    GFXKnob unbound("Loose");
    unbound.load(
        *xml(R"(<Knob><size width="40" height="40"/><links><link as="connectedTo" param="Nothing"/></links></Knob>)"),
        skin);
    guitest::drag(unbound, {20, 30}, {20, 0});
    EXPECT_GT(unbound.getValue(), 0.0) << "an unbound control still moves";

    // A listener that leaves while being told does not make the walk skip another.
    struct Leaver : GUIController::Listener
    {
        GUIController* from = nullptr;
        int heard = 0;
        void controllerValueChanged(GUIController&) override
        {
            ++heard;
            from->removeListener(this);
        }
    };
    EditorEar stays;
    Leaver first, second;
    first.from = second.from = &twice;
    static_cast<GUIController&>(twice).addListener(&stays);
    static_cast<GUIController&>(twice).addListener(&first);
    static_cast<GUIController&>(twice).addListener(&second);
    twice.notifyValueChanged();
    twice.notifyValueChanged();
    EXPECT_EQ(stays.changed, 2);
    EXPECT_EQ(first.heard, 1);
    EXPECT_EQ(second.heard, 1);
}
