#pragma once

#include "GUIController.h"
#include "SkinXml.h"

/** What image-based controls share: a filmstrip of frames stacked from top to bottom, the size of
    one frame, and the control's position in its panel. Thread: message thread. */
class BaseGFXController : public GUIController
{
public:
    /** Called when `width` or `height` took a new value. */
    virtual void sizeChanged() {}
    /** Called when `left` or `top` took a new value. */
    virtual void positionChanged() {}

    /** The controller's words, then the filmstrip (`gfx`: `resource`, `framesNum`), the size (`size`,
        used only without an image: the image decides) and the position (`pos`). A frame count
        below 1 counts as 1. */
    void load(const juce::XmlElement& element, SkinContext& skin) override;

    /** The largest size and position a skin can give a control, in pixels. */
    static constexpr int maximumExtent = SkinXml::maximumExtent;

    /** The frame of a value 0..1 in a strip of `count` frames: floor(v x (count - 1) + 0.5). */
    static int frameOf(double value, int count);

    /** The area of frame `frame` inside the image (0, frame x height, width, height). */
    juce::Rectangle<int> getFrameArea(int frame) const { return {0, frame * height, width, height}; }
    /** Draws a frame, held to the filmstrip's range, at the origin at its own size. Nothing without
        an image. */
    void drawFrame(juce::Graphics& g, int frame) const;

    const juce::Image& getImage() const noexcept { return image; }
    int getFrames() const noexcept { return frames; }
    int getFrameWidth() const noexcept { return width; }
    int getFrameHeight() const noexcept { return height; }
    int getLeft() const noexcept { return left; }
    int getTop() const noexcept { return top; }

protected:
    /** Takes a filmstrip of `frameCount` frames: one frame is the image's width by its height
        divided by the count (a count below 1 counts as 1). Calls sizeChanged on a change. */
    void setFilmstrip(const juce::Image& strip, int frameCount);
    /** Sets the frame size of a control without an image; calls sizeChanged on a change. */
    void setFrameSize(int newWidth, int newHeight);
    /** Takes `pos` and `size` as they stand (for buttons whose strip comes later). */
    void readPlacement(const juce::XmlElement& element);
    /** Sets the position; calls positionChanged on a change. */
    void setPosition(int newLeft, int newTop);

    juce::Image image;
    int frames = 0;
    int width = 0;
    int height = 0;
    int left = 0;
    int top = 0;
};
