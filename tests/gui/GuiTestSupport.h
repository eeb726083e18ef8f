#pragma once

// Headless GUI testing: a stand-in for the editor that hosts dialogs, synthesised mouse events,
// and pictures of components painted into images. Nothing here needs a display.

#include "TestSupport.h"
#include "gui/widgets/DefaultLookAndFeel.h"
#include "gui/widgets/ModalComponent.h"

namespace guitest
{
/** What the editor is to its dialogs: the root that hosts their covers. */
class TestDesktop : public juce::Component, public ModalComponent::Desktop
{
public:
    TestDesktop() { setSize(800, 500); }
    juce::Rectangle<int> getDesktopArea() const override { return getLocalBounds(); }
};

/** A mouse event at a point of a component, as the mouse source would make it. */
inline juce::MouseEvent mouseAt(juce::Component& component, juce::Point<int> position, int clicks = 1)
{
    const auto now = juce::Time::getCurrentTime();
    return juce::MouseEvent(juce::Desktop::getInstance().getMainMouseSource(), position.toFloat(),
                            juce::ModifierKeys(juce::ModifierKeys::leftButtonModifier), 0.0f, 0.0f, 0.0f, 0.0f, 0.0f,
                            &component, &component, now, position.toFloat(), now, clicks, false);
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
