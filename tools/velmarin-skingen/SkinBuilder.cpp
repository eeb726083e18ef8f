#include "SkinBuilder.h"

#include "engine/VelmarinParameterIndex.h"
#include "gui/skin/SkinPacker.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace SkinBuilder
{
using namespace SkinLayout;

namespace
{
constexpr int knobFrames = 128;
constexpr int meterFrames = 61;
constexpr const char* typeface = "DejaVu Sans";

/** Element sizes of the big skin; each skin scales them. */
constexpr float knobDiameter = 50.0f;
constexpr float toggleWidth = 60.0f, toggleHeight = 24.0f;
constexpr float buttonHeight = 26.0f;
constexpr float logoHeight = 40.0f;
constexpr float meterWidth = 10.0f, meterHeight = 250.0f;
constexpr float glyphHeight = 20.0f;
constexpr float selectorPitch = 14.0f;
constexpr float captionText = 12.0f, titleText = 13.0f, selectorText = 11.0f, buttonText = 11.0f, scaleText = 10.0f,
                nameText = 14.0f;

int pitchOf(const SkinSize& size)
{
    return juce::jmax(10, size.size(selectorPitch));
}

/** The file name of a parameter's selector strip: its name without the channel. */
juce::String selectorImage(const juce::String& parameterName, Look look)
{
    auto key = parameterName.replace(" L/M", "").replace(" R/S", "");
    key = key.retainCharacters("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789");
    return "Switch" + key + (look == Look::linked ? "Linked" : "") + ".png";
}

juce::String wordImage(const juce::String& prefix, const juce::String& word)
{
    auto key = word == "<" ? juce::String("Previous") : word == ">" ? juce::String("Next") : word;
    key = key.retainCharacters("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789");
    return prefix + key.substring(0, 1).toUpperCase() + key.substring(1).toLowerCase() + ".png";
}

juce::String hex(juce::uint32 argb)
{
    return juce::String::toHexString(int(argb)).paddedLeft('0', 8);
}

/** The frame each control shows at the parameters' defaults. */
int defaultFrame(const Placement& p, const ParameterTable& parameters)
{
    if (p.control->parameter < 0 || p.frames < 2)
        return 0;
    const float v = parameters[p.control->parameter].defaultValue();
    return juce::jlimit(0, p.frames - 1, int(std::floor(v * float(p.frames - 1) + 0.5f)));
}

bool shownAtDefaults(const Placement& p, const ParameterTable& parameters)
{
    using P = VelmarinParameter::Index;
    const auto on = [&](int index) { return parameters[index].defaultValue() > 0.5f; };
    const auto& name = p.control->name;
    if (p.control->holder == Holder::lfoSync)
        return parameters[P::lfoSync].defaultValue() > 0.0f;
    const std::map<juce::String, int> links{{"DelayOffsetRS", P::delayOffsetLink},
                                            {"LFORateRS", P::lfoRateLink},
                                            {"LFONoteRateRS", P::lfoRateLink},
                                            {"LFODepthRS", P::lfoDepthLink},
                                            {"FeedbackRS", P::feedbackLink}};
    for (const auto& [stem, link] : links)
        if (name.startsWith(stem))
            return p.control->look == Look::linked ? on(link) : ! on(link);
    return true;
}
} // namespace

float ParameterRow::defaultValue() const
{
    if (type == "state")
        return value == "On" ? 1.0f : 0.0f;
    if (type == "enum")
        return items.size() > 1 ? float(juce::jmax(0, items.indexOf(value))) / float(items.size() - 1) : 0.0f;
    return juce::jlimit(0.0f, 1.0f, value.getFloatValue());
}

ParameterTable::ParameterTable(const juce::File& definitions)
{
    const auto root = juce::parseXML(definitions);
    if (root == nullptr)
        return;
    for (auto* param : root->getChildWithTagNameIterator("param"))
    {
        ParameterRow row{param->getStringAttribute("name"), param->getStringAttribute("type"),
                         param->getStringAttribute("value"),
                         juce::StringArray::fromTokens(param->getStringAttribute("enum"), ";", "")};
        row.items.removeEmptyStrings();
        rows[param->getIntAttribute("index", -1)] = row;
    }
}

const ParameterRow& ParameterTable::operator[](int index) const
{
    const auto found = rows.find(index);
    return found != rows.end() ? found->second : none;
}

Geometry place(const SkinSize& size, const ParameterTable& parameters, const SkinArt::Fonts& fonts)
{
    const auto& layout = velmarin();
    Geometry geometry;
    geometry.size = &size;
    geometry.lfoPanel = juce::Rectangle<int>::leftTopRightBottom(
        size.x(layout.lfoPanel.getX()), size.y(layout.lfoPanel.getY()), size.x(layout.lfoPanel.getRight()),
        size.y(layout.lfoPanel.getBottom()));

    const int toggleH = size.size(toggleHeight, 16);
    const int linkTop = size.y(layout.linkRow) - toggleH / 2;
    const int gap = size.size(4.0f, 3);

    for (const auto& control : layout.controls)
    {
        Placement p{&control, {}, {}, {}, 1};
        int w = 0, h = 0;
        switch (control.kind)
        {
        case Kind::knob:
            w = h = SkinArt::knobFrameSize(size.size(knobDiameter));
            p.image = control.look == Look::linked ? "KnobLinked.png" : "Knob.png";
            p.frames = knobFrames;
            break;
        case Kind::toggle:
            w = juce::jmax(size.size(toggleWidth),
                           SkinArt::toggleWidthFor(control.caption, fonts, size.text(captionText), toggleH));
            h = toggleH;
            p.image = wordImage("Toggle", control.caption);
            p.frames = 2;
            break;
        case Kind::selector:
        {
            const auto& items = parameters[control.parameter].items;
            w = SkinArt::selectorWidth(items, fonts, size.text(selectorText), pitchOf(size));
            h = items.size() * pitchOf(size);
            p.image = selectorImage(parameters[control.parameter].name, control.look);
            p.frames = items.size();
            break;
        }
        case Kind::button:
            w = juce::roundToInt(control.width * size.scaleX);
            h = size.size(buttonHeight);
            p.image = wordImage("Button", control.caption);
            p.frames = 2;
            break;
        case Kind::logo:
            w = juce::roundToInt(control.width * size.scaleX);
            h = size.size(logoHeight);
            p.image = "Logo.png";
            p.frames = 2;
            break;
        case Kind::meter:
            w = size.size(meterWidth);
            h = juce::roundToInt(meterHeight * size.scaleY);
            p.image = "Meter.png";
            p.frames = meterFrames;
            break;
        case Kind::clock:
        {
            const int cellHeight = size.size(glyphHeight);
            w = 5 * juce::roundToInt(float(cellHeight) * 0.68f);
            h = cellHeight;
            p.image = "ClockGlyphs.png";
            break;
        }
        case Kind::presetName:
            w = juce::roundToInt(control.width * size.scaleX);
            h = size.size(buttonHeight);
            break;
        }
        auto r = juce::Rectangle<int>(w, h).withCentre({size.x(control.centre.x), size.y(control.centre.y)});
        if (control.anchor == Anchor::topOfRow)
            r.setY(size.y(control.centre.y) - size.size(knobDiameter * 0.5f + 10.0f));
        else if (control.anchor == Anchor::belowPrevious && ! geometry.placements.empty())
            r.setY(geometry.placements.back().absolute.getBottom() + 2 * gap +
                   int(std::ceil(size.text(captionText) * 1.2f)) + 3);
        else if (control.anchor == Anchor::aboveLinkRow)
            r.setY(linkTop - gap - h);
        else if (control.anchor == Anchor::belowLinkRow)
            r.setY(linkTop + toggleH + gap);
        p.absolute = r;
        p.bounds = control.holder == Holder::main ? r : r - geometry.lfoPanel.getPosition();
        geometry.placements.push_back(p);
    }
    return geometry;
}

namespace
{
struct Drawn
{
    std::map<juce::String, juce::Image> images;
};

juce::Image drawImage(const Placement& p, const SkinSize& size, const ParameterTable& parameters,
                      const SkinArt::Fonts& fonts)
{
    const auto& c = *p.control;
    switch (c.kind)
    {
    case Kind::knob:
        return SkinArt::knobStrip(size.size(knobDiameter), knobFrames, c.look == Look::linked);
    case Kind::toggle:
        return SkinArt::toggleStrip(p.bounds.getWidth(), p.bounds.getHeight(), c.caption, fonts,
                                    size.text(captionText));
    case Kind::selector:
        return SkinArt::selectorStrip(parameters[c.parameter].items, p.bounds.getWidth(), pitchOf(size), fonts,
                                      size.text(selectorText), c.look == Look::linked);
    case Kind::button:
        return SkinArt::buttonStrip(p.bounds.getWidth(), p.bounds.getHeight(), c.caption, fonts, size.text(buttonText));
    case Kind::logo:
        return SkinArt::logoButtonStrip(p.bounds.getWidth(), p.bounds.getHeight(), fonts, size.scale);
    case Kind::meter:
        return SkinArt::meterStrip(p.bounds.getWidth(), p.bounds.getHeight(), meterFrames,
                                   float(juce::jmax(3, size.size(4.0f))));
    case Kind::clock:
        return SkinArt::glyphStrip(p.bounds.getWidth() / 5, p.bounds.getHeight(), ' ', 'k', fonts);
    case Kind::presetName:
        break;
    }
    return {};
}

/** What the faceplate carries around one control: shadows, dials, wells and captions. */
void decorate(juce::Graphics& g, const Placement& p, juce::Point<int> origin, const SkinSize& size,
              const SkinArt::Fonts& fonts)
{
    const auto& c = *p.control;
    if (c.look == Look::linked)
        return; // its twin already decorated the place
    const auto r = (p.absolute - origin).toFloat();
    const float s = size.scale;
    switch (c.kind)
    {
    case Kind::knob:
    {
        const float radius = float(size.size(knobDiameter)) * 0.5f;
        juce::Path cap;
        cap.addEllipse(juce::Rectangle<float>(radius * 2, radius * 2).withCentre(r.getCentre()));
        SkinArt::drawShadow(g, cap, s);
        SkinArt::drawKnobScale(g, r.getCentre(), radius + juce::jmax(3.0f, 4.0f * s), s);
        const float textHeight = size.text(captionText);
        const float top = r.getCentreY() + radius + juce::jmax(8.0f, 12.0f * s);
        SkinArt::drawCaption(g, c.caption, {r.getCentreX() - 50.0f, top, 100.0f, std::ceil(textHeight * 1.2f)}, fonts,
                             textHeight);
        break;
    }
    case Kind::toggle:
    case Kind::button:
    {
        juce::Path face;
        face.addRoundedRectangle(r, 3.0f);
        SkinArt::drawShadow(g, face, s);
        break;
    }
    case Kind::selector:
    {
        SkinArt::drawWell(g, r.expanded(2.0f), 4.0f, juce::Colour(SkinArt::Colours::well));
        if (c.caption.isNotEmpty())
        {
            // Above the selector, but under one that hangs below a link button.
            const float textHeight = size.text(captionText);
            const float height = std::ceil(textHeight * 1.2f);
            const float top = c.anchor == Anchor::belowLinkRow ? r.getBottom() + 3.0f : r.getY() - 3.0f - height;
            SkinArt::drawCaption(g, c.caption, {r.getCentreX() - 50.0f, top, 100.0f, height}, fonts, textHeight);
        }
        break;
    }
    case Kind::meter:
    {
        SkinArt::drawWell(g, r.expanded(2.0f), 2.0f, juce::Colour(0xff0c0d0e));
        const float textHeight = size.text(scaleText);
        SkinArt::drawCaption(g, c.caption,
                             {r.getX() - 6.0f, r.getBottom() + 4.0f, r.getWidth() + 12.0f, textHeight * 1.2f}, fonts,
                             textHeight);
        if (c.name == "RightVUMeter")
        {
            // Frame i of the strip stands for (i / (frames - 1) - 0.8) x 30 dB.
            g.setFont(fonts.strong(textHeight));
            for (int db : {6, 0, -6, -12, -18, -24})
            {
                const float fraction = float(db) / 30.0f + 0.8f;
                const int y = juce::roundToInt(r.getBottom() - fraction * r.getHeight());
                g.setColour(db == 0 ? juce::Colour(SkinArt::Colours::accent) : juce::Colour(SkinArt::Colours::caption));
                g.fillRect(int(r.getRight()) + 3, y, juce::jmax(3, size.size(4.0f)), 1);
                g.drawText(db > 0 ? "+" + juce::String(db) : juce::String(db),
                           juce::Rectangle<float>(r.getRight() + 6.0f + float(size.size(4.0f)), float(y) - textHeight,
                                                  textHeight * 2.4f, textHeight * 2.0f),
                           juce::Justification::centredLeft, false);
            }
        }
        break;
    }
    case Kind::clock:
    {
        const auto window = r.expanded(float(size.size(6.0f)), float(size.size(3.0f)));
        SkinArt::drawWell(g, window, 3.0f, juce::Colour(SkinArt::Colours::well));
        const float textHeight = size.text(captionText);
        g.setFont(fonts.strong(textHeight, 0.06f));
        g.setColour(juce::Colour(SkinArt::Colours::caption));
        g.drawText(c.caption, window.withX(window.getX() - 120.0f).withWidth(120.0f - float(size.size(8.0f))),
                   juce::Justification::centredRight, false);
        g.setFont(fonts.strong(size.text(scaleText)));
        g.setColour(juce::Colour(SkinArt::Colours::muted));
        g.drawText("Hz", window.withX(window.getRight() + float(size.size(5.0f))).withWidth(30.0f),
                   juce::Justification::centredLeft, false);
        break;
    }
    case Kind::presetName:
        SkinArt::drawWell(g, r, 3.0f, juce::Colour(SkinArt::Colours::well));
        break;
    case Kind::logo:
        break;
    }
}

/** The link wire of a column: an engraved line from the left knob's caption to the link button
    and on to the right knob's dial. */
void drawWire(juce::Graphics& g, float bigX, juce::Point<int> origin, const SkinSize& size)
{
    const auto& layout = velmarin();
    const float radius = float(size.size(knobDiameter)) * 0.5f;
    const int x = size.x(bigX) - origin.x;
    const int captionBottom = size.y(layout.leftRow) + juce::roundToInt(radius + juce::jmax(8.0f, 12.0f * size.scale) +
                                                                        size.text(captionText) * 1.3f);
    const int toggleH = size.size(toggleHeight, 16);
    const int linkTop = size.y(layout.linkRow) - toggleH / 2;
    const int dialTop =
        size.y(layout.rightRow) -
        juce::roundToInt(radius + juce::jmax(3.0f, 4.0f * size.scale) + 6.0f * juce::jmax(0.8f, size.scale)) - 2;
    const auto line = [&](int from, int to)
    {
        if (to <= from)
            return;
        g.setColour(juce::Colours::black.withAlpha(0.55f));
        g.fillRect(x, from - origin.y, 1, to - from);
        g.setColour(juce::Colours::white.withAlpha(0.08f));
        g.fillRect(x + 1, from - origin.y, 1, to - from);
    };
    line(captionBottom + 2, linkTop - 3);
    line(linkTop + toggleH + 4, dialTop);
}

void drawFaceplate(juce::Graphics& g, const SkinSize& size, const SkinArt::Fonts& fonts)
{
    const auto& layout = velmarin();
    SkinArt::drawPlate(g, {0, 0, size.width, size.height}, size.y(layout.headerHeight), size.scale);
    for (const auto& section : layout.sections)
    {
        const auto area = juce::Rectangle<float>::leftTopRightBottom(
            float(size.x(section.area.getX())), float(size.y(section.area.getY())),
            float(size.x(section.area.getRight())), float(size.y(section.area.getBottom())));
        SkinArt::drawSection(g, area, section.title, fonts, size.text(titleText), size.scale);
    }
    const float screw = float(size.size(4.5f, 3));
    SkinArt::drawScrew(g, {float(size.x(12.0f)), float(size.y(layout.headerHeight * 0.5f))}, screw, 0.35f);
    SkinArt::drawScrew(g, {float(size.x(990.0f)), float(size.y(layout.headerHeight * 0.5f))}, screw, 1.1f);

    // The channel tags of the stereo rows.
    const float tagHeight = size.text(10.0f);
    const auto tag = [&](float row, const juce::String& text)
    {
        const auto area = juce::Rectangle<float>(float(size.size(28.0f, 22)), std::ceil(tagHeight * 1.45f))
                              .withCentre({float(size.x(layout.channelTagX)), float(size.y(row))});
        SkinArt::drawTag(g, area, text, fonts, tagHeight);
    };
    tag(layout.leftRow, "L/M");
    tag(layout.rightRow, "R/S");
}

juce::Image faceplateWith(const Geometry& geometry, Holder holder, const SkinArt::Fonts& fonts,
                          const juce::Image& plate)
{
    const auto& size = *geometry.size;
    const auto area = holder == Holder::main ? juce::Rectangle<int>(0, 0, size.width, size.height) : geometry.lfoPanel;
    auto image = plate.getClippedImage(area).createCopy();
    juce::Graphics g(image);
    for (const auto& wire : velmarin().wires)
        if (wire.holder == holder || (holder == Holder::main && wire.holder == Holder::lfoFree))
            drawWire(g, wire.x, area.getPosition(), size);
    for (const auto& p : geometry.placements)
        if (p.control->holder == holder || (holder == Holder::main && p.control->holder == Holder::lfoFree))
            decorate(g, p, area.getPosition(), size, fonts);
    return image;
}

juce::XmlElement* addControl(juce::XmlElement& controls, const Placement& p, const SkinSize& size,
                             const ParameterTable& parameters)
{
    const auto& c = *p.control;
    static const std::map<Kind, const char*> words{{Kind::knob, "Knob"},       {Kind::toggle, "ToggleButton"},
                                                   {Kind::selector, "Switch"}, {Kind::button, "Button"},
                                                   {Kind::logo, "Button"},     {Kind::meter, "Animation"},
                                                   {Kind::clock, "Display"},   {Kind::presetName, "TextInput"}};
    auto* e = controls.createNewChildElement(words.at(c.kind));
    e->setAttribute("name", c.name);
    if (c.kind == Kind::toggle)
        e->setAttribute("style", "2D");
    if (c.kind == Kind::selector)
    {
        e->setAttribute("style", "Vertical");
        e->setAttribute("thumb", pitchOf(size) / 2);
    }
    if (c.kind == Kind::clock)
    {
        e->setAttribute("readonly", "yes");
        e->setAttribute("caretColour", hex(SkinArt::Colours::accent));
        e->setAttribute("backgroundColour", "0");
    }
    if (c.kind == Kind::presetName)
    {
        e->setAttribute("editable", "no");
        e->setAttribute("justification", "center");
        e->setAttribute("textColour", hex(SkinArt::Colours::text));
        e->setAttribute("backgroundColour", "0");
        auto* font = e->createNewChildElement("font");
        font->setAttribute("name", typeface);
        font->setAttribute("style", "bold");
        font->setAttribute("height", size.text(nameText));
    }
    if (p.image.isNotEmpty())
    {
        auto* gfx = e->createNewChildElement("gfx");
        gfx->setAttribute("resource", p.image);
        if (c.kind == Kind::clock)
        {
            gfx->setAttribute("fontHeight", p.bounds.getHeight());
            gfx->setAttribute("firstASCII", " ");
        }
        else
            gfx->setAttribute("framesNum", p.frames);
    }
    auto* pos = e->createNewChildElement("pos");
    pos->setAttribute("left", p.bounds.getX());
    pos->setAttribute("top", p.bounds.getY());
    if (c.kind == Kind::clock || c.kind == Kind::presetName)
    {
        auto* sizeElement = e->createNewChildElement("size");
        sizeElement->setAttribute("width", p.bounds.getWidth());
        sizeElement->setAttribute("height", p.bounds.getHeight());
    }
    const juce::String parameterName = c.kind == Kind::presetName ? juce::String("Preset Name")
                                       : c.parameter >= 0         ? parameters[c.parameter].name
                                                                  : juce::String();
    if (parameterName.isNotEmpty())
    {
        auto* link = e->createNewChildElement("links")->createNewChildElement("link");
        link->setAttribute("as", "connectedTo");
        link->setAttribute("param", parameterName);
    }
    if (c.event.isNotEmpty())
    {
        auto* action = e->createNewChildElement("actions")->createNewChildElement("action");
        action->setAttribute("type", "onClick");
        action->setAttribute("event", c.event);
    }
    return e;
}

juce::String document(const Geometry& geometry, const ParameterTable& parameters)
{
    const auto& size = *geometry.size;
    juce::XmlElement root("PluginEditor");
    auto* fontList = root.createNewChildElement("Fonts");
    for (auto [file, style] : {std::pair{"DejaVuSans.ttf", "plain"}, std::pair{"DejaVuSans-Bold.ttf", "bold"}})
    {
        auto* font = fontList->createNewChildElement("font");
        font->setAttribute("typeface", typeface);
        font->setAttribute("file", file);
        font->setAttribute("style", style);
    }
    auto* panel = root.createNewChildElement("Panel");
    panel->setAttribute("name", "MainPanel");
    panel->createNewChildElement("gfx")->setAttribute("resource", "Background.png");
    auto* controls = panel->createNewChildElement("controls");
    for (const auto& p : geometry.placements)
        if (p.control->holder == Holder::main)
            addControl(*controls, p, size, parameters);

    for (auto [holder, name] : {std::pair{Holder::lfoFree, "LFOFreePanel"}, std::pair{Holder::lfoSync, "LFOSyncPanel"}})
    {
        auto* lfo = controls->createNewChildElement("Panel");
        lfo->setAttribute("name", name);
        lfo->createNewChildElement("gfx")->setAttribute("resource", juce::String(name) + ".png");
        auto* pos = lfo->createNewChildElement("pos");
        pos->setAttribute("left", geometry.lfoPanel.getX());
        pos->setAttribute("top", geometry.lfoPanel.getY());
        auto* inner = lfo->createNewChildElement("controls");
        for (const auto& p : geometry.placements)
            if (p.control->holder == holder)
                addControl(*inner, p, size, parameters);
    }
    juce::XmlElement::TextFormat format;
    format.lineWrapLength = 120;
    return root.toString(format);
}

/** The panel as it opens at the parameters' defaults, for the thumbnail. */
juce::Image composite(const Geometry& geometry, const std::map<juce::String, juce::Image>& images,
                      const ParameterTable& parameters)
{
    const auto& size = *geometry.size;
    juce::Image image(juce::Image::ARGB, size.width, size.height, true, juce::SoftwareImageType());
    juce::Graphics g(image);
    g.drawImageAt(images.at("Background.png"), 0, 0);
    const bool synced = parameters[VelmarinParameter::lfoSync].defaultValue() > 0.0f;
    g.drawImageAt(images.at(synced ? "LFOSyncPanel.png" : "LFOFreePanel.png"), geometry.lfoPanel.getX(),
                  geometry.lfoPanel.getY());
    for (const auto& p : geometry.placements)
    {
        if (p.image.isEmpty() || p.control->kind == Kind::clock || ! shownAtDefaults(p, parameters))
            continue;
        const auto& strip = images.at(p.image);
        const int frame = defaultFrame(p, parameters);
        const int h = p.absolute.getHeight();
        g.drawImage(strip, p.absolute.getX(), p.absolute.getY(), p.absolute.getWidth(), h, 0, frame * h,
                    p.absolute.getWidth(), h);
    }
    return image;
}
} // namespace

juce::MemoryBlock png(const juce::Image& image)
{
    juce::MemoryBlock bytes;
    juce::MemoryOutputStream out(bytes, false);
    juce::PNGImageFormat().writeImageToStream(image, out);
    out.flush();
    return bytes;
}

Files build(const SkinSize& size, const ParameterTable& parameters, const SkinArt::Fonts& fonts,
            const juce::File& fontFolder)
{
    const auto geometry = place(size, parameters, fonts);
    std::map<juce::String, juce::Image> images;
    for (const auto& p : geometry.placements)
        if (p.image.isNotEmpty() && images.count(p.image) == 0)
            images[p.image] = drawImage(p, size, parameters, fonts);

    juce::Image plate(juce::Image::ARGB, size.width, size.height, true, juce::SoftwareImageType());
    {
        juce::Graphics g(plate);
        drawFaceplate(g, size, fonts);
    }
    images["Background.png"] = faceplateWith(geometry, Holder::main, fonts, plate);
    images["LFOFreePanel.png"] = faceplateWith(geometry, Holder::lfoFree, fonts, plate);
    images["LFOSyncPanel.png"] = faceplateWith(geometry, Holder::lfoSync, fonts, plate);
    images["Thumbnail.png"] = composite(geometry, images, parameters)
                                  .rescaled(size.width / 4, size.height / 4, juce::Graphics::highResamplingQuality);

    Files files;
    for (const auto& [name, image] : images)
        files[name] = png(image);
    const auto text = document(geometry, parameters);
    files["skin.xml"] = juce::MemoryBlock(text.toRawUTF8(), text.getNumBytesAsUTF8());
    for (const char* name : {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf", "LICENSE-DejaVu.txt"})
        fontFolder.getChildFile(name).loadFileAsData(files[name]);
    return files;
}

std::optional<juce::MemoryBlock> package(const Files& files, const juce::String& skinName, juce::String& error)
{
    const auto scratch = juce::File::getSpecialLocation(juce::File::tempDirectory)
                             .getNonexistentChildFile("velmarin-skingen-" + juce::Uuid().toDashedString(), {}, false);
    std::optional<juce::MemoryBlock> result;
    if (! scratch.createDirectory())
        error = "cannot make the folder " + scratch.getFullPathName();
    else
    {
        bool written = true;
        for (const auto& [name, bytes] : files)
            written = written && scratch.getChildFile(name).replaceWithData(bytes.getData(), bytes.getSize());
        if (written)
            result = SkinPacker::pack(scratch, skinName, error);
        else
            error = "cannot write the skin's files into " + scratch.getFullPathName();
    }
    scratch.deleteRecursively();
    return result;
}
} // namespace SkinBuilder
