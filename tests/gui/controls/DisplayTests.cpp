#include "gui/GuiTestSupport.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/GFXDisplay.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/ImageComboBox.h"
#include "gui/controls/NoteDisplay.h"
#include "gui/controls/NumericDisplay.h"
#include "gui/controls/PatternNumberDisplay.h"
#include "gui/controls/TextInput.h"
#include "io/XmlInput.h"
#include "parameters/FloatParameter.h"
#include "parameters/IntParameter.h"
#include "parameters/StringParameter.h"

#include <thread>

using guitest::TestSkinContext;

using guitest::left;
using guitest::xml;

namespace
{
/** The digits a numeric display shows, blanks as "_". */
juce::String shown(const NumericDisplay& display)
{
    juce::String digits;
    for (int i = 0; i < display.getDigitsCount(); ++i)
        digits << (display.getDigit(i).isBlank() ? juce::String("_") : juce::String(display.getDigit(i).getDigit()));
    return digits;
}

/** What the editor is to floating panels: shows one at a time, tells its owner when it closes. */
class FloatingHost : public juce::Component, public FloatingPanelHost
{
public:
    FloatingHost() { setSize(600, 400); }
    void showFloating(juce::Component* panel, juce::Point<int> position, juce::Component* anchor,
                      FloatingComponentOwner* newOwner) override
    {
        addAndMakeVisible(panel);
        panel->setTopLeftPosition(getLocalPoint(anchor, position));
        open = panel;
        owner = newOwner;
    }
    void hideFloating(juce::Component* panel, juce::Component* clicked) override
    {
        if (panel == nullptr || panel != open)
            return;
        removeChildComponent(panel);
        open = nullptr;
        if (owner != nullptr)
            owner->floatingClosed(panel, clicked);
    }
    juce::Component* open = nullptr;
    FloatingComponentOwner* owner = nullptr;
};

/** A glyph strip of 26 letters from "A", 8 wide and 10 high, in two banks. */
juce::Image glyphStrip()
{
    return guitest::strip(8, 10, 52);
}

class Displays : public guitest::VelmarinFixture
{
protected:
    TestSkinContext skin{&plugin()};
};
} // namespace

TEST_F(Displays, NumericDisplaysWeighBlankAndDragTheirDigits)
{
    FloatParameter level(0, "Level", -50.0f, 500.0f, 0.0f); // outlives the display bound to it
    NumericDisplay display("Value");
    display.load(*xml(R"(<NumericDisplay digitsNum="4" firstDigitOrder="100" minValue="-50" maxValue="500">
                           <size width="100" height="20"/></NumericDisplay>)"),
                 skin);
    EXPECT_DOUBLE_EQ(display.getHighest(), 999.9);
    display.setValue(7.0, false);
    EXPECT_EQ(shown(display), "__70") << "weights 100, 10, 1, 0.1; leading zeros above the units are blank";
    display.setValue(123.45, false);
    EXPECT_EQ(shown(display), "1235");
    display.setValue(-3.0, false);
    EXPECT_TRUE(display.getSign()->isNegative());
    display.setValue(9000.0, false);
    EXPECT_EQ(display.getValue(), 500.0) << "held to the skin's range";

    for (const auto& [words, count] :
         std::vector<std::pair<const char*, int>>{{"digitsNum=\"0\"", 1}, {"digitsNum=\"99\"", 10}})
    {
        NumericDisplay odd("Odd");
        odd.load(*xml(juce::String("<NumericDisplay ") + words + " firstDigitOrder=\"0\" maxValue=\"1e308\"/>"), skin);
        EXPECT_EQ(odd.getDigitsCount(), count);
    }

    // A vertical drag on the digit under the pointer: 10 pixels up add one step, 9 change nothing,
    // and the whole drag is one gesture that writes through setFloat.
    guitest::ParameterCounter counter;
    level.addListener(&counter);
    display.connectParameter(&level);
    display.setValue(7.0, false);
    guitest::drag(display, {60, 10}, {60, 1}); // the units digit (third of four)
    EXPECT_EQ(display.getValue(), 7.0);
    guitest::drag(display, {60, 10}, {60, -10});
    EXPECT_EQ(display.getValue(), 9.0);
    EXPECT_FLOAT_EQ(level.getFloat(), 9.0f);
    guitest::drag(display, {30, 10}, {30, 20}); // the tens, down
    EXPECT_EQ(display.getValue(), -1.0);
    EXPECT_EQ(counter.started, 3);
    EXPECT_EQ(counter.ended, 3);
    EXPECT_EQ(counter.writes, 3);
    level.removeListener(&counter);
}

TEST_F(Displays, NoteAndPatternDisplaysShowTheirFrames)
{
    EXPECT_EQ(NoteDisplay::letterFrame(60), 0);
    EXPECT_EQ(NoteDisplay::accidentalFrame(60), 0);
    EXPECT_EQ(NoteDisplay::octaveFrame(60), 5);
    EXPECT_EQ(NoteDisplay::letterFrame(127), 4);
    EXPECT_EQ(NoteDisplay::accidentalFrame(127), 0);
    EXPECT_EQ(NoteDisplay::octaveFrame(127), 10);
    EXPECT_EQ(NoteDisplay::accidentalFrame(61), 1);

    IntParameter noteParameter(0, "Note", 0, 127, 60);
    NoteDisplay notes("Note");
    notes.load(*xml(R"(<NoteDisplay><size width="60" height="20"/></NoteDisplay>)"), skin);
    notes.connectParameter(&noteParameter);
    EXPECT_EQ(notes.getNote(), 60);
    guitest::drag(notes, {30, 50}, {30, 31});
    EXPECT_EQ(noteParameter.getInt(), 60) << "19 pixels change nothing";
    guitest::drag(notes, {30, 50}, {30, 10});
    EXPECT_EQ(noteParameter.getInt(), 62);
    guitest::drag(notes, {30, 0}, {30, 5000});
    EXPECT_EQ(noteParameter.getInt(), 0) << "held to 0..127";
    guitest::snapshot(notes);

    PatternNumberDisplay pattern("Pattern");
    pattern.load(*xml(R"(<PatternNumberDisplay slotMax="20"/>)"), skin);
    EXPECT_EQ(pattern.getSlotMax(), 16);
    pattern.load(*xml(R"(<PatternNumberDisplay slotMax="1"/>)"), skin);
    EXPECT_EQ(pattern.getSlotMax(), 4);
    pattern.setPatternMode(PatternNumberDisplay::numericPattern);
    pattern.setValue(13);
    EXPECT_EQ(pattern.getDigitFrame(1), 2);
    EXPECT_EQ(pattern.getDigitFrame(2), 4);
    pattern.setValue(99);
    EXPECT_EQ(pattern.getDigitFrame(2), 7) << "held to the numeric bounds: 16";
    EXPECT_EQ(pattern.getWidth(), 100);
}

TEST_F(Displays, GlyphDisplaysEditWithTheKeysAndFollowTheirParameterOnTheMessageThread)
{
    skin.images["Glyphs.png"] = glyphStrip();
    StringParameter name(0, "Name", "HELLO");
    GFXDisplay display("Name");
    display.load(*xml(R"(<Display><gfx resource="Glyphs.png" fontHeight="10" firstASCII="A"/>
                        <size width="84" height="12"/></Display>)"),
                 skin);
    display.connectParameter(&name);
    EXPECT_EQ(display.getCellCount(), 10);
    EXPECT_EQ(display.glyphIndexOf(' '), 0) << "below the first glyph: the first";
    EXPECT_EQ(display.glyphIndexOf('~'), 25) << "past the last: the last";
    EXPECT_EQ(display.getText(), "HELLO");
    guitest::snapshot(display);

    guitest::ParameterCounter counter;
    name.addListener(&counter);
    display.focusGained(juce::Component::focusChangedByMouseClick);
    ASSERT_TRUE(display.isEditing());
    EXPECT_EQ(display.getCaretIndex(), 5);
    display.keyPressed(juce::KeyPress(juce::KeyPress::backspaceKey));
    display.keyPressed(juce::KeyPress('X', {}, 'X'));
    display.keyPressed(juce::KeyPress(juce::KeyPress::homeKey));
    display.keyPressed(juce::KeyPress('Z', {}, 'Z'));
    EXPECT_EQ(display.getText(), "ZHELLX");
    EXPECT_FALSE(display.keyPressed(juce::KeyPress('1', {}, '1'))) << "no glyph for it";
    display.keyPressed(juce::KeyPress(juce::KeyPress::escapeKey));
    EXPECT_EQ(display.getText(), "HELLO") << "Escape restores the text";
    EXPECT_EQ(counter.writes, 0);

    display.focusGained(juce::Component::focusChangedByMouseClick);
    display.keyPressed(juce::KeyPress('S', {}, 'S'));
    display.keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    EXPECT_EQ(name.getText(), "HELLOS");
    EXPECT_EQ(counter.writes, 1);

    // Read-only, it follows a parameter set on another thread, on the message thread only.
    GFXDisplay readOnly("Frequency");
    readOnly.load(*xml(R"(<Display readonly="yes"><size width="80" height="12"/></Display>)"), skin);
    readOnly.connectParameter(&name);
    std::thread writer([&] { name.setText("1.35 MHz", true); });
    writer.join();
    EXPECT_EQ(readOnly.getText(), "HELLOS");
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(readOnly.getText(), "1.35 MHz");
    readOnly.focusGained(juce::Component::focusChangedByMouseClick);
    EXPECT_FALSE(readOnly.isEditing());
    name.removeListener(&counter);

    // Numbers never end on their point; a strip too short for one glyph draws nothing, no crash.
    FloatParameter ratio(1, "Ratio", 0.0f, 1000.0f, 12.5f);
    GFXDisplayFloat number("Ratio");
    number.load(*xml(R"(<DisplayFloat><gfx resource="Glyphs.png" fontHeight="10" firstASCII=" "/>
                        <size width="24" height="12"/></DisplayFloat>)"),
                skin);
    number.connectParameter(&ratio);
    EXPECT_EQ(number.getText(), " 12.5");
    GFXDisplay broken("Broken");
    broken.load(*xml(R"(<Display><gfx resource="Glyphs.png" fontHeight="0"/><size width="80" height="12"/></Display>)"),
                skin);
    broken.setText("ABC");
    EXPECT_EQ(broken.getCellCount(), 0);
    guitest::snapshot(broken);
}

TEST_F(Displays, TextInputsWriteOnceOnReturnAndNothingOnEscape)
{
    StringParameter name(0, "Name", "Jet");
    guitest::ParameterCounter counter;
    name.addListener(&counter);
    TextInput input("Preset Name");
    input.load(*xml(R"x(<TextInput name="initial" defaultText="(no name)" textColour="ffffffff">
                         <size width="120" height="20"/><font height="14" style="bold"/></TextInput>)x"),
               skin);
    EXPECT_EQ(input.getText(), "initial");
    input.connectParameter(&name);
    EXPECT_EQ(input.getText(), "Jet");

    input.mouseDown(guitest::mouseAt(input, {5, 5}));
    ASSERT_NE(input.getEditor(), nullptr);
    input.getEditor()->setText("Jet Stream");
    input.getEditor()->keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(name.getText(), "Jet Stream");
    EXPECT_EQ(counter.writes, 1);
    EXPECT_EQ(input.getEditor(), nullptr) << "the editor went";

    input.mouseDown(guitest::mouseAt(input, {5, 5}));
    input.getEditor()->setText("Something else");
    input.getEditor()->keyPressed(juce::KeyPress(juce::KeyPress::escapeKey));
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(name.getText(), "Jet Stream");
    EXPECT_EQ(counter.writes, 1);

    TextInput never("Fixed");
    never.load(*xml(R"(<TextInput editable="no"/>)"), skin);
    never.mouseDown(guitest::mouseAt(never, {1, 1}));
    EXPECT_EQ(never.getEditor(), nullptr);
    name.removeListener(&counter);
}

TEST_F(Displays, ImageComboBoxesPickThroughTheEditorsFloatingPanel)
{
    FloatingHost host;
    skin.images["Lengths.png"] = guitest::strip(30, 20, 6);
    ImageComboBox lengths("Length");
    lengths.loadFromSkin(*xml(R"(<ImageComboBox><gfx resource="Lengths.png" framesNum="6"/><pos left="100" top="50"/>
                                   <picker tilesInRow="3" values="on"/><param name="BBD Length"/></ImageComboBox>)"),
                         skin);
    host.addAndMakeVisible(lengths);
    EXPECT_EQ(lengths.getBounds(), juce::Rectangle<int>(100, 50, 30, 20));
    parameter("BBD Length").setText("512", true);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(guitest::shownFrame(lengths), 5);

    lengths.mouseDown(guitest::mouseAt(lengths, {5, 5}));
    auto* picker = lengths.getPicker();
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(host.open, picker);
    EXPECT_EQ(picker->getNumTiles(), 6);
    const auto centre = host.getLocalArea(picker, picker->getLocalBounds()).getCentre();
    EXPECT_LE(centre.getDistanceFrom(lengths.getBounds().getCentre()), 1) << "centred on the control";
    guitest::click(*picker, picker->getTileBounds(1).getCentre());
    EXPECT_EQ(parameter("BBD Length").getText(), "32");
    EXPECT_EQ(host.open, nullptr);

    ImageComboBox inert("Inert");
    inert.loadFromSkin(
        *xml(R"(<ImageComboBox><size width="20" height="20"/><param name="FX Amount"/></ImageComboBox>)"), skin);
    host.addAndMakeVisible(inert);
    EXPECT_TRUE(inert.getParameters().isEmpty()) << "only item parameters are taken";
    inert.mouseDown(guitest::mouseAt(inert, {5, 5}));
    ASSERT_NE(inert.getPicker(), nullptr);
    EXPECT_EQ(inert.getPicker()->getNumTiles(), 0);

    GFXMidiChannelDisplay channel("Channel");
    EXPECT_EQ(channel.getChannelText(), "ALL");
    channel.setValue(3.0 / 16.0);
    EXPECT_EQ(channel.getChannelText(), "3");
}
