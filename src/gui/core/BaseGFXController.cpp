#include "BaseGFXController.h"

#include "SkinContext.h"
#include "SkinXml.h"

void BaseGFXController::load(const juce::XmlElement& element, SkinContext& skin)
{
    GUIController::load(element, skin);
    frames = 1;
    if (auto* gfx = SkinXml::child(element, "gfx"))
        setFilmstrip(skin.getImage(gfx->getStringAttribute("resource")), SkinXml::integer(*gfx, "framesNum", 1));
    if (auto* size = SkinXml::child(element, "size"); size != nullptr && ! image.isValid())
        setFrameSize(SkinXml::integer(*size, "width", 0), SkinXml::integer(*size, "height", 0));
    if (auto* pos = SkinXml::child(element, "pos"))
        setPosition(SkinXml::integer(*pos, "left", 0), SkinXml::integer(*pos, "top", 0));
}

void BaseGFXController::readPlacement(const juce::XmlElement& element)
{
    const auto position = SkinXml::position(element);
    setPosition(position.x, position.y);
    if (SkinXml::child(element, "size") != nullptr)
    {
        const auto size = SkinXml::size(element, 0, 0);
        setFrameSize(size.x, size.y);
    }
}

int BaseGFXController::frameOf(double value, int count)
{
    if (count <= 1 || ! (value > 0.0))
        return 0;
    return juce::jmin(count - 1, int(std::floor(juce::jmin(1.0, value) * double(count - 1) + 0.5)));
}

void BaseGFXController::drawFrame(juce::Graphics& g, int frame) const
{
    if (! image.isValid() || width <= 0 || height <= 0)
        return;
    const auto area = getFrameArea(juce::jlimit(0, juce::jmax(0, frames - 1), frame));
    g.drawImage(image, 0, 0, width, height, area.getX(), area.getY(), area.getWidth(), area.getHeight());
}

void BaseGFXController::setFilmstrip(const juce::Image& strip, int frameCount)
{
    // A skin that says 0 frames (or fewer) means one: no division by a number a skin sets fails.
    frames = juce::jmax(1, frameCount);
    if (! strip.isValid())
        return;
    image = strip;
    setFrameSize(strip.getWidth(), strip.getHeight() / frames);
}

void BaseGFXController::setFrameSize(int newWidth, int newHeight)
{
    // Sizes and positions come from skins: held to what a screen can show, so that no skin can ask
    // for a component of gigapixels.
    newWidth = juce::jlimit(0, maximumExtent, newWidth);
    newHeight = juce::jlimit(0, maximumExtent, newHeight);
    if (newWidth == width && newHeight == height)
        return;
    width = newWidth;
    height = newHeight;
    sizeChanged();
}

void BaseGFXController::setPosition(int newLeft, int newTop)
{
    newLeft = juce::jlimit(-maximumExtent, maximumExtent, newLeft);
    newTop = juce::jlimit(-maximumExtent, maximumExtent, newTop);
    if (newLeft == left && newTop == top)
        return;
    left = newLeft;
    top = newTop;
    positionChanged();
}
