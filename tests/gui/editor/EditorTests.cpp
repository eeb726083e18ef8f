#include "gui/GuiTestSupport.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/GFXSwitch.h"
#include "gui/controls/GFXToggleButton.h"
#include "gui/core/ComponentSearch.h"
#include "gui/editor/AboutWindow.h"
#include "gui/editor/BasePluginEditor.h"
#include "gui/editor/PresetChangedAlert.h"
#include "gui/skin/TestSkin.h"
#include "parameters/BoolParameter.h"
#include "parameters/FloatParameter.h"
#include "plugin/SoftwareDesignation.h"
#include "product/VelmarinProcessor.h"

#include <thread>

namespace
{
/** A skin of a given width holding one knob on "FX Amount" (resets on double click or not). */
testskin::Skin skinOfWidth(int width, bool paramReset = true)
{
    auto skin = testskin::Skin::basic(width, 300);
    skin.files["skin.xml"] = testskin::text(R"(<PluginEditor><Panel name="MainPanel"><gfx resource="Background.png"/>
      <controls><Knob name="Amount" paramReset=")" +
                                            juce::String(paramReset ? "true" : "false") +
                                            R"("><size width="40" height="40"/><pos left="10" top="10"/>
      <links><link as="connectedTo" param="FX Amount"/></links></Knob></controls></Panel></PluginEditor>)");
    return skin;
}

class Editor : public guitest::VelmarinFixture
{
protected:
    juce::File skins() const { return (folder / "data").getChildFile("Skins"); }

    std::unique_ptr<BasePluginEditor>
    open(std::optional<juce::Rectangle<int>> display = juce::Rectangle<int>(0, 0, 1000, 800))
    {
        auto editor = std::make_unique<BasePluginEditor>(plugin(), true);
        editor->firstDisplay = [display] { return display; };
        editor->initialise();
        testsupport::dispatchPendingMessages();
        return editor;
    }

    GFXKnob& knob(BasePluginEditor& editor)
    {
        return *ComponentSearch::find<GFXKnob>(*editor.getMainPanel(), "Amount");
    }
};

/** An editor without skins that asks for the generic layout, leaving a column free after "FX
    Amount" and starting a new row after "Delay Offset Link". */
class GenericEditor : public BasePluginEditor
{
public:
    GenericEditor(BasePlugin& p, int amountIndex, int linkIndex)
        : BasePluginEditor(p, false), amount(amountIndex), link(linkIndex)
    {
    }

protected:
    bool wantsGenericControls() override { return true; }
    bool isColumnBreakAfter(int index) override { return index == amount; }
    bool isRowBreakAfter(int index) override { return index == link; }

private:
    int amount, link;
};

/** The designation of a development build, with its branch and extra text as a test sets them. */
struct Designation : SoftwareDesignation
{
    juce::String branch, extra;
    juce::String getShortName() const override { return "Test"; }
    juce::String getDescription() const override { return "A test"; }
    juce::String getVersion() const override { return "2.0"; }
    juce::String getFullVersion() const override { return "2.0.7"; }
    juce::String getWebAddress() const override { return {}; }
    juce::String getYear() const override { return "2026"; }
    juce::String getLocation() const override { return {}; }
    juce::String getBuildDate() const override { return "2026-11-24"; }
    juce::String getReservedText() const override { return extra; }
    juce::String getBuildIdentifier() const override { return "r42"; }
    juce::String getPluginFormat() const override { return "VST3"; }
    juce::String getWordSize() const override { return "64bit"; }
    juce::String getBranch() const override { return branch; }
};

struct PresetState : PresetChangeNotifier::Listener
{
    void presetChangedStateChanged(bool changed) override { heard.add(changed); }
    juce::Array<bool> heard;
};

struct Owner : FloatingComponentOwner
{
    void floatingClosed(juce::Component* panel, juce::Component*) override { closed.add(panel); }
    juce::Array<juce::Component*> closed;
};
} // namespace

TEST_F(Editor, ItOpensWithTheWidestSkinThatFitsAndSwitchesOnRequest)
{
    skins().createDirectory();
    skinOfWidth(900).pack(skins(), "Big");
    skinOfWidth(500).pack(skins(), "Small");
    auto editor = open();
    EXPECT_EQ(editor->getCurrentSkin(), "Big");
    EXPECT_EQ(editor->getPreferredSkin(), "Big");
    ASSERT_NE(editor->getMainPanel(), nullptr);
    EXPECT_EQ(editor->getBounds(), juce::Rectangle<int>(0, 0, 900, 300 + 16)) << "the panel and the status bar";
    EXPECT_EQ(editor->getStatusBar().getBounds(), juce::Rectangle<int>(0, 300, 900, 16));
    EXPECT_EQ(editor->getStatusBar().getMessage(), "");

    // From a host's thread only the name is stored; the load happens on the message thread.
    std::thread host([&] { editor->requestSkin("Small"); });
    host.join();
    EXPECT_EQ(editor->getCurrentSkin(), "Big");
    EXPECT_EQ(editor->getPendingSkin(), "Small");
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(editor->getCurrentSkin(), "Small");
    EXPECT_EQ(editor->getWidth(), 500);
    EXPECT_EQ(knob(*editor).getParameter(), &parameter("FX Amount"));

    editor->requestSkin("small");
    EXPECT_EQ(editor->getPendingSkin(), "Small") << "the skin shown, in any case: nothing to do";

    // A skin that does not load leaves the shown one, hidden, and the message.
    skins().getChildFile("Broken.q41skin").replaceWithText("not a package");
    editor->requestSkin("Broken");
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(editor->getCurrentSkin(), "Small");
    EXPECT_EQ(editor->getStatusBar().getMessage(), BasePluginEditor::loadingMessage);
    EXPECT_FALSE(editor->getMainPanel()->isVisible());
}

// A host that opens the window before the message loop ran: the wrapper puts the skin on screen,
// and the update that follows leaves it there.
TEST_F(Editor, AWindowOpenedAtOnceShowsTheSkinForGood)
{
    skins().createDirectory();
    skinOfWidth(700).pack(skins(), "Only");
    VelmarinProcessor host(FolderRule::fixed(folder / "user", folder / "data"));
    std::unique_ptr<juce::AudioProcessorEditor> window(host.createEditor());
    auto& editor = dynamic_cast<BasePluginEditor&>(*host.getPlugin().getEditor());
    ASSERT_NE(editor.getMainPanel(), nullptr);
    testsupport::dispatchPendingMessages();
    EXPECT_TRUE(editor.getMainPanel()->isVisible());
    EXPECT_EQ(editor.getStatusBar().getMessage(), "");
    EXPECT_EQ(window->getWidth(), 700);
}

TEST_F(Editor, SavedSkinsStateChunksAndAMissingSkinsFolder)
{
    auto editorWithoutSkins = open();
    EXPECT_EQ(editorWithoutSkins->getMainPanel(), nullptr);
    EXPECT_EQ(editorWithoutSkins->getStatusBar().getMessage(),
              "Plugin skins not found in directory: '" + skins().getFullPathName() + "'. Please reinstall to repair.");

    skins().createDirectory();
    skinOfWidth(900).pack(skins(), "Big");
    skinOfWidth(500).pack(skins(), "Small");

    // The user's choice comes from the settings; a choice whose file is gone gives the default.
    for (const auto& [saved, expected] :
         std::vector<std::pair<juce::String, juce::String>>{{"Small", "Small"}, {"Gone", "Big"}})
    {
        auto editor = std::make_unique<BasePluginEditor>(plugin(), true);
        juce::XmlElement settings("Editor");
        settings.createNewChildElement("Skin")->setAttribute("name", saved);
        editor->applyUserSettings(settings);
        editor->firstDisplay = []
        { return std::optional<juce::Rectangle<int>>(juce::Rectangle<int>(0, 0, 1920, 1080)); };
        editor->initialise();
        testsupport::dispatchPendingMessages();
        EXPECT_EQ(editor->getCurrentSkin(), expected) << saved;
        EXPECT_EQ(editor->createUserSettings()->getChildByName("Skin")->getStringAttribute("name"), expected);
    }

    // A project's state brings its own skin back; an empty name changes nothing.
    auto first = open();
    first->requestSkin("Small");
    testsupport::dispatchPendingMessages();
    const auto state = first->createStateXml();
    auto second = open();
    EXPECT_EQ(second->getCurrentSkin(), "Big");
    second->applyStateXml(*state);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(second->getCurrentSkin(), "Small");
    juce::XmlElement empty("Editor");
    empty.createNewChildElement("Skin")->setAttribute("name", "");
    second->applyStateXml(empty);
    EXPECT_EQ(second->getPendingSkin(), "Small");
}

TEST_F(Editor, ShiftClickAndDoubleClickResetTheirParameter)
{
    skins().createDirectory();
    skinOfWidth(600, false).pack(skins(), "Fixed");
    auto editor = open();
    auto& amount = knob(*editor);
    float defaultValue = 0.0f;
    ASSERT_TRUE(plugin().getParameterManager().getDefaultValue(parameter("FX Amount").getIndex(), defaultValue));
    const auto moveAway = [&] { parameter("FX Amount").setNormalized(defaultValue > 0.5f ? 0.1f : 0.9f, true); };

    moveAway();
    editor->mouseDoubleClick(guitest::mouseAt(amount, {5, 5}, 2));
    EXPECT_NE(parameter("FX Amount").getNormalized(), defaultValue) << "this knob does not reset on a double click";
    editor->mouseDown(guitest::mouseAt(amount, {5, 5}, 1,
                                       juce::ModifierKeys(juce::ModifierKeys::leftButtonModifier |
                                                          juce::ModifierKeys::rightButtonModifier |
                                                          juce::ModifierKeys::shiftModifier)));
    EXPECT_NE(parameter("FX Amount").getNormalized(), defaultValue) << "Shift with the right button is no reset";
    ASSERT_NE(editor->getParameterInfo(), nullptr) << "but a right click: the parameter info opens";
    editor->hideFloating(editor->getParameterInfo(), nullptr);
    editor->mouseDown(guitest::mouseAt(
        amount, {5, 5}, 1,
        juce::ModifierKeys(juce::ModifierKeys::leftButtonModifier | juce::ModifierKeys::shiftModifier)));
    EXPECT_EQ(parameter("FX Amount").getNormalized(), defaultValue) << "Shift-click resets whatever the skin says";
    EXPECT_TRUE(editor->getStatusBar().getMessage().startsWith("FX Amount: "));
}

TEST_F(Editor, OneFloatingPanelAtATimeAndStatusMessagesByPriority)
{
    auto editor = open();
    juce::Component first, second, inside;
    first.setSize(100, 50);
    second.setSize(100, 50);
    first.addAndMakeVisible(inside);
    inside.setBounds(0, 0, 20, 20);
    Owner owner;

    auto& hider = editor->getFloatingHider();
    editor->showFloating(&first, {10, 10}, editor.get(), &owner);
    // The press that opened the panel is still going on: its release arms the hider, the next
    // press outside closes the panel, a press inside does not.
    hider.mouseDown(guitest::mouseAt(*editor, {500, 500}));
    EXPECT_EQ(editor->getFloating(), &first);
    hider.mouseUp(guitest::mouseAt(*editor, {500, 500}));
    hider.mouseDown(guitest::mouseAt(inside, {5, 5}));
    EXPECT_EQ(editor->getFloating(), &first);
    editor->showFloating(&second, {10, 10}, editor.get(), &owner);
    EXPECT_EQ(owner.closed, juce::Array<juce::Component*>({&first})) << "opening the second closes the first";
    EXPECT_EQ(first.getParentComponent(), nullptr);
    hider.mouseDown(guitest::mouseAt(*editor, {500, 500}));
    EXPECT_EQ(editor->getFloating(), &second) << "not armed again until the opening press is released";
    hider.mouseUp(guitest::mouseAt(*editor, {500, 500}));
    hider.mouseDown(guitest::mouseAt(*editor, {500, 500}));
    EXPECT_EQ(editor->getFloating(), nullptr);
    EXPECT_EQ(owner.closed.getLast(), &second);

    auto& bar = editor->getStatusBar();
    bar.showMessage("Preamp: +6.0dB", 6);
    bar.showMessage("Something less", 3);
    EXPECT_EQ(bar.getMessage(), "Preamp: +6.0dB");
    bar.setLastingMessage("Loading skin...");
    EXPECT_EQ(bar.getMessage(), "Preamp: +6.0dB") << "a lasting message waits for priority 0";
    bar.clearMessage();
    bar.setLastingMessage("Loading skin...");
    EXPECT_EQ(bar.getMessage(), "Loading skin...");
    bar.showMessage("Preamp: 0.0dB", 6);
    const auto until = juce::Time::getMillisecondCounter() + StatusBar::messageMilliseconds + 200;
    while (juce::Time::getMillisecondCounter() < until && bar.getMessage().isNotEmpty())
    {
        testsupport::dispatchPendingMessages();
        juce::Thread::sleep(20);
    }
    EXPECT_EQ(bar.getMessage(), "") << "cleared three seconds after its last change";
}

TEST_F(Editor, WithoutASkinTheGenericLayoutGivesEveryParameterAControl)
{
    auto& manager = plugin().getParameterManager();
    const int amountIndex = parameter("FX Amount").getIndex();
    const int linkIndex = parameter("Delay Offset Link").getIndex();
    GenericEditor editor(plugin(), amountIndex, linkIndex);
    editor.initialise();
    testsupport::dispatchPendingMessages();
    ASSERT_EQ(editor.getMainPanel(), nullptr);
    EXPECT_EQ(editor.getBounds(), juce::Rectangle<int>(0, 0, 800, 600 + 16));

    const auto& controls = editor.getGenericControls();
    ASSERT_EQ(int(controls.size()), plugin().getParameterCount());
    const int perRow = (800 - 10) / 64;
    int column = 0, row = 0;
    for (int index = 0; index < plugin().getParameterCount(); ++index)
    {
        auto* control = controls[size_t(index)].get();
        auto* component = dynamic_cast<juce::Component*>(control);
        ASSERT_NE(component, nullptr);
        auto* p = manager.getParameter(index);
        EXPECT_EQ(control->getParameter(), p);
        EXPECT_EQ(component->getParentComponent(), &editor);
        // The kind of control follows the kind of parameter.
        if (dynamic_cast<BoolParameter*>(p) != nullptr)
            EXPECT_NE(dynamic_cast<GFXToggleButton*>(control), nullptr) << p->getName();
        else if (dynamic_cast<FloatParameter*>(p) != nullptr)
            EXPECT_TRUE(dynamic_cast<GFXKnob*>(control) != nullptr && dynamic_cast<GFXSwitch*>(control) == nullptr)
                << p->getName();
        else
            EXPECT_NE(dynamic_cast<GFXSwitch*>(control), nullptr) << p->getName();

        if (column >= perRow)
        {
            column = 0;
            ++row;
        }
        EXPECT_EQ(component->getBounds(), juce::Rectangle<int>(5 + column * 64, 30 + row * 120, 50, 80))
            << p->getName();
        column += index == amountIndex ? 2 : 1;
        if (index == linkIndex)
            column = 0, ++row;
        EXPECT_TRUE(editor.getLocalBounds().contains(component->getBounds())) << p->getName();
    }

    // A generic control works as a skinned one: a drag writes and the status bar says so.
    auto& knob = dynamic_cast<GFXKnob&>(*controls[size_t(amountIndex)]);
    const float before = parameter("FX Amount").getNormalized();
    guitest::drag(knob, {25, 40}, {25, 10});
    EXPECT_GT(parameter("FX Amount").getNormalized(), before);
    EXPECT_TRUE(editor.getStatusBar().getMessage().startsWith("FX Amount: "));
}

TEST(BuildLabel, ADevelopmentBuildNamesItselfAndAMasterBuildDoesNot)
{
    Designation designation;
    designation.branch = "master";
    EXPECT_EQ(BasePluginEditor::buildLabelText(designation), "");
    designation.branch = "develop";
    designation.extra = "RC1";
    EXPECT_EQ(BasePluginEditor::buildLabelText(designation), "2.0 | 2.0.7 | develop | 2026-11-24 | r42")
        << "a branch before \"release\" shows its own name";
    designation.branch = "release-2.0";
    EXPECT_EQ(BasePluginEditor::buildLabelText(designation), "2.0 | 2.0.7 | RC1 | 2026-11-24 | r42");
    designation.extra = "";
    EXPECT_EQ(BasePluginEditor::buildLabelText(designation), "2.0 | 2.0.7 | release-2.0 | 2026-11-24 | r42");
}

TEST_F(Editor, TheAboutWindowShowsBothLogosAndTheBuildAtEverySize)
{
    skins().createDirectory();
    skinOfWidth(900).pack(skins(), "Big");
    auto editor = open();
    EXPECT_FALSE(editor->getBuildLabel().isVisible()) << "a master build has no label";
    EXPECT_EQ(editor->getStatusBar().getWidth(), 900);

    GFXKnob& amount = knob(*editor);
    editor->controllerEvent(amount, 1001);
    auto* about = dynamic_cast<AboutWindow*>(editor->getAboutWindow());
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(about->isVisible());
    EXPECT_EQ(about->getTitle(), "About Velmarin");
    EXPECT_TRUE(about->getLines().contains("Analog BBD Stereo Flanger"));
    EXPECT_TRUE(about->getLines().joinIntoString("\n").contains("Version 1.1.3"));

    const auto content = about->getContentBounds();
    const auto product = about->getProductLogoBounds();
    const auto vendor = about->getVendorLogoBounds();
    ASSERT_FALSE(product.isEmpty()) << "the product's logo is read from the resources";
    ASSERT_FALSE(vendor.isEmpty());
    EXPECT_TRUE(content.contains(product) && content.contains(vendor));
    EXPECT_LT(product.getBottom(), vendor.getY()) << "the product above, the vendor below";

    // In a window too small for the logos at their size they shrink, keeping their shape.
    about->setSize(300, 200);
    const auto small = about->getProductLogoBounds();
    EXPECT_TRUE(about->getContentBounds().contains(small));
    EXPECT_LT(small.getWidth(), product.getWidth());
    EXPECT_NEAR(double(small.getWidth()) / small.getHeight(), double(product.getWidth()) / product.getHeight(), 0.1);
    juce::Image image(juce::Image::ARGB, 300, 200, true);
    juce::Graphics g(image);
    about->paintEntireComponent(g, false);
}

TEST_F(Editor, MovingAPresetParameterTurnsThePresetChangedAndBack)
{
    auto editor = open();
    PresetState state;
    auto& notifier = plugin().getPresetChangeNotifier();
    notifier.addListener(&state);
    testsupport::dispatchPendingMessages();
    state.heard.clear();

    auto& amount = parameter("FX Amount");
    const float stored = amount.getNormalized();
    amount.setNormalized(stored > 0.5f ? 0.1f : 0.9f, true);
    amount.setNormalized(stored > 0.5f ? 0.2f : 0.8f, true);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(state.heard, juce::Array<bool>({true})) << "a burst of moves is one answer";
    EXPECT_TRUE(notifier.wasChanged());

    // The read-out outside the preset changes nothing; the knob back at its stored value does.
    parameter("Current BBD Frequency").setText("  500", true);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(state.heard.size(), 1);
    amount.setNormalized(stored, true);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(state.heard, juce::Array<bool>({true, false}));
    notifier.removeListener(&state);
}

TEST_F(Editor, StepsAwayFromAChangedPresetAskFirstAndTheRestoreEventsLoadTheirPreset)
{
    skins().createDirectory();
    skinOfWidth(600).pack(skins(), "Only");
    auto editor = open();
    GFXKnob& control = knob(*editor);
    auto& amount = parameter("FX Amount");
    const float stored = amount.getNormalized();
    const float moved = stored > 0.5f ? 0.1f : 0.9f;

    // Unchanged: the step goes through without a word.
    editor->controllerEvent(control, 1002);
    EXPECT_EQ(editor->getPresetChangedAlert(), nullptr);

    amount.setNormalized(moved, true);
    ASSERT_TRUE(plugin().isPresetChanged());
    editor->controllerEvent(control, 1003);
    auto* alert = editor->getPresetChangedAlert();
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(alert->isVisible());
    EXPECT_EQ(alert->getTitle(), "Preset change warning");
    ASSERT_EQ(alert->getNumButtons(), 3);
    EXPECT_EQ(alert->getButton(0)->getButtonText(), "Yes");
    EXPECT_EQ(alert->getButton(1)->getButtonText(), "No");
    EXPECT_EQ(alert->getButton(2)->getButtonText(), "Cancel");

    // Escape cancels: nothing changes.
    EXPECT_TRUE(alert->keyPressed(juce::KeyPress(juce::KeyPress::escapeKey)));
    testsupport::dispatchPendingMessages();
    EXPECT_FALSE(alert->isVisible());
    EXPECT_TRUE(plugin().isPresetChanged());
    EXPECT_TRUE(editor->getPresetChangeWarning());

    // Ticking "Don't show this warning again" disables "Yes"; "No" then steps on and turns the
    // warning off, with the changes as the new baseline.
    editor->controllerEvent(control, 1002);
    ASSERT_TRUE(alert->isVisible());
    EXPECT_TRUE(alert->getButtonForCode(Q41::AlertWindow::yes)->isEnabled());
    alert->getCheckBox().triggerClick();
    testsupport::dispatchPendingMessages();
    EXPECT_FALSE(alert->getButtonForCode(Q41::AlertWindow::yes)->isEnabled());
    alert->getButtonForCode(Q41::AlertWindow::no)->triggerClick();
    testsupport::dispatchPendingMessages();
    EXPECT_FALSE(alert->isVisible());
    EXPECT_FALSE(editor->getPresetChangeWarning());
    EXPECT_FALSE(plugin().isPresetChanged());
    EXPECT_EQ(amount.getNormalized(), moved);
    amount.setNormalized(stored, true);
    editor->controllerEvent(control, 1002);
    EXPECT_FALSE(alert->isVisible()) << "the warning is off";
    auto settings = editor->createUserSettings();
    EXPECT_FALSE(settings->getBoolAttribute("presetChangeWarning", true));

    // "Restore Current Preset" goes back to the loaded preset, "Restore Default Preset" to the
    // values the plug-in started with.
    float defaultValue = 0.0f;
    ASSERT_TRUE(plugin().getParameterManager().getDefaultValue(amount.getIndex(), defaultValue));
    amount.setNormalized(moved, true);
    editor->controllerEvent(control, 1012);
    EXPECT_EQ(amount.getNormalized(), plugin().getCurrentPreset(0) != nullptr ? defaultValue : moved);
    amount.setNormalized(moved, true);
    editor->controllerEvent(control, 1011);
    EXPECT_EQ(amount.getNormalized(), defaultValue);
    EXPECT_FALSE(plugin().isPresetChanged());
}

// A host may build and destroy a plug-in on a thread of its own; the editor's components, timer and
// asynchronous updates are made and deleted on the message thread meanwhile, which keeps running.
TEST(EditorThreads, APluginBuiltAndDestroyedOnAnotherThreadMakesItsEditorOnTheMessageThread)
{
    const testsupport::TemporaryFolder folder("threads");
    std::unique_ptr<VelmarinProcessor> processor;
    std::atomic<int> stage{0};
    std::thread host(
        [&]
        {
            processor = std::make_unique<VelmarinProcessor>(FolderRule::fixed(folder / "user", folder / "data"));
            stage = 1;
            while (stage == 1)
                juce::Thread::sleep(1);
            processor.reset();
            stage = 3;
        });
    // The message thread runs its loop until the host's thread reaches a stage (or 20 s pass).
    const auto deadline = juce::Time::getMillisecondCounter() + 20000;
    const auto runMessagesUntil = [&](int wanted)
    {
        while (stage != wanted && juce::Time::getMillisecondCounter() < deadline)
            if (! juce::dispatchNextMessageOnSystemQueue(true))
                juce::Thread::sleep(1);
    };
    runMessagesUntil(1);
    ASSERT_EQ(stage.load(), 1)
        << "start-up did not finish: the message thread and the host's thread wait on each other";
    auto* editor = processor->getPlugin().getEditor();
    ASSERT_NE(editor, nullptr);
    EXPECT_NE(dynamic_cast<BasePluginEditor*>(editor), nullptr);
    std::unique_ptr<juce::AudioProcessorEditor> window(processor->createEditor());
    EXPECT_EQ(window->getWidth(), editor->getComponent().getWidth()) << "the window takes the editor's size";
    window.reset();
    EXPECT_NE(processor->getPlugin().getEditor(), nullptr) << "closing the window leaves the editor";
    stage = 2;
    runMessagesUntil(3);
    host.join();
    EXPECT_EQ(stage.load(), 3);
}
