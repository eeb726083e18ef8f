#include "gui/GuiTestSupport.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/GFXKnob.h"
#include "gui/core/ComponentSearch.h"
#include "gui/editor/BasePluginEditor.h"
#include "gui/skin/TestSkin.h"
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
