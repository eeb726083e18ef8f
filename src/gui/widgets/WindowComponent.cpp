#include "WindowComponent.h"

#include "WidgetIcons.h"

WindowComponent::WindowComponent()
{
    addAndMakeVisible(closeButton);
    closeButton.addListener(this);
    closeButton.setWantsKeyboardFocus(false);
    lookAndFeelChanged();
}

WindowComponent::~WindowComponent()
{
    closeButton.removeListener(this);
}

void WindowComponent::setTitle(const juce::String& title)
{
    titleText = title;
    setName(title);
    repaint();
}

void WindowComponent::setIcon(juce::Drawable* icon)
{
    iconDrawable.reset(icon);
    repaint();
}

void WindowComponent::setTitleBarShown(bool shown)
{
    titleBarShown = shown;
    closeButton.setVisible(shown && closeButtonShown);
    resized();
}

void WindowComponent::setCloseButtonShown(bool shown)
{
    closeButtonShown = shown;
    closeButton.setVisible(shown && titleBarShown);
}

void WindowComponent::setContentSize(int width, int height)
{
    const int totalWidth = width + frame.left + frame.right + padding.left + padding.right;
    const int totalHeight =
        height + frame.top + frame.bottom + padding.top + padding.bottom + (titleBarShown ? titleBarHeight : 0);
    setSize(juce::jmax(minimumWidth, totalWidth), juce::jmax(minimumHeight, totalHeight));
}

juce::Rectangle<int> WindowComponent::getTitleBarBounds() const
{
    if (! titleBarShown)
        return {};
    return getLocalBounds()
        .withTrimmedTop(frame.top)
        .withTrimmedLeft(frame.left)
        .withTrimmedRight(frame.right)
        .withHeight(titleBarHeight);
}

juce::Rectangle<int> WindowComponent::getContentBounds() const
{
    auto area = getLocalBounds()
                    .withTrimmedTop(frame.top + (titleBarShown ? titleBarHeight : 0))
                    .withTrimmedLeft(frame.left)
                    .withTrimmedBottom(frame.bottom)
                    .withTrimmedRight(frame.right);
    return area.withTrimmedTop(padding.top)
        .withTrimmedLeft(padding.left)
        .withTrimmedBottom(padding.bottom)
        .withTrimmedRight(padding.right);
}

int WindowComponent::getTitleTextX() const
{
    const auto bar = getTitleBarBounds();
    return bar.getX() + (iconDrawable != nullptr ? titleBarHeight : 2 * iconGap);
}

void WindowComponent::paint(juce::Graphics& g)
{
    if (auto* methods = dynamic_cast<LookAndFeelMethods*>(&getLookAndFeel()))
        methods->drawWindowComponent(g, *this);
    else
        g.fillAll(findColour(juce::ResizableWindow::backgroundColourId));
}

void WindowComponent::resized()
{
    const auto bar = getTitleBarBounds();
    const int side = juce::jmin(titleBarHeight, 20);
    closeButton.setBounds(bar.getRight() - 1 - side, bar.getY() + (bar.getHeight() - side) / 2, side, side);
    closeButton.setVisible(titleBarShown && closeButtonShown);
}

void WindowComponent::lookAndFeelChanged()
{
    // The title font comes from the nearest look and feel that paints windows.
    for (juce::Component* c = this; c != nullptr; c = c->getParentComponent())
        if (auto* methods = dynamic_cast<LookAndFeelMethods*>(&c->getLookAndFeel()))
        {
            titleFont = methods->getWindowTitleFont();
            break;
        }
    const auto colour = findColour(juce::Label::textColourId);
    closeButton.setImages(WidgetIcons::create(WidgetIcon::close, colour.withAlpha(0.7f)).get(),
                          WidgetIcons::create(WidgetIcon::close, colour).get());
    repaint();
}

void WindowComponent::buttonClicked(juce::Button* button)
{
    if (button == &closeButton)
        hide();
}
