#include "BaseGFXController.h"

void BaseGFXController::drawFrame(juce::Graphics& g, int frame) const
{
    if (! image.isValid() || width <= 0 || height <= 0)
        return;
    const auto area = getFrameArea(juce::jlimit(0, juce::jmax(0, frames - 1), frame));
    g.drawImage(image, 0, 0, width, height, area.getX(), area.getY(), area.getWidth(), area.getHeight());
}

void BaseGFXController::setFilmstrip(const juce::Image& strip, int frameCount)
{
    frames = frameCount;
    if (! strip.isValid())
        return;
    image = strip;
    setFrameSize(strip.getWidth(), strip.getHeight() / juce::jmax(1, frameCount));
}

void BaseGFXController::setFrameSize(int newWidth, int newHeight)
{
    if (newWidth == width && newHeight == height)
        return;
    width = newWidth;
    height = newHeight;
    sizeChanged();
}

void BaseGFXController::setPosition(int newLeft, int newTop)
{
    if (newLeft == left && newTop == top)
        return;
    left = newLeft;
    top = newTop;
    positionChanged();
}
