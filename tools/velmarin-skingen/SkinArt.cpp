#include "SkinArt.h"

namespace SkinArt
{
namespace
{
constexpr float pi = juce::MathConstants<float>::pi;
/** The pointer's travel: 7:30 to 4:30, clockwise from 12 o'clock. */
constexpr float startAngle = -0.75f * pi;
constexpr float endAngle = 0.75f * pi;

juce::Colour colour(juce::uint32 argb)
{
    return juce::Colour(argb);
}

juce::Point<float> onCircle(juce::Point<float> centre, float radius, float angle)
{
    return {centre.x + radius * std::sin(angle), centre.y - radius * std::cos(angle)};
}

/** A fixed pseudo-random value in 0..1 for an integer: the plate's grain, the same every run. */
float grain(int n)
{
    auto h = juce::uint32(n) * 2654435761u;
    h ^= h >> 15;
    h *= 2246822519u;
    h ^= h >> 13;
    return float(h & 0xffffu) / 65535.0f;
}

juce::Image frames(int width, int height, int count)
{
    return juce::Image(juce::Image::ARGB, width, height * count, true, juce::SoftwareImageType());
}

/** A raised face of a button, lit from the top left. */
void drawRaisedFace(juce::Graphics& g, juce::Rectangle<float> r, float corner, bool pressed)
{
    const auto top = pressed ? colour(0xff2a2d32) : colour(0xff4d525a);
    const auto bottom = pressed ? colour(0xff363a40) : colour(0xff2e3136);
    g.setGradientFill(juce::ColourGradient(top, r.getX(), r.getY(), bottom, r.getX(), r.getBottom(), false));
    g.fillRoundedRectangle(r, corner);
    // A lit upper edge and a dark rim.
    g.setColour(juce::Colours::white.withAlpha(pressed ? 0.03f : 0.14f));
    g.drawHorizontalLine(int(r.getY()) + 1, r.getX() + corner, r.getRight() - corner);
    g.setColour(colour(0xff111214));
    g.drawRoundedRectangle(r.reduced(0.5f), corner, 1.0f);
}

void drawArrow(juce::Graphics& g, juce::Rectangle<float> r, bool right, juce::Colour c)
{
    const float s = juce::jmin(r.getWidth(), r.getHeight()) * 0.3f;
    const auto centre = r.getCentre();
    juce::Path p;
    if (right)
        p.addTriangle(centre.x - s * 0.5f, centre.y - s * 0.8f, centre.x - s * 0.5f, centre.y + s * 0.8f,
                      centre.x + s * 0.7f, centre.y);
    else
        p.addTriangle(centre.x + s * 0.5f, centre.y - s * 0.8f, centre.x + s * 0.5f, centre.y + s * 0.8f,
                      centre.x - s * 0.7f, centre.y);
    g.setColour(c);
    g.fillPath(p);
}

/** A lamp: dark glass when off, amber with a halo when lit. */
void drawLamp(juce::Graphics& g, juce::Rectangle<float> r, bool lit)
{
    const float corner = juce::jmin(r.getWidth(), r.getHeight()) * 0.35f;
    if (lit)
    {
        const auto halo = r.expanded(r.getHeight() * 0.9f);
        g.setGradientFill(juce::ColourGradient(colour(Colours::accent).withAlpha(0.45f), r.getCentreX(), r.getCentreY(),
                                               colour(Colours::accent).withAlpha(0.0f), halo.getRight(), r.getCentreY(),
                                               true));
        g.fillEllipse(halo);
        g.setGradientFill(juce::ColourGradient(colour(0xffffe0a8), r.getX(), r.getY(), colour(Colours::accent),
                                               r.getCentreX(), r.getBottom(), false));
    }
    else
    {
        g.setGradientFill(juce::ColourGradient(colour(0xff201c17), r.getX(), r.getY(), colour(Colours::ledOff),
                                               r.getRight(), r.getBottom(), false));
    }
    g.fillRoundedRectangle(r, corner);
    g.setColour(juce::Colours::black.withAlpha(lit ? 0.35f : 0.7f));
    g.drawRoundedRectangle(r, corner, 1.0f);
}
} // namespace

Fonts::Fonts(const juce::File& folder)
{
    if (folder.getChildFile("DejaVuSans.ttf").loadFileAsData(regularBytes) && regularBytes.getSize() > 0)
        regular = juce::Typeface::createSystemTypefaceFor(regularBytes.getData(), regularBytes.getSize());
    if (folder.getChildFile("DejaVuSans-Bold.ttf").loadFileAsData(boldBytes) && boldBytes.getSize() > 0)
        bold = juce::Typeface::createSystemTypefaceFor(boldBytes.getData(), boldBytes.getSize());
}

juce::Font Fonts::plain(float height) const
{
    return juce::Font(regular).withHeight(height);
}

juce::Font Fonts::strong(float height, float kerning) const
{
    return juce::Font(bold).withHeight(height).withExtraKerningFactor(kerning);
}

int knobFrameSize(int diameter)
{
    return diameter + 2 * juce::jmax(4, diameter / 8);
}

juce::Image knobStrip(int diameter, int frameCount, bool linked)
{
    const int size = knobFrameSize(diameter);
    const float c = float(size) * 0.5f;
    const juce::Point<float> centre(c, c);
    const float outer = float(diameter) * 0.5f;
    const float face = outer * 0.74f;

    // The cap is the same in every frame: its light does not turn with it.
    juce::Image cap(juce::Image::ARGB, size, size, true, juce::SoftwareImageType());
    {
        juce::Graphics g(cap);
        const auto skirt = juce::Rectangle<float>(outer * 2, outer * 2).withCentre(centre);
        g.setGradientFill(juce::ColourGradient(colour(0xff4a4f57), skirt.getX(), skirt.getY(), colour(0xff131416),
                                               skirt.getRight(), skirt.getBottom(), false));
        g.fillEllipse(skirt);
        // Knurling around the skirt.
        const int grooves = 60;
        for (int i = 0; i < grooves; ++i)
        {
            const float a = 2.0f * pi * float(i) / float(grooves);
            const float light = 0.5f + 0.5f * std::cos(a + 0.25f * pi);
            g.setColour(juce::Colours::black.withAlpha(0.35f + 0.2f * (1.0f - light)));
            g.drawLine(juce::Line<float>(onCircle(centre, face + 1.0f, a), onCircle(centre, outer - 0.8f, a)), 0.7f);
        }
        g.setColour(colour(0xff0d0e10));
        g.drawEllipse(skirt.reduced(0.5f), 1.0f);

        // The machined top: a dark-to-light slope, and the sheen of fine turning that catches the
        // light on two opposite sides.
        const auto top = juce::Rectangle<float>(face * 2, face * 2).withCentre(centre);
        g.setGradientFill(juce::ColourGradient(colour(0xff8a9099), top.getX(), top.getY(), colour(0xff33373d),
                                               top.getRight(), top.getBottom(), false));
        g.fillEllipse(top);
        const int wedges = 90;
        for (int i = 0; i < wedges; ++i)
        {
            const float a0 = 2.0f * pi * float(i) / float(wedges);
            const float a1 = a0 + 2.0f * pi / float(wedges) + 0.01f;
            const float sheen = std::pow(std::abs(std::cos(a0 + pi / float(wedges) + 0.25f * pi)), 6.0f);
            juce::Path wedge;
            wedge.addPieSegment(top, a0, a1, 0.0f);
            g.setColour(juce::Colours::white.withAlpha(0.16f * sheen));
            g.fillPath(wedge);
        }
        for (float r = face * 0.2f; r < face; r += juce::jmax(1.5f, face / 9.0f))
        {
            g.setColour(juce::Colours::black.withAlpha(0.05f));
            g.drawEllipse(juce::Rectangle<float>(r * 2, r * 2).withCentre(centre), 0.6f);
        }
        // The rim of the top: lit at the upper left, in shade at the lower right.
        juce::Path rimLight, rimShade;
        rimLight.addCentredArc(c, c, face - 0.5f, face - 0.5f, 0.0f, -0.75f * pi, 0.25f * pi, true);
        rimShade.addCentredArc(c, c, face - 0.5f, face - 0.5f, 0.0f, 0.25f * pi, 1.25f * pi, true);
        g.setColour(juce::Colours::white.withAlpha(0.35f));
        g.strokePath(rimLight, juce::PathStrokeType(1.0f));
        g.setColour(juce::Colours::black.withAlpha(0.45f));
        g.strokePath(rimShade, juce::PathStrokeType(1.0f));

        if (linked)
        {
            g.setColour(colour(Colours::accent).withAlpha(0.9f));
            g.drawEllipse(juce::Rectangle<float>(outer * 2 + 5.0f, outer * 2 + 5.0f).withCentre(centre), 1.5f);
        }
    }

    auto strip = frames(size, size, frameCount);
    juce::Graphics g(strip);
    const auto pointerColour = linked ? colour(Colours::accent) : colour(0xfff2efe8);
    const float pointerWidth = juce::jmax(2.0f, float(diameter) * 0.065f);
    for (int f = 0; f < frameCount; ++f)
    {
        const float y = float(f * size);
        g.drawImageAt(cap, 0, f * size);
        const float v = frameCount > 1 ? float(f) / float(frameCount - 1) : 0.0f;
        const float angle = startAngle + v * (endAngle - startAngle);
        const auto from = onCircle(centre, face * 0.3f, angle).translated(0.0f, y);
        const auto to = onCircle(centre, outer - 1.5f, angle).translated(0.0f, y);
        // A groove under the pointer, then the inlay.
        g.setColour(juce::Colours::black.withAlpha(0.5f));
        g.drawLine(juce::Line<float>(from, to).withShortenedStart(-0.5f), pointerWidth + 1.2f);
        g.setColour(pointerColour);
        g.drawLine(juce::Line<float>(from, to), pointerWidth);
    }
    return strip;
}

namespace
{
/** The lamp of an on/off button of that height, in the frame's coordinates. */
juce::Rectangle<float> toggleLamp(int height)
{
    const float h = float(height);
    return {std::round(h * 0.32f), std::round(h * 0.5f - juce::jmax(4.0f, std::round(h * 0.26f)) * 0.5f),
            std::round(h * 0.46f), juce::jmax(4.0f, std::round(h * 0.26f))};
}

float toggleTextLeft(int height)
{
    const auto lamp = toggleLamp(height);
    return lamp.getRight() + std::round(float(height) * 0.22f);
}
} // namespace

int toggleWidthFor(const juce::String& word, const Fonts& fonts, float textHeight, int height)
{
    const float text = fonts.strong(textHeight, 0.04f).getStringWidthFloat(word);
    return int(std::ceil(toggleTextLeft(height) + text + float(height) * 0.4f));
}

juce::Image toggleStrip(int width, int height, const juce::String& word, const Fonts& fonts, float textHeight)
{
    auto strip = frames(width, height, 2);
    juce::Graphics g(strip);
    for (int f = 0; f < 2; ++f)
    {
        const bool lit = f == 1;
        const auto r = juce::Rectangle<float>(0.0f, float(f * height), float(width), float(height));
        drawRaisedFace(g, r, 3.0f, false);
        drawLamp(g, toggleLamp(height).translated(0.0f, r.getY()), lit);
        g.setFont(fonts.strong(textHeight, 0.04f));
        g.setColour(lit ? colour(Colours::accentLight) : colour(Colours::caption));
        g.drawText(word, r.withTrimmedLeft(toggleTextLeft(height)).withTrimmedRight(float(height) * 0.25f),
                   juce::Justification::centred, false);
    }
    return strip;
}

int selectorWidth(const juce::StringArray& items, const Fonts& fonts, float textHeight, int pitch)
{
    float widest = 0.0f;
    for (const auto& item : items)
        widest = juce::jmax(widest, fonts.strong(textHeight).getStringWidthFloat(item));
    return int(std::ceil(widest)) + pitch + juce::roundToInt(float(pitch) * 0.9f);
}

juce::Image selectorStrip(const juce::StringArray& items, int width, int pitch, const Fonts& fonts, float textHeight,
                          bool linked)
{
    const int count = items.size();
    const int height = count * pitch;
    auto strip = frames(width, height, count);
    juce::Graphics g(strip);
    for (int f = 0; f < count; ++f)
    {
        const auto frame = juce::Rectangle<float>(0.0f, float(f * height), float(width), float(height));
        g.setColour(colour(Colours::well));
        g.fillRoundedRectangle(frame, 3.0f);
        for (int row = 0; row < count; ++row)
        {
            const int item = count - 1 - row; // the last item on top, as a vertical slider reads
            const bool lit = item == f;
            const auto cell =
                juce::Rectangle<float>(frame.getX(), frame.getY() + float(row * pitch), frame.getWidth(), float(pitch));
            const float lampHeight = juce::jmax(3.0f, std::round(float(pitch) * 0.3f));
            const auto lamp = juce::Rectangle<float>(std::round(float(pitch) * 0.6f), lampHeight)
                                  .withPosition(cell.getX() + std::round(float(pitch) * 0.35f),
                                                std::round(cell.getCentreY() - lampHeight * 0.5f));
            drawLamp(g, lamp, lit);
            g.setFont(fonts.strong(textHeight));
            g.setColour(lit ? colour(Colours::accentLight) : colour(Colours::muted));
            g.drawText(items[item], cell.withTrimmedLeft(lamp.getRight() - cell.getX() + float(pitch) * 0.3f),
                       juce::Justification::centredLeft, false);
        }
        g.setColour(linked ? colour(Colours::accent) : juce::Colours::black.withAlpha(0.6f));
        g.drawRoundedRectangle(frame.reduced(0.5f), 3.0f, 1.0f);
    }
    return strip;
}

juce::Image buttonStrip(int width, int height, const juce::String& word, const Fonts& fonts, float textHeight)
{
    auto strip = frames(width, height, 2);
    juce::Graphics g(strip);
    for (int f = 0; f < 2; ++f)
    {
        const bool down = f == 1;
        const auto r = juce::Rectangle<float>(0.0f, float(f * height), float(width), float(height));
        drawRaisedFace(g, r, 3.0f, down);
        const auto content = r.translated(down ? 1.0f : 0.0f, down ? 1.0f : 0.0f);
        const auto ink = down ? colour(Colours::accentLight) : colour(Colours::text);
        if (word == "<" || word == ">")
            drawArrow(g, content, word == ">", ink);
        else
        {
            g.setFont(fonts.strong(textHeight, 0.06f));
            g.setColour(ink);
            g.drawText(word, content, juce::Justification::centred, false);
        }
    }
    return strip;
}

void drawEmblem(juce::Graphics& g, juce::Rectangle<float> area, juce::Colour ring, juce::Colour trace,
                float strokeWidth)
{
    const auto circle = area.reduced(strokeWidth * 0.5f);
    g.setColour(ring);
    g.drawEllipse(circle, strokeWidth);
    // Two waves, one delayed against the other: the sweep of a stereo flanger.
    const auto box = circle.reduced(circle.getWidth() * 0.17f, circle.getHeight() * 0.3f);
    const auto wave = [&](float phase)
    {
        juce::Path p;
        const int steps = 96;
        for (int i = 0; i <= steps; ++i)
        {
            const float t = float(i) / float(steps);
            const float envelope = std::sin(pi * t);
            const float v = envelope * std::sin(2.0f * pi * (1.5f * t) + phase);
            const juce::Point<float> point(box.getX() + t * box.getWidth(),
                                           box.getCentreY() - v * box.getHeight() * 0.5f);
            if (i == 0)
                p.startNewSubPath(point);
            else
                p.lineTo(point);
        }
        return p;
    };
    const juce::PathStrokeType stroke(strokeWidth, juce::PathStrokeType::curved, juce::PathStrokeType::rounded);
    g.setColour(ring.withAlpha(0.85f));
    g.strokePath(wave(0.9f), stroke);
    g.setColour(trace);
    g.strokePath(wave(0.0f), stroke);
}

juce::Image logoButtonStrip(int width, int height, const Fonts& fonts, float scale)
{
    auto strip = frames(width, height, 2);
    juce::Graphics g(strip);
    for (int f = 0; f < 2; ++f)
    {
        const bool down = f == 1;
        auto r = juce::Rectangle<float>(0.0f, float(f * height), float(width), float(height));
        if (down)
            r = r.translated(1.0f, 1.0f);
        const float emblemSize = std::round(float(height) * 0.82f);
        const auto emblem = juce::Rectangle<float>(emblemSize, emblemSize)
                                .withCentre({r.getX() + emblemSize * 0.5f + 1.0f, r.getCentreY()});
        drawEmblem(g, emblem, colour(Colours::accent), down ? colour(Colours::accentLight) : colour(Colours::text),
                   juce::jmax(1.5f, 2.2f * scale));
        auto text = r.withTrimmedLeft(emblem.getRight() - r.getX() + 8.0f * scale);
        const float nameHeight = std::round(float(height) * 0.52f);
        g.setFont(fonts.strong(nameHeight, 0.14f));
        g.setColour(down ? colour(Colours::accentLight) : colour(Colours::text));
        g.drawText("VELMARIN", text.removeFromTop(float(height) * 0.62f), juce::Justification::bottomLeft, false);
        g.setFont(fonts.plain(juce::jmax(9.0f, std::round(float(height) * 0.26f))).withExtraKerningFactor(0.08f));
        g.setColour(colour(Colours::accent));
        g.drawText("BBD STEREO FLANGER", text, juce::Justification::topLeft, false);
    }
    return strip;
}

juce::Image meterStrip(int width, int height, int frameCount, float segmentPitch)
{
    auto strip = frames(width, height, frameCount);
    juce::Graphics g(strip);
    const int segments = int(float(height) / segmentPitch);
    const float gap = segmentPitch >= 4.0f ? 1.0f : 1.0f;
    for (int f = 0; f < frameCount; ++f)
    {
        const float top = float(f * height);
        g.setColour(colour(0xff0c0d0e));
        g.fillRect(0.0f, top, float(width), float(height));
        const float level = float(f) / float(frameCount - 1) * float(height);
        for (int s = 0; s < segments; ++s)
        {
            const float bottom = float(height) - float(s) * segmentPitch;
            const auto segment = juce::Rectangle<float>(1.0f, top + bottom - segmentPitch + gap, float(width) - 2.0f,
                                                        segmentPitch - gap);
            const float middle = (float(s) + 0.5f) * segmentPitch;
            const bool lit = f > 0 && middle <= level + 0.5f * segmentPitch;
            // Above 0 dB (80 % of the height) the segments are amber.
            const bool hot = middle > 0.8f * float(height);
            if (lit)
                g.setColour(hot ? colour(Colours::accent) : colour(0xffe6e0d2));
            else
                g.setColour(hot ? colour(0xff3a2f1e) : colour(0xff26282c));
            g.fillRect(segment);
        }
    }
    return strip;
}

namespace
{
/** One glyph of the read-out, laid out in its cell as centred text. */
juce::GlyphArrangement glyphIn(juce::juce_wchar character, const juce::Font& font, juce::Rectangle<float> cell)
{
    juce::GlyphArrangement glyph;
    glyph.addLineOfText(font, juce::String::charToString(character), 0.0f, 0.0f);
    glyph.justifyGlyphs(0, glyph.getNumGlyphs(), cell.getX(), cell.getY(), cell.getWidth(), cell.getHeight(),
                        juce::Justification::centred);
    return glyph;
}

/** The pixels a glyph inks, drawn as `glyphIn` lays it out in a cell at the origin; empty for a
    blank glyph. Measured on the rendered pixels, since the renderer hints small glyphs vertically. */
juce::Rectangle<int> inkOf(juce::juce_wchar character, const juce::Font& font, int cellWidth, int cellHeight)
{
    // Room for a cell's size of overflow on every side.
    juce::Image scratch(juce::Image::ARGB, cellWidth * 3, cellHeight * 3, true, juce::SoftwareImageType());
    {
        juce::Graphics g(scratch);
        g.setColour(juce::Colours::white);
        glyphIn(character, font,
                juce::Rectangle<float>(float(cellWidth), float(cellHeight), float(cellWidth), float(cellHeight))
                    .translated(0.0f, 0.5f))
            .draw(g);
    }
    const juce::Image::BitmapData pixels(scratch, juce::Image::BitmapData::readOnly);
    juce::Rectangle<int> ink;
    for (int y = 0; y < scratch.getHeight(); ++y)
        for (int x = 0; x < scratch.getWidth(); ++x)
            if (pixels.getPixelColour(x, y).getAlpha() > 0)
                ink = ink.isEmpty() ? juce::Rectangle<int>(x, y, 1, 1) : ink.getUnion({x, y, 1, 1});
    return ink - juce::Point<int>(cellWidth, cellHeight);
}

/** How one glyph is drawn: its font, and an offset from where centred text would put it. */
struct GlyphFit
{
    juce::Font font;
    juce::Point<int> offset;
};

/** A glyph kept inside its cell with a clear column at either side, so that no glyph runs into its
    neighbour on the read-out nor spills into the cells above and below it in the strip. A glyph
    that fits keeps its place; a wide one ("W", "@", "%") is condensed and centred on its ink, and
    one that reaches past the top or bottom is moved in. */
GlyphFit fitGlyph(juce::juce_wchar character, const juce::Font& font, int cellWidth, int cellHeight)
{
    GlyphFit fit{font, {}};
    const int room = cellWidth - 2;
    auto ink = inkOf(character, font, cellWidth, cellHeight);
    if (ink.isEmpty())
        return fit;
    if (ink.getX() < 1 || ink.getRight() > cellWidth - 1)
    {
        for (int step = 0; ink.getWidth() > room && step < 64; ++step)
        {
            const float squeeze = juce::jmin(0.97f, float(room) / float(ink.getWidth()));
            fit.font = fit.font.withHorizontalScale(fit.font.getHorizontalScale() * squeeze);
            ink = inkOf(character, fit.font, cellWidth, cellHeight);
        }
        fit.offset.x = (cellWidth - ink.getWidth()) / 2 - ink.getX();
    }
    if (ink.getY() < 0)
        fit.offset.y = -ink.getY();
    else if (ink.getBottom() > cellHeight)
        fit.offset.y = cellHeight - ink.getBottom();
    return fit;
}
} // namespace

juce::Image glyphStrip(int cellWidth, int cellHeight, juce::juce_wchar first, juce::juce_wchar last, const Fonts& fonts)
{
    const int count = int(last - first) + 1;
    juce::Image strip(juce::Image::ARGB, cellWidth, cellHeight * count * 2, true, juce::SoftwareImageType());
    juce::Graphics g(strip);
    const auto font = fonts.strong(float(cellHeight) * 1.0f).withHorizontalScale(0.82f);
    std::vector<GlyphFit> fits;
    for (int i = 0; i < count; ++i)
        fits.push_back(fitGlyph(juce::juce_wchar(first + i), font, cellWidth, cellHeight));
    for (int bank = 0; bank < 2; ++bank)
        for (int i = 0; i < count; ++i)
        {
            const auto cell = juce::Rectangle<int>(0, (bank * count + i) * cellHeight, cellWidth, cellHeight);
            if (bank == 1)
            {
                g.setColour(colour(Colours::accent));
                g.fillRect(cell);
            }
            const juce::Graphics::ScopedSaveState state(g);
            g.reduceClipRegion(cell);
            g.setColour(bank == 1 ? colour(Colours::well) : colour(Colours::accent));
            glyphIn(juce::juce_wchar(first + i), fits[size_t(i)].font,
                    (cell + fits[size_t(i)].offset).toFloat().translated(0.0f, 0.5f))
                .draw(g);
        }
    return strip;
}

juce::Image q41Logo(const Fonts& fonts)
{
    juce::Image image(juce::Image::ARGB, 240, 72, true, juce::SoftwareImageType());
    juce::Graphics g(image);
    const auto badge = juce::Rectangle<float>(4.0f, 4.0f, 64.0f, 64.0f);
    g.setColour(colour(Colours::accent));
    g.fillRoundedRectangle(badge, 12.0f);
    g.setColour(colour(Colours::well));
    g.setFont(fonts.strong(30.0f, 0.02f));
    g.drawText("Q41", badge.translated(0.0f, 1.0f), juce::Justification::centred, false);
    g.setColour(colour(Colours::text));
    g.setFont(fonts.strong(26.0f, 0.12f));
    g.drawText("Q41", juce::Rectangle<float>(82.0f, 8.0f, 156.0f, 30.0f), juce::Justification::bottomLeft, false);
    g.setColour(colour(Colours::muted));
    g.setFont(fonts.plain(16.0f).withExtraKerningFactor(0.3f));
    g.drawText("GROUP", juce::Rectangle<float>(83.0f, 40.0f, 156.0f, 24.0f), juce::Justification::topLeft, false);
    return image;
}

juce::Image pluginLogo(const Fonts& fonts)
{
    juce::Image image(juce::Image::ARGB, 440, 104, true, juce::SoftwareImageType());
    juce::Graphics g(image);
    drawEmblem(g, {6.0f, 10.0f, 84.0f, 84.0f}, colour(Colours::accent), colour(Colours::text), 4.0f);
    g.setColour(colour(Colours::text));
    g.setFont(fonts.strong(46.0f, 0.12f));
    g.drawText("VELMARIN", juce::Rectangle<float>(106.0f, 6.0f, 334.0f, 56.0f), juce::Justification::bottomLeft, false);
    g.setColour(colour(Colours::accent));
    g.setFont(fonts.plain(15.0f).withExtraKerningFactor(0.16f));
    g.drawText("ANALOG BBD STEREO FLANGER", juce::Rectangle<float>(108.0f, 64.0f, 332.0f, 24.0f),
               juce::Justification::topLeft, false);
    return image;
}

void drawPlate(juce::Graphics& g, juce::Rectangle<int> area, int headerHeight, float scale)
{
    const auto r = area.toFloat();
    g.setGradientFill(juce::ColourGradient(colour(0xff33373d), r.getX(), r.getY(), colour(0xff24272b), r.getRight(),
                                           r.getBottom(), false));
    g.fillRect(area);
    // Brushed grain, along the width.
    for (int y = area.getY(); y < area.getBottom(); ++y)
    {
        const float v = grain(y);
        g.setColour(
            (v > 0.5f ? juce::Colours::white : juce::Colours::black).withAlpha(0.025f * std::abs(v - 0.5f) * 2.0f));
        g.fillRect(area.getX(), y, area.getWidth(), 1);
    }
    // The header: a darker strip with an edge that catches the light below it.
    const auto header = area.withHeight(headerHeight);
    g.setGradientFill(juce::ColourGradient(colour(0xff24262a), 0.0f, float(header.getY()), colour(Colours::header),
                                           0.0f, float(header.getBottom()), false));
    g.fillRect(header);
    g.setColour(juce::Colours::black.withAlpha(0.8f));
    g.fillRect(header.getX(), header.getBottom() - 1, header.getWidth(), 1);
    g.setColour(juce::Colours::white.withAlpha(0.08f));
    g.fillRect(header.getX(), header.getBottom(), header.getWidth(), 1);
    juce::ignoreUnused(scale);
}

void drawSection(juce::Graphics& g, juce::Rectangle<float> area, const juce::String& title, const Fonts& fonts,
                 float titleHeight, float scale)
{
    const auto r = area.toNearestInt().toFloat();
    const float corner = juce::jmax(3.0f, 6.0f * scale);
    juce::Path shape;
    shape.addRoundedRectangle(r, corner);
    drawShadow(g, shape, scale);
    g.setGradientFill(juce::ColourGradient(colour(Colours::plateLight), r.getX(), r.getY(), colour(Colours::plate),
                                           r.getX() + r.getWidth() * 0.3f, r.getBottom(), false));
    g.fillPath(shape);
    g.setColour(colour(0xff15171a));
    g.drawRoundedRectangle(r.reduced(0.5f), corner, 1.0f);
    g.setColour(juce::Colours::white.withAlpha(0.09f));
    g.drawHorizontalLine(int(r.getY()) + 1, r.getX() + corner, r.getRight() - corner);
    g.drawVerticalLine(int(r.getX()) + 1, r.getY() + corner, r.getBottom() - corner);

    // The title, and an engraved rule under it.
    const float band = std::round(titleHeight * 1.9f);
    g.setColour(colour(Colours::accent));
    g.setFont(fonts.strong(titleHeight, 0.12f));
    g.drawText(title, r.withHeight(band).withTrimmedLeft(std::round(10.0f * scale)), juce::Justification::centredLeft,
               false);
    const int ruleY = int(r.getY() + band);
    g.setColour(juce::Colours::black.withAlpha(0.45f));
    g.fillRect(int(r.getX()) + 6, ruleY, int(r.getWidth()) - 12, 1);
    g.setColour(juce::Colours::white.withAlpha(0.07f));
    g.fillRect(int(r.getX()) + 6, ruleY + 1, int(r.getWidth()) - 12, 1);
}

void drawScrew(juce::Graphics& g, juce::Point<float> centre, float radius, float angle)
{
    const auto head = juce::Rectangle<float>(radius * 2, radius * 2).withCentre(centre);
    g.setColour(juce::Colours::black.withAlpha(0.6f));
    g.fillEllipse(head.expanded(1.0f).translated(0.5f, 0.8f));
    g.setGradientFill(juce::ColourGradient(colour(0xff9aa0a8), head.getX(), head.getY(), colour(0xff3b3f45),
                                           head.getRight(), head.getBottom(), false));
    g.fillEllipse(head);
    g.setColour(colour(0xff17181a));
    for (float a : {angle, angle + 0.5f * pi})
        g.drawLine(juce::Line<float>(onCircle(centre, radius * 0.7f, a), onCircle(centre, radius * 0.7f, a + pi)),
                   juce::jmax(1.0f, radius * 0.3f));
}

void drawWell(juce::Graphics& g, juce::Rectangle<float> area, float corner, juce::Colour fill)
{
    const auto r = area.toNearestInt().toFloat();
    g.setColour(fill);
    g.fillRoundedRectangle(r, corner);
    g.setGradientFill(juce::ColourGradient(juce::Colours::black.withAlpha(0.8f), r.getX(), r.getY(),
                                           juce::Colours::white.withAlpha(0.14f), r.getRight(), r.getBottom(), false));
    g.drawRoundedRectangle(r.reduced(0.5f), corner, 1.0f);
}

void drawShadow(juce::Graphics& g, const juce::Path& shape, float scale)
{
    juce::DropShadow(juce::Colours::black.withAlpha(0.55f), juce::jmax(3, juce::roundToInt(7.0f * scale)),
                     {juce::jmax(1, juce::roundToInt(2.0f * scale)), juce::jmax(1, juce::roundToInt(3.0f * scale))})
        .drawForPath(g, shape);
}

void drawKnobScale(juce::Graphics& g, juce::Point<float> centre, float innerRadius, float scale)
{
    const int ticks = 11;
    for (int i = 0; i < ticks; ++i)
    {
        const float angle = startAngle + (endAngle - startAngle) * float(i) / float(ticks - 1);
        const bool major = i == 0 || i == ticks - 1 || i == ticks / 2;
        const float length = (major ? 6.0f : 3.5f) * juce::jmax(0.8f, scale);
        g.setColour(major ? colour(Colours::caption) : colour(0xff8a8f96));
        g.drawLine(
            juce::Line<float>(onCircle(centre, innerRadius, angle), onCircle(centre, innerRadius + length, angle)),
            major ? 1.4f : 1.1f);
    }
}

void drawCaption(juce::Graphics& g, const juce::String& text, juce::Rectangle<float> area, const Fonts& fonts,
                 float height, juce::Colour c)
{
    g.setFont(fonts.strong(height, 0.06f));
    g.setColour(c);
    g.drawText(text, area, juce::Justification::centred, false);
}

void drawTag(juce::Graphics& g, juce::Rectangle<float> area, const juce::String& text, const Fonts& fonts, float height)
{
    const auto r = area.toNearestInt().toFloat();
    g.setColour(colour(Colours::accent).withAlpha(0.12f));
    g.fillRoundedRectangle(r, 3.0f);
    g.setColour(colour(Colours::accent).withAlpha(0.8f));
    g.drawRoundedRectangle(r.reduced(0.5f), 3.0f, 1.0f);
    g.setFont(fonts.strong(height, 0.04f));
    g.setColour(colour(Colours::accentLight));
    g.drawText(text, r, juce::Justification::centred, false);
}
} // namespace SkinArt
