#include "gui/GuiTestSupport.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/ImageMidiKeyboard.h"
#include "gui/controls/MixerController.h"
#include "gui/controls/ModulationMatrixComponent.h"
#include "gui/widgets/VolumeSlider.h"
#include "io/XmlInput.h"

using guitest::mouseAt;

using guitest::altLeft;
using guitest::left;
using guitest::right;
using guitest::shiftLeft;

namespace
{

class CompositeControls : public guitest::VelmarinFixture
{
protected:
    CompositeControls()
    {
        skin.images["Slider.png"] = guitest::strip(10, 40, 5);
        skin.images["Display.png"] = guitest::strip(10, 8, 5);
        skin.images["White.png"] = guitest::strip(20, 30, 2);
        skin.images["Black.png"] = guitest::strip(12, 18, 2);
    }

    /** A mixer 100 by 60 (unless `size` says otherwise) over the parameters named, with the slider
        and display strips of 5 frames each, 10 pixels wide. */
    std::unique_ptr<MixerController> mixer(const juce::String& parameters, const juce::String& words = {},
                                           const juce::String& size = R"(<size width="100" height="60"/>)")
    {
        auto element = XmlInput::parse("<Mixer " + words + "><pos left=\"4\" top=\"6\"/>" + size +
                                       R"(<gfx><image name="slider" strip="Slider.png" frames="5"/>
                                       <image name="display" strip="Display.png" frames="5"/></gfx>
                                       <parameters><param name=")" +
                                       parameters + "\"/></parameters></Mixer>");
        EXPECT_NE(element, nullptr);
        auto made = std::make_unique<MixerController>("Mixer");
        made->loadFromSkin(*element, skin);
        return made;
    }

    static juce::Array<int> barPositions(MixerController& m)
    {
        juce::Array<int> xs;
        for (int i = 0; i < m.getBarCount(); ++i)
            xs.add(m.getSliderBar(i).getX());
        return xs;
    }

    guitest::TestSkinContext skin{&plugin()};
};

const juce::String threeGains = "Gain L/M;Gain R/S;FX Amount";
} // namespace

TEST_F(CompositeControls, TheMixerStandsItsBarsEvenlyOrInPairsWhateverTheirNumber)
{
    auto even = mixer(threeGains + ";Preamp");
    EXPECT_EQ(even->getBounds(), juce::Rectangle<int>(4, 6, 100, 60));
    EXPECT_EQ(barPositions(*even), juce::Array<int>({0, 30, 60, 90})) << "edge to edge: 10 + 60 / 3 per bar";
    EXPECT_EQ(even->getDisplayBar(3).getBounds(), juce::Rectangle<int>(90, 40, 10, 8)) << "under its slider";
    EXPECT_EQ(barPositions(*mixer(threeGains + ";Preamp", R"(gaps="10;6")")), juce::Array<int>({2, 14, 32, 44}));

    // Counts that make a divisor of the layout 0 place the bars instead of failing.
    EXPECT_EQ(barPositions(*mixer("Preamp")), juce::Array<int>({0}));
    EXPECT_EQ(barPositions(*mixer("Preamp;FX Amount")), juce::Array<int>({0, 90}));
    auto pair = mixer("Preamp;FX Amount", R"(gaps="3")");
    EXPECT_EQ(pair->getFirstGap(), 3);
    EXPECT_EQ(pair->getSecondGap(), 0);
    EXPECT_EQ(barPositions(*pair), juce::Array<int>({1, 12}));
    EXPECT_EQ(barPositions(*mixer(threeGains, R"(gaps="0;6")")), juce::Array<int>({0, 10, 26}))
        << "three bars have one pair boundary, and it takes the whole second gap";

    // No bars, no width, no frames: a press paints nothing.
    for (auto& inert : {mixer("No Such Parameter"), mixer(threeGains, {}, R"(<size width="0" height="60"/>)")})
    {
        EXPECT_EQ(inert->getBarAt(10), -1);
        guitest::drag(*inert, {0, 10}, {50, 10});
        EXPECT_FALSE(inert->isPainting());
    }
    auto element = XmlInput::parse(R"(<Mixer readOnly="yes"><size width="40" height="20"/>
        <gfx><image name="slider" strip="Slider.png" frames="0"/></gfx><parameters><param name="Preamp"/></parameters></Mixer>)");
    MixerController frameless("Frameless");
    frameless.loadFromSkin(*element, skin);
    parameter("Preamp").setNormalized(1.0f, true);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(frameless.getSliderBar(0).getFrame(), 0);
    EXPECT_EQ(guitest::pixelsUnlikeTheBackground(guitest::snapshot(frameless)), 0) << "draws nothing";
}

TEST_F(CompositeControls, PaintingCarriesOneValueAcrossTheBarsAsOneGesturePerBar)
{
    auto m = mixer(threeGains, {}, R"(<size width="90" height="60"/>)");
    for (const auto* name : {"Gain L/M", "Gain R/S", "FX Amount"})
        parameter(name).setNormalized(0.0f, true);
    testsupport::dispatchPendingMessages();
    auto& a = count("Gain L/M");
    auto& b = count("Gain R/S");
    auto& c = count("FX Amount");

    m->getMasterSlider().setValue(0.75, juce::dontSendNotification);
    guitest::drag(*m, {5, 10}, {85, 10});
    for (auto* counter : {&a, &b, &c})
    {
        EXPECT_EQ(counter->writes, 1);
        EXPECT_EQ(counter->started, 1);
        EXPECT_EQ(counter->ended, 1);
    }
    EXPECT_NEAR(parameter("FX Amount").getNormalized(), 0.75f, 0.01f);
    EXPECT_FALSE(parameter("Gain R/S").isChangeActive());
    EXPECT_EQ(m->getSliderBar(2).getFrame(), 0) << "the bars follow only through the parameters' updates";
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(m->getSliderBar(2).getFrame(), 3);
    EXPECT_EQ(m->getDisplayBar(0).getFrame(), 3);

    // A drag that jumps over a bar paints it too.
    m->getMasterSlider().setValue(0.25, juce::dontSendNotification);
    m->mouseDown(mouseAt(*m, {5, 10}));
    m->mouseDrag(mouseAt(*m, {85, 10}, 1, left, juce::Point<int>(5, 10)));
    m->mouseUp(mouseAt(*m, {85, 10}, 1, left, juce::Point<int>(5, 10)));
    EXPECT_NEAR(parameter("Gain R/S").getNormalized(), 0.25f, 0.01f);
    EXPECT_EQ(b.started, 2);
    EXPECT_EQ(b.ended, 2);

    // Alt picks the pressed bar's value up and carries it on.
    parameter("Gain R/S").setNormalized(0.5f, true);
    guitest::drag(*m, {45, 10}, {85, 10}, altLeft);
    EXPECT_NEAR(parameter("FX Amount").getNormalized(), 0.5f, 0.01f);

    // Shift and the right button are the editor's.
    const int writes = a.writes + b.writes + c.writes;
    guitest::drag(*m, {5, 10}, {85, 10}, shiftLeft);
    guitest::drag(*m, {5, 10}, {85, 10}, right);
    EXPECT_EQ(a.writes + b.writes + c.writes, writes);
    EXPECT_EQ(a.started, a.ended);

    // The master slider: a press sets the level to the pointer's height and paints it.
    auto& master = m->getMasterSlider();
    master.mouseDown(mouseAt(master, {45, 15}));
    master.mouseUp(mouseAt(master, {45, 15}));
    EXPECT_NEAR(master.getValue(), 0.75, 0.02);
    EXPECT_NEAR(parameter("Gain R/S").getNormalized(), 0.75f, 0.02f);
    juce::Component* hit = nullptr;
    EXPECT_EQ(master.getParameterAt(mouseAt(master, {85, 50}), &hit), &parameter("FX Amount"));
    EXPECT_EQ(hit, &m->getSliderBar(2));
}

TEST_F(CompositeControls, AReadOnlyMixerLetsTheMouseThrough)
{
    juce::Component panel, below;
    panel.setBounds(0, 0, 200, 100);
    panel.setVisible(true);
    below.setBounds(0, 0, 200, 100);
    panel.addAndMakeVisible(below);
    auto writable = mixer(threeGains);
    panel.addAndMakeVisible(*writable);
    EXPECT_EQ(panel.getComponentAt(20, 20), &writable->getMasterSlider());

    auto readOnly = mixer(threeGains, R"(readOnly="yes")");
    panel.addAndMakeVisible(*readOnly);
    EXPECT_FALSE(readOnly->getMasterSlider().isVisible());
    writable->setVisible(false);
    EXPECT_EQ(panel.getComponentAt(20, 20), &below);
    auto& gain = count("Gain L/M");
    guitest::drag(*readOnly, {5, 10}, {95, 10});
    EXPECT_EQ(gain.writes, 0);
}

TEST_F(CompositeControls, TheVolumeSliderMovesAllItsParametersInOneGesturePerDrag)
{
    VolumeSlider volume("Volume");
    volume.addParameter(&parameter("Gain L/M"));
    volume.addParameter(&parameter("Gain R/S"));
    auto& a = count("Gain L/M");
    auto& b = count("Gain R/S");
    guitest::drag(volume, {10, 10}, {80, 10});
    EXPECT_GT(volume.getValue(), 0.5);
    for (const auto* name : {"Gain L/M", "Gain R/S"})
        EXPECT_NEAR(parameter(name).getNormalized(), volume.getValue(), 0.01) << name;
    EXPECT_EQ(a.started, 1);
    EXPECT_EQ(a.ended, 1);
    EXPECT_EQ(b.started, 1);
    EXPECT_EQ(b.ended, 1);

    parameter("Gain R/S").setNormalized(0.1f, true);
    testsupport::dispatchPendingMessages();
    EXPECT_NEAR(volume.getValue(), 0.1, 0.01) << "it follows its parameters";
}

TEST_F(CompositeControls, TheKeyboardPlaysIntoThePluginsKeyboardState)
{
    auto& state = plugin().getKeyboardState();
    ImageMidiKeyboard plain("Keyboard", state);
    plain.load(*XmlInput::parse(R"(<MidiKeyboard firstKey="60"><size width="300" height="60"/></MidiKeyboard>)"), skin);
    EXPECT_EQ(plain.getRangeStart(), 0) << "firstKey without lastKey keeps the default range";
    EXPECT_EQ(plain.getRangeEnd(), 127);
    plain.load(*XmlInput::parse(R"(<MidiKeyboard firstKey="200" lastKey="-4"><size width="300" height="60"/>
                                   </MidiKeyboard>)"),
               skin);
    EXPECT_EQ(plain.getRangeStart(), 0);
    EXPECT_EQ(plain.getRangeEnd(), 127);
    const int note = plain.getNoteAt({150.0f, 55.0f});
    ASSERT_GE(note, 0) << "keys without pictures are where the plain keyboard has them";
    plain.mouseDown(mouseAt(plain, {150, 55}));
    EXPECT_TRUE(state.isNoteOn(1, note));
    plain.mouseUp(mouseAt(plain, {150, 55}));
    EXPECT_FALSE(state.isNoteOn(1, note));

    // Pictured keys, placed in panel coordinates; the black one is hit first where they overlap.
    ImageMidiKeyboard keyboard("Keyboard", state);
    keyboard.load(*XmlInput::parse(R"(<MidiKeyboard firstKey="60" lastKey="62"><pos left="10" top="20"/>
        <size width="100" height="40"/><Keys>
        <Key left="0" right="6"><gfx resource="White.png" framesNum="2"><pos left="10" top="20"/></gfx></Key>
        <Key><gfx resource="Black.png" framesNum="2"><pos left="24" top="20"/></gfx></Key>
        <Key left="6" right="6"><gfx resource="White.png" framesNum="0"/><pos left="30" top="20"/></Key>
        </Keys></MidiKeyboard>)"),
                  skin);
    EXPECT_EQ(keyboard.getKeyArea(60), juce::Rectangle<float>(0, 0, 20, 30));
    EXPECT_EQ(keyboard.getKey(60).right, 6);
    EXPECT_EQ(keyboard.getNoteAt({16.0f, 5.0f}), 61);
    EXPECT_EQ(keyboard.getNoteAt({5.0f, 25.0f}), 60);
    EXPECT_EQ(keyboard.getKey(62).pressedFrame, 0) << "a strip of 0 frames counts as one";
    EXPECT_EQ(keyboard.getKeyArea(62), juce::Rectangle<float>(20, 0, 20, 60));

    const auto frameAt = [&keyboard](juce::Point<int> p)
    {
        const auto pixel = guitest::snapshot(keyboard).getPixelAt(p.x, p.y);
        return pixel.getBlue() == 128 ? int(pixel.getRed()) : -1;
    };
    EXPECT_EQ(frameAt({5, 25}), 0);
    keyboard.mouseDown(mouseAt(keyboard, {5, 25}));
    EXPECT_TRUE(state.isNoteOn(1, 60));
    EXPECT_EQ(frameAt({5, 25}), 1) << "held down, the key shows its pressed frame";
    keyboard.mouseDrag(mouseAt(keyboard, {16, 5}, 1, left, juce::Point<int>(5, 25)));
    EXPECT_FALSE(state.isNoteOn(1, 60));
    EXPECT_TRUE(state.isNoteOn(1, 61));
    keyboard.mouseUp(mouseAt(keyboard, {16, 5}, 1, left, juce::Point<int>(5, 25)));
    EXPECT_FALSE(state.isNoteOn(1, 61));
    keyboard.mouseDown(mouseAt(keyboard, {30, 25}));
    EXPECT_TRUE(state.isNoteOn(1, 62));
    EXPECT_EQ(frameAt({30, 25}), 0);
    keyboard.mouseUp(mouseAt(keyboard, {30, 25}));
}

TEST_F(CompositeControls, TheMatrixButtonsAddDeleteAndMoveRows)
{
    ModulationMatrixComponent matrix("Matrix");
    matrix.load(*XmlInput::parse("<ModulationMatrix/>"), skin);
    EXPECT_EQ(matrix.getBounds(), juce::Rectangle<int>(0, 0, 400, 200));
    matrix.load(*XmlInput::parse(R"(<ModulationMatrix><pos left="5" top="6"/><size width="300" height="120"/>
                                    </ModulationMatrix>)"),
                skin);
    EXPECT_EQ(matrix.getBounds(), juce::Rectangle<int>(5, 6, 300, 120));
    EXPECT_FALSE(matrix.getDeleteButton().isEnabled());

    for (int i = 0; i < 3; ++i)
        guitest::click(matrix.getAddButton());
    ASSERT_EQ(matrix.getRowCount(), 3);
    EXPECT_EQ(matrix.getSelectedRow(), 2);
    matrix.getRow(0)->amount.setValue(0.5, juce::sendNotificationSync);
    matrix.getRow(0)->mouseDown(mouseAt(*matrix.getRow(0), {2, 2}));
    EXPECT_EQ(matrix.getRowData(0).amount, 0.5) << "the table keeps what its widgets show";
    EXPECT_EQ(matrix.getSelectedRow(), 0);

    guitest::click(matrix.getMoveUpButton());
    EXPECT_EQ(matrix.getSelectedRow(), 0) << "the first row has nowhere to go";
    guitest::click(matrix.getMoveDownButton());
    guitest::click(matrix.getMoveDownButton());
    EXPECT_EQ(matrix.getSelectedRow(), 2);
    EXPECT_EQ(matrix.getRowData(2).amount, 0.5);
    EXPECT_EQ(matrix.getRow(2)->amount.getValue(), 0.5);
    EXPECT_FALSE(matrix.getMoveDownButton().isEnabled());

    guitest::click(matrix.getDeleteButton());
    EXPECT_EQ(matrix.getRowCount(), 2);
    EXPECT_EQ(matrix.getSelectedRow(), 1) << "the selection moves to the new last row";
    EXPECT_EQ(matrix.getRowData(1).amount, 0.0);
    guitest::click(matrix.getDeleteButton());
    guitest::click(matrix.getDeleteButton());
    EXPECT_EQ(matrix.getRowCount(), 0);
    EXPECT_EQ(matrix.getSelectedRow(), -1);
    EXPECT_FALSE(matrix.getDeleteButton().isEnabled());
}
