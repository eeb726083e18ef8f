#include "gui/GuiTestSupport.h"
#include "gui/widgets/CheckBox_V2.h"
#include "gui/widgets/ComboBoxButton.h"
#include "gui/widgets/DefaultResourceCheckBox.h"
#include "gui/widgets/HardLabel.h"
#include "parameters/BoolParameter.h"
#include "parameters/EnumParameter.h"

#include <gtest/gtest.h>

#include <thread>

using guitest::TestDesktop;

namespace
{
/** Counts the writes a parameter tells its synchronous listeners (the plug-in and the host). */
struct WriteCounter : Parameter::Listener
{
    void parameterChanged(Parameter&) override { ++writes; }
    int writes = 0;
};

class Widgets : public ::testing::Test
{
protected:
    Widgets()
    {
        quality.setItems("Draft;Normal;High;Ultra");
        quality.addListener(&counter);
    }
    ~Widgets() override { quality.removeListener(&counter); }

    DefaultLookAndFeel::Scope look;
    TestDesktop desktop;
    EnumParameter quality{0, "Processing Quality"};
    WriteCounter counter;
};
} // namespace

TEST_F(Widgets, AComboBoxButtonWritesAPickAndFollowsItsParameterWithoutWritingBack)
{
    ComboBoxButton box;
    box.setBounds(20, 20, 160, 22);
    desktop.addAndMakeVisible(box);
    quality.setInt(1, false);
    box.setParameter(&quality);
    EXPECT_EQ(box.getText(), "Normal");

    box.showMenu();
    auto* window = box.getMenu().getWindow();
    ASSERT_NE(window, nullptr);
    auto& list = window->getList();
    EXPECT_GE(list.getY(), box.getBottom()) << "the menu opens below the box";
    EXPECT_EQ(window->getParentComponent(), &desktop) << "a child of the editor, not a desktop window";
    guitest::click(list, list.getItemArea(3).getCentre());
    EXPECT_EQ(quality.getInt(), 3);
    EXPECT_EQ(counter.writes, 1);
    EXPECT_EQ(box.getText(), "Ultra");
    EXPECT_FALSE(box.getMenu().isOpen());

    // A change from elsewhere reaches the box on the message thread, after the async update, and
    // the box writes nothing back.
    std::thread automation([this] { quality.setInt(0, true); });
    automation.join();
    EXPECT_EQ(box.getText(), "Ultra");
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(box.getText(), "Draft");
    EXPECT_EQ(counter.writes, 2) << "only the automation's own write";
    EXPECT_EQ(quality.getInt(), 0);

    // A press outside the list dismisses the menu with nothing written.
    box.showMenu();
    guitest::click(*box.getMenu().getWindow(), {790, 490});
    EXPECT_FALSE(box.getMenu().isOpen());
    EXPECT_EQ(counter.writes, 2);

    // Keys move over the items and pick one.
    box.showMenu();
    auto& keys = box.getMenu().getWindow()->getList();
    for (int i = 0; i < 3; ++i)
        keys.keyPressed(juce::KeyPress(juce::KeyPress::downKey));
    keys.keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    EXPECT_EQ(quality.getText(), "High");
}

TEST_F(Widgets, AComboBoxButtonWithoutAParameterServesItsCaller)
{
    ComboBoxButton box;
    box.setBounds(0, 0, 120, 22);
    desktop.addAndMakeVisible(box);
    box.addItem(10, "Big");
    box.addItem(20, "Small");
    box.setSelectedId(10);
    int changes = 0;
    box.onChange = [&] { ++changes; };
    box.showMenu();
    auto& list = box.getMenu().getWindow()->getList();
    guitest::click(list, list.getItemArea(1).getCentre());
    EXPECT_EQ(box.getSelectedId(), 20);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(counter.writes, 0);
}

TEST_F(Widgets, CheckBoxesWriteTheirParameterAndTheResourceBoxEnablesItsPath)
{
    BoolParameter learn(0, "MIDI Learn");
    WriteCounter learnWrites;
    learn.addListener(&learnWrites);
    CheckBox_V2 box("MIDI Learn");
    box.setBounds(0, 0, 140, 20);
    box.addParameter(&learn);
    guitest::click(box);
    EXPECT_TRUE(learn.getBool());
    EXPECT_EQ(learnWrites.writes, 1);
    learn.setBool(false, true);
    EXPECT_TRUE(box.getToggleState()) << "not before the async update";
    testsupport::dispatchPendingMessages();
    EXPECT_FALSE(box.getToggleState());
    EXPECT_EQ(learnWrites.writes, 2);
    learn.removeListener(&learnWrites);

    DefaultResourceCheckBox resource("Default MIDI map", "*.vmccmap");
    resource.setBounds(0, 0, 420, 22);
    int changes = 0;
    resource.onChange = [&] { ++changes; };
    EXPECT_FALSE(resource.getPathComponent().isEnabled());
    EXPECT_EQ(resource.getPathComponent().getShownText(), "[...]");
    resource.setPath("/home/user/maps/keys.vmccmap");
    EXPECT_TRUE(resource.isTicked());
    EXPECT_TRUE(resource.getPathComponent().isEnabled());
    EXPECT_EQ(resource.getCheckBox().getPosition(), juce::Point<int>(0, 0));
    EXPECT_EQ(resource.getPathComponent().getRight(), 420);
    EXPECT_EQ(resource.getPathComponent().getX(), resource.getCheckBox().getRight() + 6);

    guitest::click(resource.getCheckBox());
    EXPECT_FALSE(resource.isTicked());
    EXPECT_FALSE(resource.getPathComponent().isEnabled());
    EXPECT_EQ(resource.getPathComponent().getPath(), "/home/user/maps/keys.vmccmap") << "the text stays";
    EXPECT_EQ(resource.getActivePath(), "");
    EXPECT_EQ(changes, 1);
    guitest::click(resource.getCheckBox());
    EXPECT_EQ(resource.getActivePath(), "/home/user/maps/keys.vmccmap");
    resource.setPath("");
    EXPECT_FALSE(resource.isTicked());
}

// Run a second time by the test command with JUCE_FONT_PATH naming an empty folder: with no system
// font at all, text still renders, in the compiled-in typeface.
TEST(WidgetFonts, TextRendersInTheCompiledInTypeface)
{
    const DefaultLookAndFeel::Scope look;
    HardLabel label("title", "Velmarin");
    label.setBounds(0, 0, 160, 30);
    label.fitToHeight(30);
    label.setColour(juce::Label::backgroundColourId, juce::Colours::black);
    label.setColour(juce::Label::textColourId, juce::Colours::white);
    EXPECT_EQ(label.getFont().getTypefacePtr()->getName(), "DejaVu Sans");
    EXPECT_GT(guitest::pixelsUnlikeTheBackground(guitest::snapshot(label)), 100);
    EXPECT_EQ(juce::Font("Tahoma", "Regular", 12.0f).getTypefacePtr()->getName(), "DejaVu Sans");
    EXPECT_EQ(juce::Font(12.0f, juce::Font::bold).getTypefacePtr()->getStyle(), "Bold");
}
