// Pictures of the shipped skins as the panel builder loads them, with no display:
//
//   skin_gallery SKINS_FOLDER OUTPUT_FOLDER
//
// For each of Big.q41skin and Small.q41skin in SKINS_FOLDER: N-default.png (every parameter at its
// default), N-extremes.png (links off, LFO synced, knobs at their ends) and N-strips.png (every
// filmstrip, all frames). The pictures in docs/skins are made with it from build/skins; look at
// them after any change to the skins.
#include "TestSupport.h"
#include "gui/controls/GFXAnimation.h"
#include "gui/core/ComponentSearch.h"
#include "gui/skin/SkinPackage.h"
#include "gui/widgets/DefaultLookAndFeel.h"
#include "plugin/BasePlugin.h"
#include "plugin/PluginEditor.h"
#include "product/VelmarinProcessor.h"

#include <cstdio>
#include <functional>
#include <set>

namespace
{
/** The editor's link and sync rules: which of two controls at one place shows. */
void showAsTheEditorWould(juce::Component& panel, ParameterManager& parameters)
{
    const auto on = [&](const char* name) { return parameters.getParameter(name)->getBool(); };
    const auto show = [&](const char* name, bool visible)
    {
        if (auto* c = ComponentSearch::findByName(panel, name))
            c->setVisible(visible);
    };
    const bool synced = parameters.getParameter("LFO Sync")->getInt() != 0;
    show("LFOFreePanel", ! synced);
    show("LFOSyncPanel", synced);
    const std::vector<std::pair<const char*, std::vector<const char*>>> links{
        {"Delay Offset Link", {"DelayOffsetRSKnob"}},
        {"LFO Rate Link", {"LFORateRSKnob", "LFONoteRateRSSwitch"}},
        {"LFO Depth Link", {"LFODepthRSKnob"}},
        {"Feedback Link", {"FeedbackRSKnob"}}};
    for (const auto& [link, names] : links)
        for (const auto* name : names)
        {
            show(name, ! on(link));
            show((juce::String(name) + "Linked").toRawUTF8(), on(link));
        }
}

bool save(const juce::Image& image, const juce::File& file)
{
    file.deleteFile();
    juce::FileOutputStream out(file);
    return out.openedOk() && juce::PNGImageFormat().writeImageToStream(image, out);
}

/** The panel of one skin with the parameters as `prepare` sets them. */
juce::Image panelPicture(const juce::File& skins, const juce::String& skin,
                         const std::function<void(ParameterManager&)>& prepare,
                         const std::pair<float, float>& meterLevels)
{
    testsupport::TemporaryFolder folder{"skin-gallery"};
    VelmarinProcessor processor{FolderRule::fixed(folder / "user", folder / "data")};
    auto& parameters = processor.getPlugin().getParameterManager();
    // The instance's own editor would clear the clock read-out on its next tick: nothing processes.
    if (auto* editor = processor.getPlugin().getEditor())
        editor->stopTicking();
    prepare(parameters);
    testsupport::dispatchPendingMessages();
    SkinPackage package(&processor.getPlugin(), SkinPackage::packageFile, skin, skins);
    const auto panel = package.createMainPanel();
    if (panel == nullptr)
        return {};
    showAsTheEditorWould(*panel, parameters);
    if (auto* meter = ComponentSearch::find<GFXAnimation>(*panel, "LeftVUMeter"))
        meter->setValue(meterLevels.first);
    if (auto* meter = ComponentSearch::find<GFXAnimation>(*panel, "RightVUMeter"))
        meter->setValue(meterLevels.second);
    return panel->createComponentSnapshot(panel->getLocalBounds(), true, 1.0f);
}

/** Every filmstrip the skin names, each frame side by side, rows wrapped at the sheet's width. */
juce::Image contactSheet(const juce::File& skins, const juce::String& skin)
{
    SkinPackage package(nullptr, SkinPackage::packageFile, skin, skins);
    const auto document = package.readDocument();
    if (document == nullptr)
        return {};
    struct Strip
    {
        juce::String name;
        juce::Image image;
        int frames;
    };
    std::vector<Strip> strips;
    std::set<juce::String> seen;
    const std::function<void(const juce::XmlElement&)> walk = [&](const juce::XmlElement& e)
    {
        if (e.getTagName() == "gfx" && e.hasAttribute("resource"))
        {
            const auto name = e.getStringAttribute("resource");
            const auto image = package.getImage(name);
            const int frames = e.hasAttribute("fontHeight")
                                   ? image.getHeight() / juce::jmax(1, e.getIntAttribute("fontHeight"))
                                   : juce::jmax(1, e.getIntAttribute("framesNum", 1));
            if (seen.insert(name).second && image.isValid() && ! name.contains("Panel") && name != "Background.png")
                strips.push_back({name, image, frames});
        }
        for (auto* child = e.getFirstChildElement(); child != nullptr; child = child->getNextElement())
            walk(*child);
    };
    walk(*document);

    const int sheetWidth = 1400, margin = 12, captionHeight = 18;
    const auto layoutStrip = [&](const Strip& s, int& height)
    {
        const int frameHeight = s.image.getHeight() / s.frames;
        const int perRow = juce::jmax(1, (sheetWidth - 2 * margin) / (s.image.getWidth() + 4));
        const int rows = (s.frames + perRow - 1) / perRow;
        height += captionHeight + rows * (frameHeight + 4) + margin;
        return std::pair{frameHeight, perRow};
    };
    int height = margin;
    for (const auto& s : strips)
        layoutStrip(s, height);

    juce::Image sheet(juce::Image::ARGB, sheetWidth, height, true);
    juce::Graphics g(sheet);
    g.fillAll(juce::Colour(0xff202226));
    int y = margin;
    for (const auto& s : strips)
    {
        int ignored = 0;
        const auto [frameHeight, perRow] = layoutStrip(s, ignored);
        g.setColour(juce::Colour(DefaultLookAndFeel::Colours::text));
        g.setFont(juce::Font(13.0f, juce::Font::bold));
        g.drawText(s.name + "  (" + juce::String(s.frames) + " frames)", margin, y, sheetWidth, captionHeight,
                   juce::Justification::centredLeft);
        y += captionHeight;
        for (int f = 0; f < s.frames; ++f)
        {
            const int x = margin + (f % perRow) * (s.image.getWidth() + 4);
            const int top = y + (f / perRow) * (frameHeight + 4);
            g.drawImage(s.image, x, top, s.image.getWidth(), frameHeight, 0, f * frameHeight, s.image.getWidth(),
                        frameHeight);
        }
        y += ((s.frames + perRow - 1) / perRow) * (frameHeight + 4) + margin;
    }
    return sheet;
}
} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: skin_gallery SKINS_FOLDER OUTPUT_FOLDER\n");
        return 2;
    }
    const juce::ScopedJuceInitialiser_GUI juce;
    const DefaultLookAndFeel::Scope look;
    const auto skins = juce::File::getCurrentWorkingDirectory().getChildFile(argv[1]);
    const auto out = juce::File::getCurrentWorkingDirectory().getChildFile(argv[2]);
    out.createDirectory();

    const auto defaults = [](ParameterManager& p) { p.getParameter("Current BBD Frequency")->setText("12.3k", true); };
    const auto extremes = [](ParameterManager& p)
    {
        for (const char* link : {"Delay Offset Link", "LFO Rate Link", "LFO Depth Link", "Feedback Link"})
            p.getParameter(link)->setBool(false, true);
        p.getParameter("LFO Sync")->setInt(2, true);
        p.getParameter("M/S Mode")->setBool(true, true);
        p.getParameter("Mistress Auto Mix Mode")->setBool(false, true);
        // Knobs at their ends: left channels and the input at the top, the rest at the bottom.
        for (const char* name : {"Preamp", "Delay Offset L/M", "LFO Depth L/M", "Feedback L/M", "Gain L/M",
                                 "BBD Frequency Range", "FX Amount", "LFO Phase Shift"})
            p.getParameter(name)->setNormalized(1.0f, true);
        for (const char* name : {"Channels Crossfade", "Delay Offset R/S", "LFO Depth R/S", "Feedback R/S", "Gain R/S",
                                 "Output Volume", "LFO Rate L/M", "LFO Rate R/S"})
            p.getParameter(name)->setNormalized(0.0f, true);
        p.getParameter("LFO Note Rate L/M")->setNormalized(0.0f, true);
        p.getParameter("LFO Note Rate R/S")->setNormalized(1.0f, true);
        p.getParameter("BBD Length")->setNormalized(0.0f, true);
        p.getParameter("Low Cut")->setNormalized(0.0f, true);
        p.getParameter("LFO Voltage Curve")->setNormalized(1.0f, true);
        p.getParameter("Preset Name")->setText("Wide Jet Sweep", true);
        p.getParameter("Current BBD Frequency")->setText("1.35M", true);
    };

    int status = 0;
    for (const juce::String skin : {"Big", "Small"})
    {
        const std::vector<std::pair<juce::String, juce::Image>> pictures{
            {skin + "-default.png", panelPicture(skins, skin, defaults, {0.55f, 0.5f})},
            {skin + "-extremes.png", panelPicture(skins, skin, extremes, {0.92f, 0.84f})},
            {skin + "-strips.png", contactSheet(skins, skin)}};
        for (const auto& [name, image] : pictures)
        {
            const auto file = out.getChildFile(name);
            if (! image.isValid() || ! save(image, file))
            {
                std::fprintf(stderr, "skin_gallery: cannot make %s\n", file.getFullPathName().toRawUTF8());
                status = 1;
                continue;
            }
            std::printf("%s\n", file.getFullPathName().toRawUTF8());
        }
    }
    return status;
}
