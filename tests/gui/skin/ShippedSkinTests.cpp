// The two skins the build draws ("Big" and "Small", build/skins) and the about window's logos, as
// the editor and the product will use them.
#include "SkinArt.h"
#include "SkinBuilder.h"
#include "engine/VelmarinParameterIndex.h"
#include "gui/VelmarinFixture.h"
#include "gui/controls/GFXAnimation.h"
#include "gui/controls/GFXButton.h"
#include "gui/controls/GFXDisplay.h"
#include "gui/controls/GFXKnob.h"
#include "gui/controls/GFXSwitch.h"
#include "gui/controls/GFXToggleButton.h"
#include "gui/controls/TextInput.h"
#include "gui/core/ComponentSearch.h"
#include "gui/skin/GFXPanel.h"
#include "gui/skin/SkinLint.h"
#include "gui/skin/SkinPackage.h"
#include "parameters/EnumParameter.h"

namespace
{
const juce::File skinsFolder(VELMARIN_SHIPPED_SKINS_DIR);
const juce::File sourceFolder(VELMARIN_SOURCE_DIR);

class ShippedSkin : public guitest::VelmarinFixture, public ::testing::WithParamInterface<const char*>
{
protected:
    juce::File packageFile() const { return skinsFolder.getChildFile(juce::String(GetParam()) + ".q41skin"); }

    std::unique_ptr<juce::Component> load()
    {
        SkinPackage package(&plugin(), SkinPackage::packageFile, GetParam(), skinsFolder);
        return package.createMainPanel();
    }
};

/** Every control of a panel's tree that is bound to a parameter, nested panels included. */
void collectBound(juce::Component& root, std::vector<std::pair<juce::Component*, Parameter*>>& bound)
{
    for (auto* child : root.getChildren())
    {
        if (auto* controller = dynamic_cast<GUIController*>(child); controller != nullptr && controller->getParameter())
            bound.emplace_back(child, controller->getParameter());
        collectBound(*child, bound);
    }
}

/** Which of two controls may share a place: a twin and its linked look, and the two LFO panels. */
bool mayShare(const juce::String& a, const juce::String& b)
{
    return a + "Linked" == b || b + "Linked" == a ||
           (a.startsWith("LFO") && a.endsWith("Panel") && b.startsWith("LFO") && b.endsWith("Panel"));
}

struct EventEar : GUIController::Listener
{
    void controllerEvent(GUIController&, int id) override { events.push_back(id); }
    std::vector<int> events;
};
} // namespace

TEST_P(ShippedSkin, PassesTheLinterAgainstThePlugIn)
{
    ASSERT_TRUE(packageFile().existsAsFile()) << packageFile().getFullPathName();
    EXPECT_EQ(SkinLint::check(packageFile(), &plugin()).joinIntoString("\n"), "");
}

TEST_P(ShippedSkin, BindsEveryHostParameterWithTheRightKindOfControl)
{
    const auto panel = load();
    ASSERT_NE(panel, nullptr);
    std::vector<std::pair<juce::Component*, Parameter*>> bound;
    collectBound(*panel, bound);
    for (int index = 0; index < VelmarinParameter::currentBbdFrequency; ++index)
    {
        auto* parameter = plugin().getParameterManager().getParameter(index);
        ASSERT_NE(parameter, nullptr);
        int controls = 0;
        for (const auto& [control, p] : bound)
        {
            if (p != parameter)
                continue;
            ++controls;
            if (auto* items = dynamic_cast<EnumParameter*>(parameter))
            {
                auto* selector = dynamic_cast<GFXSwitch*>(control);
                ASSERT_NE(selector, nullptr) << parameter->getName() << ": items take a switch";
                EXPECT_EQ(selector->getFrames(), items->getItems().size()) << control->getName();
            }
            else if (parameter->getIndex() == VelmarinParameter::msMode ||
                     parameter->getIndex() == VelmarinParameter::autoMixMode || parameter->getName().endsWith("Link"))
            {
                auto* toggle = dynamic_cast<GFXToggleButton*>(control);
                ASSERT_NE(toggle, nullptr) << parameter->getName() << ": on and off take a toggle";
                EXPECT_EQ(toggle->getFrames(), 2);
            }
            else
            {
                auto* knob = dynamic_cast<GFXKnob*>(control);
                ASSERT_NE(knob, nullptr) << parameter->getName() << ": a float takes a knob";
                EXPECT_EQ(dynamic_cast<GFXSwitch*>(control), nullptr) << parameter->getName();
                EXPECT_EQ(knob->getFrames(), 128);
            }
        }
        EXPECT_GT(controls, 0) << parameter->getName() << " has no control";
    }
}

TEST_P(ShippedSkin, HasEveryControlTheEditorLooksUp)
{
    const auto panel = load();
    ASSERT_NE(panel, nullptr);
    auto& root = *panel;
    for (const char* name : {"LFOFreePanel", "LFOSyncPanel"})
        EXPECT_NE(ComponentSearch::find<GFXPanel>(root, name), nullptr) << name;
    for (const char* name : {"DelayOffsetRSKnob", "LFORateRSKnob", "LFODepthRSKnob", "FeedbackRSKnob"})
    {
        EXPECT_NE(ComponentSearch::find<GFXKnob>(root, name), nullptr) << name;
        EXPECT_NE(ComponentSearch::find<GFXKnob>(root, juce::String(name) + "Linked"), nullptr) << name;
    }
    EXPECT_NE(ComponentSearch::find<GFXSwitch>(root, "LFONoteRateRSSwitch"), nullptr);
    EXPECT_NE(ComponentSearch::find<GFXSwitch>(root, "LFONoteRateRSSwitchLinked"), nullptr);
    for (const char* name : {"LeftVUMeter", "RightVUMeter"})
    {
        auto* meter = ComponentSearch::find<GFXAnimation>(root, name);
        ASSERT_NE(meter, nullptr) << name;
        EXPECT_EQ(meter->getFrames(), 61) << "frames at 0.5 dB from -24 to +6 dB";
    }

    // The linked looks follow the left channel, which the right one then follows.
    const std::vector<std::pair<const char*, const char*>> twins{{"DelayOffsetRSKnobLinked", "Delay Offset L/M"},
                                                                 {"LFORateRSKnobLinked", "LFO Rate L/M"},
                                                                 {"LFODepthRSKnobLinked", "LFO Depth L/M"},
                                                                 {"FeedbackRSKnobLinked", "Feedback L/M"},
                                                                 {"LFONoteRateRSSwitchLinked", "LFO Note Rate L/M"}};
    for (const auto& [name, left] : twins)
    {
        auto* twin = dynamic_cast<GUIController*>(ComponentSearch::findByName(root, name));
        ASSERT_NE(twin, nullptr) << name;
        EXPECT_EQ(twin->getParameter(), &parameter(left)) << name;
    }
    // The rate knobs live in the free panel, the note values in the synced one.
    auto* free = ComponentSearch::find<GFXPanel>(root, "LFOFreePanel");
    auto* synced = ComponentSearch::find<GFXPanel>(root, "LFOSyncPanel");
    EXPECT_NE(ComponentSearch::find<GFXKnob>(*free, "LFORateRSKnobLinked"), nullptr);
    EXPECT_NE(ComponentSearch::find<GFXSwitch>(*synced, "LFONoteRateRSSwitchLinked"), nullptr);
    EXPECT_EQ(ComponentSearch::findByName(*free, "LFONoteRateRSSwitch"), nullptr);

    auto* name = ComponentSearch::find<TextInput>(root, "PresetNameDisplay");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->getParameter(), &parameter("Preset Name"));
    EXPECT_EQ(name->getText(), "Init");

    // The clock read-out: five cells, glyphs from ' ' to 'k' for every text it is given.
    auto* clock = ComponentSearch::find<GFXDisplay>(root, "BBDClockDisplay");
    ASSERT_NE(clock, nullptr);
    EXPECT_EQ(clock->getParameter(), &parameter("Current BBD Frequency"));
    EXPECT_FALSE(clock->isEnabled()) << "read-only";
    EXPECT_EQ(clock->getCellCount(), 5);
    for (const juce::String text : {"1.35M", " 135k", "12.3k", " 8000"})
        for (auto character : text)
            EXPECT_EQ(clock->glyphIndexOf(character), int(character) - ' ') << text;
    EXPECT_EQ(clock->glyphIndexOf('k'), 'k' - ' ') << "the strip ends at 'k'";
    EXPECT_EQ(clock->glyphIndexOf('l'), 'k' - ' ');
}

TEST_P(ShippedSkin, ClockGlyphsStayInsideTheirCells)
{
    // The read-out cuts each character's cell out of the strip: a glyph wider than its cell is
    // dropped and leaves the cell empty, one touching a side runs into its neighbour on screen, and
    // one reaching past its cell puts a mark at the top of the next (the font's ascent keeps the
    // top row clear of every glyph's own ink).
    const auto panel = load();
    ASSERT_NE(panel, nullptr);
    auto* clock = ComponentSearch::find<GFXDisplay>(*panel, "BBDClockDisplay");
    ASSERT_NE(clock, nullptr);
    ASSERT_GT(clock->getCellCount(), 0);
    SkinPackage package(&plugin(), SkinPackage::packageFile, GetParam(), skinsFolder);
    const auto strip = package.getImage("ClockGlyphs.png");
    const int width = clock->getWidth() / clock->getCellCount();
    const int height = clock->getHeight();
    const int glyphs = clock->glyphIndexOf(0x10ffff) + 1; // past the strip: its last glyph
    ASSERT_EQ(strip.getWidth(), width);
    ASSERT_EQ(strip.getHeight(), 2 * glyphs * height) << "two banks of glyphs from ' ' on";

    const juce::Image::BitmapData pixels(strip, juce::Image::BitmapData::readOnly);
    for (juce::juce_wchar character = '!'; character < juce::juce_wchar(' ' + glyphs); ++character)
    {
        const int top = clock->glyphIndexOf(character) * height;
        const auto inked = [&](int x0, int x1, int y0, int y1)
        {
            for (int y = top + y0; y < top + y1; ++y)
                for (int x = x0; x < x1; ++x)
                    if (pixels.getPixelColour(x, y).getAlpha() > 0)
                        return true;
            return false;
        };
        const auto name = juce::String::charToString(character);
        EXPECT_TRUE(inked(0, width, 0, height)) << name << " draws nothing";
        EXPECT_FALSE(inked(0, 1, 0, height)) << name << " touches its cell's left side";
        EXPECT_FALSE(inked(width - 1, width, 0, height)) << name << " touches its cell's right side";
        EXPECT_FALSE(inked(0, width, 0, 1)) << name << ": the glyph above spills into its cell";
    }
}

TEST_P(ShippedSkin, ButtonsFireTheirEvents)
{
    const auto panel = load();
    ASSERT_NE(panel, nullptr);
    const std::vector<std::pair<const char*, const char*>> buttons{{"PreviousPresetButton", "Select Previous Preset"},
                                                                   {"NextPresetButton", "Select Next Preset"},
                                                                   {"BrowsePresetsButton", "Browse Presets"},
                                                                   {"SavePresetButton", "Save Preset"},
                                                                   {"OptionsButton", "Options"},
                                                                   {"AboutButton", "About"}};
    for (const auto& [name, event] : buttons)
    {
        auto* button = ComponentSearch::find<GFXButton>(*panel, name);
        ASSERT_NE(button, nullptr) << name;
        EXPECT_EQ(button->getFrames(), 2) << name;
        EventEar ear;
        static_cast<GUIController*>(button)->addListener(&ear);
        button->clicked(juce::ModifierKeys());
        static_cast<GUIController*>(button)->removeListener(&ear);
        EXPECT_EQ(ear.events, std::vector<int>{plugin().getEvents().getUid(event)}) << name;
    }
}

TEST_P(ShippedSkin, ControlsKeepToTheirPanelsAndApartExceptTwins)
{
    const auto panel = load();
    ASSERT_NE(panel, nullptr);
    auto* free = ComponentSearch::find<GFXPanel>(*panel, "LFOFreePanel");
    auto* synced = ComponentSearch::find<GFXPanel>(*panel, "LFOSyncPanel");
    ASSERT_NE(free, nullptr);
    ASSERT_NE(synced, nullptr);
    EXPECT_EQ(free->getBounds(), synced->getBounds());

    for (auto* holder : {panel.get(), static_cast<juce::Component*>(free), static_cast<juce::Component*>(synced)})
    {
        const auto children = holder->getChildren();
        EXPECT_FALSE(children.isEmpty()) << holder->getName();
        for (int i = 0; i < children.size(); ++i)
        {
            auto* a = children[i];
            EXPECT_FALSE(a->getBounds().isEmpty()) << a->getName();
            EXPECT_TRUE(holder->getLocalBounds().contains(a->getBounds()))
                << a->getName() << " leaves " << holder->getName();
            for (int j = i + 1; j < children.size(); ++j)
            {
                auto* b = children[j];
                if (mayShare(a->getName(), b->getName()))
                    EXPECT_EQ(a->getBounds(), b->getBounds()) << a->getName() << " and its twin " << b->getName();
                else
                    EXPECT_FALSE(a->getBounds().intersects(b->getBounds()))
                        << a->getName() << " overlaps " << b->getName() << " in " << holder->getName();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BigAndSmall, ShippedSkin, ::testing::Values("Big", "Small"));

TEST(ShippedSkins, TheDefaultRuleAndTheDrawerGiveWhatTheDocumentationSays)
{
    // The editor's height with the preset drawer open: panel, drawer of 20-pixel rows plus 39, and
    // the 16-pixel status bar.
    const auto withDrawer = [](int panelHeight) { return panelHeight + (panelHeight / 20) * 20 + 39 + 16; };
    std::map<juce::String, juce::Rectangle<int>> backgrounds;
    for (const juce::String name : {"Big", "Small"})
    {
        SkinPackage package(nullptr, SkinPackage::packageFile, name, skinsFolder);
        backgrounds[name] = package.getImage("Background.png").getBounds();
        EXPECT_FALSE(package.getImage("Thumbnail.png").isNull()) << name;
    }
    const auto& big = backgrounds["Big"];
    const auto& small = backgrounds["Small"];
    ASSERT_LT(small.getWidth(), big.getWidth());
    for (const auto& display :
         {juce::Rectangle<int>(1920, 1080), juce::Rectangle<int>(1366, 768), juce::Rectangle<int>(1280, 800)})
        EXPECT_TRUE(display.contains(big)) << "the default is Big on " << display.toString();
    EXPECT_GT(withDrawer(big.getHeight()), 768) << "Big overflows 1366 x 768 with the drawer open";
    EXPECT_LE(withDrawer(small.getHeight()), 768 - 24) << "Small fits it, with room for a task bar";
}

TEST(ShippedSkins, CommittedLogosAreWhatTheGeneratorDraws)
{
    const SkinArt::Fonts fonts(sourceFolder.getChildFile("src/gui/widgets/resources/fonts"));
    ASSERT_TRUE(fonts.valid());
    const auto resources = sourceFolder.getChildFile("src/product/resources");
    for (const auto& [name, drawn] :
         {std::pair{"Q41Logo.png", SkinArt::q41Logo(fonts)}, std::pair{"PluginLogo.png", SkinArt::pluginLogo(fonts)}})
    {
        juce::MemoryBlock committed;
        ASSERT_TRUE(resources.getChildFile(name).loadFileAsData(committed)) << name;
        EXPECT_TRUE(committed == SkinBuilder::png(drawn))
            << name << ": run velmarin-skingen logos and commit the result";
    }
}
