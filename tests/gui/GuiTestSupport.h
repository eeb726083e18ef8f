#pragma once

// Headless GUI testing: a stand-in for the editor that hosts dialogs, synthesised mouse events,
// and pictures of components painted into images. Nothing here needs a display.

#include "TestSupport.h"
#include "gui/core/SkinContext.h"
#include "gui/widgets/DefaultLookAndFeel.h"
#include "gui/widgets/ModalComponent.h"
#include "io/XmlInput.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>

namespace guitest
{
/** Mouse buttons and keys held during a synthesised event. */
inline const juce::ModifierKeys left(juce::ModifierKeys::leftButtonModifier);
inline const juce::ModifierKeys altLeft(juce::ModifierKeys::leftButtonModifier | juce::ModifierKeys::altModifier);
inline const juce::ModifierKeys shiftLeft(juce::ModifierKeys::leftButtonModifier | juce::ModifierKeys::shiftModifier);
inline const juce::ModifierKeys right(juce::ModifierKeys::rightButtonModifier);

/** A skin document's element parsed as the panel builder parses it; a test fails on bad text. */
inline std::unique_ptr<juce::XmlElement> xml(const juce::String& text)
{
    auto element = XmlInput::parse(text);
    EXPECT_NE(element, nullptr) << text;
    return element;
}

/** What the editor is to its dialogs: the root that hosts their covers. */
class TestDesktop : public juce::Component, public ModalComponent::Desktop
{
public:
    TestDesktop() { setSize(800, 500); }
    juce::Rectangle<int> getDesktopArea() const override { return getLocalBounds(); }
};

/** A mouse event at a point of a component, as the mouse source would make it: pressed at
    `downAt` (the same point when not given), with the left button unless other keys are given. */
inline juce::MouseEvent mouseAt(juce::Component& component, juce::Point<int> position, int clicks = 1,
                                juce::ModifierKeys mods = juce::ModifierKeys(juce::ModifierKeys::leftButtonModifier),
                                std::optional<juce::Point<int>> downAt = std::nullopt)
{
    const auto now = juce::Time::getCurrentTime();
    return juce::MouseEvent(juce::Desktop::getInstance().getMainMouseSource(), position.toFloat(), mods, 0.0f, 0.0f,
                            0.0f, 0.0f, 0.0f, &component, &component, now, downAt.value_or(position).toFloat(), now,
                            clicks, false);
}

/** A press at `from`, a drag to `to` and a release there, with the given keys and buttons. */
inline void drag(juce::Component& component, juce::Point<int> from, juce::Point<int> to,
                 juce::ModifierKeys mods = juce::ModifierKeys(juce::ModifierKeys::leftButtonModifier))
{
    component.mouseDown(mouseAt(component, from, 1, mods));
    component.mouseDrag(mouseAt(component, (from + to) / 2, 1, mods, from));
    component.mouseDrag(mouseAt(component, to, 1, mods, from));
    component.mouseUp(mouseAt(component, to, 1, mods, from));
}

/** A skin made in the test: images by file name, and the plug-in its controls bind to. */
class TestSkinContext : public SkinContext
{
public:
    explicit TestSkinContext(BasePlugin* p = nullptr) : plugin(p) {}
    BasePlugin* getPlugin() const override { return plugin; }
    juce::Image getImage(const juce::String& fileName) override
    {
        const auto found = images.find(fileName);
        return found != images.end() ? found->second.createCopy() : juce::Image();
    }
    juce::Font getFont(const juce::String&, int) override { return {}; }

    std::map<juce::String, juce::Image> images;

private:
    BasePlugin* plugin;
};

inline juce::Colour frameColour(int frame)
{
    return juce::Colour(uint8_t(frame), uint8_t(255 - frame), uint8_t(128));
}

/** A filmstrip whose frame f is filled with the colour (f, 255 - f, 128), so a picture tells which
    frame a control shows. */
inline juce::Image strip(int width, int frameHeight, int frames)
{
    juce::Image image(juce::Image::ARGB, width, frameHeight * frames, true);
    juce::Graphics g(image);
    for (int f = 0; f < frames; ++f)
    {
        g.setColour(frameColour(f));
        g.fillRect(0, f * frameHeight, width, frameHeight);
    }
    return image;
}

/** The frame a picture of a control shows, read from its centre pixel; -1 for no frame colour. */
inline int shownFrame(juce::Component& component)
{
    const auto image = component.createComponentSnapshot(component.getLocalBounds(), true, 1.0f);
    const auto pixel = image.getPixelAt(image.getWidth() / 2, image.getHeight() / 2);
    if (pixel.getBlue() != 128 || int(pixel.getRed()) + int(pixel.getGreen()) != 255)
        return -1;
    return pixel.getRed();
}

/** A press and release at a point of a component. */
inline void click(juce::Component& component, juce::Point<int> position)
{
    component.mouseDown(mouseAt(component, position));
    component.mouseUp(mouseAt(component, position));
}

/** A button clicked as a user clicks it: the click arrives through the message loop. */
inline void click(juce::Button& button)
{
    button.triggerClick();
    testsupport::dispatchPendingMessages();
}

/** The component painted as it would show, with its children. */
inline juce::Image snapshot(juce::Component& component)
{
    return component.createComponentSnapshot(component.getLocalBounds(), true, 1.0f);
}

/** How many pixels of an image differ from its top-left pixel by more than a little. */
inline int pixelsUnlikeTheBackground(const juce::Image& image)
{
    const auto background = image.getPixelAt(0, 0);
    int count = 0;
    for (int y = 0; y < image.getHeight(); ++y)
        for (int x = 0; x < image.getWidth(); ++x)
        {
            const auto pixel = image.getPixelAt(x, y);
            if (std::abs(int(pixel.getRed()) - int(background.getRed())) +
                    std::abs(int(pixel.getGreen()) - int(background.getGreen())) +
                    std::abs(int(pixel.getBlue()) - int(background.getBlue())) >
                60)
                ++count;
        }
    return count;
}
} // namespace guitest
