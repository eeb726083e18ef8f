// The parameter info panel on a real Velmarin: its editor with the big skin the build draws, right
// clicks delivered in JUCE's order, and MIDI learn through the plug-in's own map.
#include "gui/GuiTestSupport.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/GFXKnob.h"
#include "gui/core/ComponentSearch.h"
#include "gui/editor/ParameterInfo.h"
#include "product/Velmarin.h"
#include "product/VelmarinEditor.h"

namespace
{
struct InfoEar : ParameterInfo::Listener
{
    void sizeChanged(ParameterInfo&) override { ++resized; }
    void closeRequested(ParameterInfo&) override {}
    int resized = 0;
};

class ParameterInfoPanel : public guitest::VelmarinFixture
{
protected:
    ParameterInfoPanel()
    {
        const auto skins = (folder / "data").getChildFile("Skins");
        skins.createDirectory();
        juce::File(VELMARIN_SHIPPED_SKINS_DIR)
            .getChildFile("Big.q41skin")
            .copyFileTo(skins.getChildFile("Big.q41skin"));
        editor->firstDisplay = [] { return std::optional<juce::Rectangle<int>>(); };
        editor->initialise();
        testsupport::dispatchPendingMessages();
    }

    juce::Component& control(const char* name) { return *ComponentSearch::findByName(*editor->getMainPanel(), name); }

    /** A press and release: the editor hears it first (it listens to the main panel), then the
        floating-panel hider (it listens to the whole editor). */
    void press(juce::Component& component, juce::ModifierKeys mods = guitest::right)
    {
        const auto event = guitest::mouseAt(component, component.getLocalBounds().getCentre(), 1, mods);
        editor->mouseDown(event);
        editor->getFloatingHider().mouseDown(event);
        editor->getFloatingHider().mouseUp(event);
    }
    void pressOutside() { press(*editor->getMainPanel(), guitest::left); }

    ParameterInfo& openOn(const char* name)
    {
        press(control(name));
        EXPECT_NE(editor->getParameterInfo(), nullptr) << name;
        return *editor->getParameterInfo();
    }

    void expectInsideAboveTheStatusBar(ParameterInfo& info)
    {
        EXPECT_TRUE(editor->getLocalBounds().contains(info.getBounds())) << info.getBounds().toString();
        EXPECT_LE(info.getBottom(), editor->getStatusBar().getY());
    }

    /** One tick of the panel's 50-millisecond timer. */
    static void tick(ParameterInfo& info) { static_cast<juce::Timer&>(info).timerCallback(); }
    MidiControlMap& map() { return plugin().getMidiMap(); }
    void controllerArrives(int number) { map().handleController(juce::MidiMessage::controllerEvent(1, number, 9)); }

    std::unique_ptr<VelmarinEditor> editor = std::make_unique<VelmarinEditor>(dynamic_cast<Velmarin&>(plugin()));
};
} // namespace

TEST_F(ParameterInfoPanel, ItsRowsFitEveryLayoutAndOnlyTheUsersToggleIsTold)
{
    for (const bool showValue : {false, true})
    {
        InfoEar ear;
        ParameterInfo info(parameter("Preamp"), map(), showValue, ear);
        EXPECT_EQ(info.getBounds(), juce::Rectangle<int>(0, 0, 128, showValue ? 109 : 83));
        EXPECT_EQ(info.getValueLabel().isVisible(), showValue);
        guitest::click(info.getExpandButton());
        EXPECT_EQ(ear.resized, 1);
        EXPECT_EQ(info.getHeight(), (showValue ? 109 : 83) + ParameterInfo::sectionHeight + 20);
        EXPECT_EQ(info.getMidiCC().getY(), (showValue ? 58 : 32) + 33) << "the section moves below the value";
        for (auto* child : info.getChildren())
            EXPECT_TRUE(info.getLocalBounds().contains(child->getBoundsInParent()) || ! child->isVisible());
        info.setExpanded(false, juce::dontSendNotification);
        EXPECT_EQ(ear.resized, 1) << "the editor's own setting is not told";
    }
}

TEST_F(ParameterInfoPanel, ARightClickOpensItBesideTheControlAndAnotherParameterReplacesIt)
{
    ASSERT_EQ(editor->getCurrentSkin(), "Big");
    editor->getStatusBar().showMessage("Preamp: +3.0dB", 6);
    auto& preampKnob = control("PreampKnob");
    auto& first = openOn("PreampKnob");
    EXPECT_EQ(&first.getParameter(), &parameter("Preamp"));
    const auto preampArea = editor->getLocalArea(&preampKnob, preampKnob.getLocalBounds());
    EXPECT_EQ(first.getX(), preampArea.getCentreX() + preampArea.getWidth() / 2) << "at its right";
    expectInsideAboveTheStatusBar(first);
    EXPECT_EQ(editor->getStatusBar().getMessage(), "");
    EXPECT_EQ(first.getValueLabel().getText(), parameter("Preamp").getDisplayText());

    press(preampKnob);
    EXPECT_EQ(editor->getFloating(), &first) << "the same parameter keeps it, though the press was outside it";

    // At the right edge, in the lower row: to the left of the knob, raised above the status bar.
    juce::Component::SafePointer<juce::Component> firstAlive(&first);
    auto& volumeKnob = control("OutputVolumeKnob");
    auto& second = openOn("OutputVolumeKnob");
    EXPECT_EQ(&second.getParameter(), &parameter("Output Volume"));
    EXPECT_EQ(first.getParentComponent(), nullptr);
    EXPECT_EQ(second.getRight(), editor->getLocalArea(&volumeKnob, volumeKnob.getLocalBounds()).getX());
    guitest::click(second.getExpandButton());
    expectInsideAboveTheStatusBar(second);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(firstAlive, nullptr) << "a closed panel is deleted once the message loop runs";

    // A press elsewhere closes it; the next one opens as the last one was left.
    pressOutside();
    EXPECT_EQ(editor->getFloating(), nullptr);
    EXPECT_TRUE(openOn("FXAmountKnob").isExpanded());
}

TEST_F(ParameterInfoPanel, RightClicksWithoutANumericParameterOpenNothingAndShiftRightIsNoReset)
{
    press(control("BBDClockDisplay"));
    press(control("OptionsButton"));
    EXPECT_EQ(editor->getFloating(), nullptr) << "a text parameter, and none";

    auto& feedback = parameter("Feedback L/M");
    feedback.setNormalized(0.9f, true);
    const auto moved = feedback.getNormalized();
    press(control("FeedbackLMKnob"),
          juce::ModifierKeys(juce::ModifierKeys::rightButtonModifier | juce::ModifierKeys::shiftModifier));
    EXPECT_EQ(feedback.getNormalized(), moved);
    ASSERT_NE(editor->getParameterInfo(), nullptr) << "it is a right click";
    EXPECT_EQ(&editor->getParameterInfo()->getParameter(), &feedback);
}

TEST_F(ParameterInfoPanel, LearnShowsTheArrivingControllerOnTheNextRefreshAndOkKeepsIt)
{
    auto& info = openOn("PreampKnob");
    guitest::click(info.getExpandButton());
    EXPECT_EQ(info.getMidiCC().getNumberText() + info.getMidiCC().getAssignmentText(), "# --unassigned");
    guitest::click(info.getLearnButton());
    EXPECT_TRUE(map().isLearning());
    EXPECT_EQ(info.getTimerInterval(), 50);
    EXPECT_TRUE(info.getOkButton().isVisible() && ! info.getLearnButton().isVisible());

    controllerArrives(21);
    EXPECT_EQ(info.getMidiCC().getController(), -1) << "the panel learns of it on its timer";
    tick(info);
    EXPECT_EQ(info.getMidiCC().getNumberText() + info.getMidiCC().getAssignmentText(), "#21#21");

    juce::Component::SafePointer<juce::Component> alive(&info);
    guitest::click(info.getOkButton());
    EXPECT_EQ(editor->getFloating(), nullptr) << "OK closes the panel";
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(alive, nullptr);
    EXPECT_FALSE(map().isLearning());
    EXPECT_EQ(map().getController(&parameter("Preamp")), 21);
}

TEST_F(ParameterInfoPanel, CancelPutsBackWhatClearOrLearnChangedAndClosingCancelsALearn)
{
    auto& preamp = parameter("Preamp");
    auto& amount = parameter("FX Amount");
    map().assign(&preamp, 7);
    map().assign(&amount, 30);
    auto& info = openOn("PreampKnob");
    guitest::click(info.getExpandButton());

    guitest::click(info.getClearButton());
    EXPECT_EQ(map().getController(&preamp), -1);
    EXPECT_EQ(info.getMidiCC().getController(), -1);
    guitest::click(info.getCancelButton());
    EXPECT_EQ(map().getController(&preamp), 7) << "the cleared controller comes back";
    EXPECT_EQ(editor->getFloating(), &info) << "Cancel keeps the panel open";

    // A learn that took another parameter's controller.
    guitest::click(info.getLearnButton());
    controllerArrives(30);
    guitest::click(info.getCancelButton());
    EXPECT_FALSE(map().isLearning() || info.isTimerRunning() || info.getMidiCC().isHighlighted());
    EXPECT_EQ(map().getController(&preamp), 7);
    EXPECT_EQ(map().getController(&amount), 30);
    EXPECT_EQ(info.getMidiCC().getController(), 7);

    guitest::click(info.getLearnButton());
    controllerArrives(40);
    pressOutside();
    EXPECT_EQ(editor->getFloating(), nullptr);
    EXPECT_FALSE(map().isLearning());
    EXPECT_EQ(map().getController(&preamp), 7);
}

TEST_F(ParameterInfoPanel, WhileItIsOpenControlsLeaveTheStatusBarAlone)
{
    auto& knob = dynamic_cast<GFXKnob&>(control("FXAmountKnob"));
    auto& amount = parameter("FX Amount");
    const auto turn = [&]
    {
        juce::Thread::sleep(2); // a slider takes one wheel event per millisecond stamp
        const auto before = amount.getNormalized();
        knob.mouseWheelMove(guitest::mouseAt(knob, {5, 5}, 1, juce::ModifierKeys()),
                            {0.0f, before > 0.5f ? -0.5f : 0.5f, false, false, false});
        EXPECT_NE(amount.getNormalized(), before);
    };

    openOn("PreampKnob");
    turn();
    press(knob, guitest::shiftLeft); // a reset, and a press outside the panel that closes it
    EXPECT_EQ(editor->getFloating(), nullptr);
    EXPECT_EQ(editor->getStatusBar().getMessage(), "");
    turn();
    EXPECT_TRUE(editor->getStatusBar().getMessage().startsWith("FX Amount: ")) << "closed, it shows again";
}
