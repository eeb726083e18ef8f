#include "EveryWordSkin.h"
#include "TestSkin.h"
#include "gui/GuiTestSupport.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/GFXAnimation.h"
#include "gui/controls/GFXButton.h"
#include "gui/controls/GFXDisplay.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/GFXSwitch.h"
#include "gui/controls/ImageComboBox.h"
#include "gui/core/ComponentSearch.h"
#include "gui/skin/ControlWords.h"
#include "gui/skin/GFXPanel.h"
#include "gui/skin/SkinLint.h"
#include "gui/skin/SkinPackage.h"

namespace
{
using testskin::everyWordDocument;
using testskin::everyWordSkin;

class PanelBuilder : public guitest::VelmarinFixture
{
protected:
    std::unique_ptr<juce::Component> loadMainPanel(const testskin::Skin& skin)
    {
        package = skin.package("Every");
        SkinPackage source(&plugin(), SkinPackage::packageInMemory, "Every", {}, package.getData(), package.getSize());
        return source.createMainPanel();
    }
    juce::MemoryBlock package;
};

struct CountingEar : GUIController::Listener
{
    void controllerEvent(GUIController&, int) override { ++events; }
    int events = 0;
};
} // namespace

TEST_F(PanelBuilder, TheSkinThatUsesEveryWordBuildsItsTree)
{
    auto panel = loadMainPanel(everyWordSkin());
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->getName(), "MainEditorPanel");
    EXPECT_EQ(panel->getBounds(), juce::Rectangle<int>(0, 0, 400, 200)) << "the background decides the size";
    EXPECT_EQ(panel->getNumChildComponents(), 22) << "the unknown word is skipped";

    auto* amount = ComponentSearch::find<GFXKnob>(*panel, "FX Amount Knob");
    ASSERT_NE(amount, nullptr) << "own children are searched before the nested panel's";
    EXPECT_EQ(ComponentSearch::find<GFXAnimation>(*panel, "FX Amount Knob"), nullptr) << "a wrong class gives null";
    EXPECT_NE(ComponentSearch::find<GFXKnob>(*panel, "Preamp Knob"), nullptr) << "words ignore case";
    EXPECT_EQ(amount->getBounds(), juce::Rectangle<int>(20, 20, 40, 40));
    EXPECT_EQ(amount->getParameter(), &parameter("FX Amount"));
    EXPECT_EQ(ComponentSearch::find<GFXSwitch>(*panel, "Sync Switch")->getSwitchStyle(), GFXSwitch::horizontal);
    auto* picker = ComponentSearch::find<ImageComboBox>(*panel, "Length Picker");
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->getParameters().getFirst(), &parameter("BBD Length")) << "the panel read its words";
    EXPECT_EQ(picker->getIndex(), parameter("BBD Length").getInt());
    EXPECT_NE(ComponentSearch::find<GFXDisplay>(*panel, "Clock Display"), nullptr);
    EXPECT_FALSE(ComponentSearch::find<GFXDisplay>(*panel, "Clock Display")->isEnabled()) << "read-only";

    auto* inner = ComponentSearch::find<GFXPanel>(*panel, "Inner Panel");
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->getBounds(), juce::Rectangle<int>(200, 120, 100, 60)) << "ofsX moves the children, not the panel";
    auto* lowCut = ComponentSearch::find<GFXKnob>(*inner, "Low Cut Knob");
    EXPECT_EQ(lowCut->getPosition(), juce::Point<int>(10, 5));
    EXPECT_EQ(panel->getIndexOfChildComponent(inner), panel->getNumChildComponents() - 1) << "later words stand above";
    EXPECT_EQ(inner->getBackgroundColour(), juce::Colour(0xff303030));

    // The main panel's background is its image, not its colour.
    EXPECT_EQ(guitest::snapshot(*panel).getPixelAt(395, 5), juce::Colours::darkslateblue);

    // A listener on the main panel reaches every control, nested ones included.
    CountingEar ear;
    dynamic_cast<GUIController*>(panel.get())->addListener(&ear);
    ComponentSearch::find<GFXButton>(*panel, "Next Preset")->clicked(juce::ModifierKeys());
    dynamic_cast<GUIController*>(lowCut)->fireEvent(1000);
    EXPECT_EQ(ear.events, 2);

    // Controls show the value their parameter has when the skin loads.
    parameter("Low Cut").setNormalized(1.0f, true);
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(guitest::shownFrame(*lowCut), 63);

    // Another skin comes: the old panel goes, and no parameter keeps a listener of it.
    auto* oldAmount = amount;
    panel.reset();
    EXPECT_FALSE(parameter("FX Amount").hasAsyncListener(oldAmount));
}

TEST_F(PanelBuilder, MalformedSkinsLoadWithoutACrash)
{
    const auto base = everyWordDocument();
    const std::vector<std::pair<juce::String, juce::String>> damage{
        {"framesNum=\"64\"", "framesNum=\"0\""},
        {"framesNum=\"4\"", "framesNum=\"-3\""},
        {"framesNum=\"16\"", "framesNum=\"99999999\""},
        {"states=\"3\"", "states=\"-2147483648\""},
        {"width=\"20\"", "width=\"-5\""},
        {"height=\"60\"", "height=\"0\""},
        {"left=\"20\"", "left=\"2147483647\""},
        {"ofsX=\"10\"", "ofsX=\"abc\""},
        {"thumb=\"6\"", "thumb=\"-100000\""},
        {"<gfx resource=\"Knob.png\" framesNum=\"64\"/>", ""},
        {"<pos left=\"80\" top=\"20\"/>", "<pos/>"},
        {"bkgCol=\"ff202020\"", "bkgCol=\"not a colour\""},
        {"fontHeight=\"10\"", "fontHeight=\"0\""},
        {"digitsNum=\"3\"", "digitsNum=\"-1\""},
        {"firstDigitOrder=\"10\"", "firstDigitOrder=\"-0\""},
        {"tilesInRow=\"3\"", "tilesInRow=\"-4\""},
        {"firstASCII=\" \"", "firstASCII=\"\""},
        {"framesNum=\"6\"", "framesNum=\"0\""},
        {"<digits><gfx resource=\"Digits.png\"/></digits>", "<digits/>"},
        {"gaps=\"6;8\"", "gaps=\"-5;x\""},
        {"frames=\"16\"", "frames=\"0\""},
        {"firstKey=\"48\" lastKey=\"50\"", "firstKey=\"200\" lastKey=\"-3\""},
        {"<param name=\"FX Amount\"/>", ""},
        {"<controls ofsX=\"0\" ofsY=\"0\">", "<controls><controls>"},
        {"param=\"FX Amount\"", "param=\"\""},
        {"event=\"Select Next Preset\"", "event=\"\""},
    };
    for (const auto& [from, to] : damage)
    {
        auto skin = everyWordSkin();
        auto document = base.replace(from, to);
        if (to == "<controls><controls>")
            document = document.replace("</controls>\n  </Panel>\n</PluginEditor>",
                                        "</controls></controls>\n  </Panel>\n</PluginEditor>");
        skin.files["skin.xml"] = testskin::text(document);
        const auto panel = loadMainPanel(skin);
        EXPECT_NE(panel, nullptr) << to;
        if (panel != nullptr)
            guitest::snapshot(*panel);
    }

    // A skin made for another product loads; its links and actions bind nothing.
    auto foreign = everyWordSkin();
    foreign.files["skin.xml"] =
        testskin::text(base.replace("param=\"", "param=\"Other ").replace("event=\"", "event=\"Other "));
    const auto panel = loadMainPanel(foreign);
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(ComponentSearch::find<GFXKnob>(*panel, "FX Amount Knob")->getParameter(), nullptr);
}

TEST_F(PanelBuilder, LintReadsTheBuildersWordsAndThePluginsNames)
{
    EXPECT_TRUE(ControlWords::isKnown("knob"));
    EXPECT_FALSE(ControlWords::isKnown("Hologram"));

    auto skin = everyWordSkin();
    const auto clean = SkinLint::check("Every", skin.package("Every"), &plugin());
    EXPECT_EQ(clean, juce::StringArray({"<font file=\"Label.ttf\">: the skin has no file Label.ttf",
                                        "<Hologram>: not a control the panel builder knows; skipped"}))
        << clean.joinIntoString("\n");

    skin.files["skin.xml"] =
        testskin::text(everyWordDocument()
                           .replace("param=\"Preamp\"", "param=\"Pre-amp\"")
                           .replace("event=\"Browse Presets\"", "event=\"Browse\"")
                           .replace("as=\"connectedTo\" param=\"Low Cut\"", "as=\"ConnectedTo\" param=\"Low Cut\""));
    const auto problems = SkinLint::check("Every", skin.package("Every"), &plugin());
    EXPECT_TRUE(problems.contains("<link param=\"Pre-amp\">: the plug-in has no parameter of that name"))
        << problems.joinIntoString("\n");
    EXPECT_TRUE(problems.contains("<action event=\"Browse\">: the plug-in has no event of that name"));
    EXPECT_TRUE(
        problems.contains("<link param=\"Low Cut\">: as=\"ConnectedTo\" binds nothing (only \"connectedTo\" does)"));
}
