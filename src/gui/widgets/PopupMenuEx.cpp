#include "PopupMenuEx.h"

#include "ModalComponent.h"
#include "WidgetIcons.h"

namespace
{
juce::Font itemFont()
{
    return juce::Font(14.0f);
}

/** The component menus open in: the nearest dialog root among the anchor's parents, else the
    top-level component. */
juce::Component* menuRoot(juce::Component& anchor)
{
    juce::Component* root = anchor.getTopLevelComponent();
    for (auto* c = &anchor; c != nullptr; c = c->getParentComponent())
        if (dynamic_cast<ModalComponent::Desktop*>(c) != nullptr)
            root = c;
    return root;
}
} // namespace

PopupMenuEx::~PopupMenuEx()
{
    window.reset();
}

void PopupMenuEx::addItem(int id, const juce::String& text, bool enabled, bool ticked)
{
    items.push_back({id, text, enabled, ticked, false});
}

void PopupMenuEx::addSeparator()
{
    items.push_back({0, {}, false, false, true});
}

void PopupMenuEx::clear()
{
    items.clear();
}

int PopupMenuEx::getListHeight() const
{
    int height = 4;
    for (const auto& item : items)
        height += item.separator ? separatorHeight : itemHeight;
    return height;
}

int PopupMenuEx::getListWidth(const juce::Font& font) const
{
    float widest = 0.0f;
    for (const auto& item : items)
        widest = juce::jmax(widest, font.getStringWidthFloat(item.text));
    return int(std::ceil(widest)) + 2 * itemHeight + 8;
}

void PopupMenuEx::show(juce::Component& anchor)
{
    auto* root = menuRoot(anchor);
    window = std::make_unique<Window>(*this);
    root->addAndMakeVisible(*window);
    window->setBounds(root->getLocalBounds());
    window->toFront(false);

    const auto anchorArea = root->getLocalArea(&anchor, anchor.getLocalBounds());
    const int width = juce::jmin(root->getWidth(), juce::jmax(anchorArea.getWidth(), getListWidth(itemFont())));
    const int height = juce::jmin(root->getHeight(), getListHeight());
    int y = anchorArea.getBottom() + 1;
    if (y + height > root->getHeight() && anchorArea.getY() - height - 1 >= 0)
        y = anchorArea.getY() - height - 1;
    y = juce::jlimit(0, juce::jmax(0, root->getHeight() - height), y);
    const int x = juce::jlimit(0, juce::jmax(0, root->getWidth() - width), anchorArea.getX());
    window->getList().setBounds(x, y, width, height);
    window->getList().setHighlighted(-1);
    if (window->getList().isShowing())
        window->getList().grabKeyboardFocus();
}

void PopupMenuEx::close(int itemId)
{
    if (window == nullptr || ! window->isVisible())
        return;
    // The window stays until the next show or the menu's end: this may run inside its own event.
    window->setVisible(false);
    // Last first, so that a listener may leave during the call.
    for (int i = listeners.size(); --i >= 0;)
        if (i < listeners.size())
            listeners.getUnchecked(i)->popupMenuClosed(*this, itemId);
}

bool PopupMenuEx::isOpen() const
{
    return window != nullptr && window->isVisible();
}

PopupMenuEx::Window::Window(PopupMenuEx& m) : menu(m), list(m)
{
    setInterceptsMouseClicks(true, true);
    addAndMakeVisible(list);
    startTimer(100);
}

PopupMenuEx::Window::~Window()
{
    stopTimer();
}

void PopupMenuEx::Window::mouseDown(const juce::MouseEvent&)
{
    menu.close(0);
}

void PopupMenuEx::Window::timerCallback()
{
    if (! isShowing())
        return;
    const auto mouse = list.getMouseXYRelative();
    if (list.getLocalBounds().contains(mouse))
        list.setHighlighted(list.getItemIndexAt(mouse.y));
}

PopupMenuEx::PopupMenuComponent::PopupMenuComponent(PopupMenuEx& m) : menu(m)
{
    setWantsKeyboardFocus(true);
}

juce::Rectangle<int> PopupMenuEx::PopupMenuComponent::getItemArea(int index) const
{
    int y = 2;
    const auto& items = menu.getItems();
    for (int i = 0; i < int(items.size()); ++i)
    {
        const int h = items[size_t(i)].separator ? separatorHeight : itemHeight;
        if (i == index)
            return {0, y, getWidth(), h};
        y += h;
    }
    return {};
}

int PopupMenuEx::PopupMenuComponent::getItemIndexAt(int y) const
{
    const auto& items = menu.getItems();
    for (int i = 0; i < int(items.size()); ++i)
        if (const auto area = getItemArea(i); y >= area.getY() && y < area.getBottom())
            return items[size_t(i)].separator ? -1 : i;
    return -1;
}

void PopupMenuEx::PopupMenuComponent::setHighlighted(int index)
{
    if (index != highlighted)
    {
        highlighted = index;
        repaint();
    }
}

void PopupMenuEx::PopupMenuComponent::paint(juce::Graphics& g)
{
    const auto bounds = getLocalBounds().toFloat();
    g.setColour(findColour(juce::PopupMenu::backgroundColourId));
    g.fillRoundedRectangle(bounds, 3.0f);
    g.setColour(findColour(juce::ComboBox::outlineColourId));
    g.drawRoundedRectangle(bounds.reduced(0.5f), 3.0f, 1.0f);

    g.setFont(itemFont());
    const auto& items = menu.getItems();
    for (int i = 0; i < int(items.size()); ++i)
    {
        const auto& item = items[size_t(i)];
        const auto area = getItemArea(i);
        if (item.separator)
        {
            g.setColour(findColour(juce::ComboBox::outlineColourId));
            g.fillRect(area.getX() + 6, area.getCentreY(), area.getWidth() - 12, 1);
            continue;
        }
        const bool lit = i == highlighted && item.enabled;
        if (lit)
        {
            g.setColour(findColour(juce::PopupMenu::highlightedBackgroundColourId));
            g.fillRoundedRectangle(area.reduced(2, 0).toFloat(), 2.0f);
        }
        const auto colour = findColour(lit ? juce::PopupMenu::highlightedTextColourId : juce::PopupMenu::textColourId)
                                .withMultipliedAlpha(item.enabled ? 1.0f : 0.4f);
        if (item.ticked)
            if (auto tick = WidgetIcons::create(WidgetIcon::tick, colour))
                tick->drawWithin(g, area.withWidth(itemHeight).reduced(5).toFloat(), juce::RectanglePlacement::centred,
                                 1.0f);
        g.setColour(colour);
        g.drawText(item.text, area.withTrimmedLeft(itemHeight).withTrimmedRight(8), juce::Justification::centredLeft,
                   true);
    }
}

void PopupMenuEx::PopupMenuComponent::mouseMove(const juce::MouseEvent& event)
{
    setHighlighted(getItemIndexAt(event.y));
}

void PopupMenuEx::PopupMenuComponent::mouseExit(const juce::MouseEvent&)
{
    setHighlighted(-1);
}

void PopupMenuEx::PopupMenuComponent::mouseUp(const juce::MouseEvent& event)
{
    const int index = getItemIndexAt(event.y);
    if (index >= 0 && menu.getItems()[size_t(index)].enabled)
        menu.close(menu.getItems()[size_t(index)].id);
}

void PopupMenuEx::PopupMenuComponent::moveHighlight(int step)
{
    const auto& items = menu.getItems();
    const int count = int(items.size());
    int index = highlighted;
    for (int tries = 0; tries < count; ++tries)
    {
        index = index < 0 ? (step > 0 ? 0 : count - 1) : (index + step + count) % count;
        if (! items[size_t(index)].separator && items[size_t(index)].enabled)
        {
            setHighlighted(index);
            return;
        }
    }
}

bool PopupMenuEx::PopupMenuComponent::keyPressed(const juce::KeyPress& key)
{
    if (key == juce::KeyPress::downKey)
        moveHighlight(1);
    else if (key == juce::KeyPress::upKey)
        moveHighlight(-1);
    else if (key == juce::KeyPress::returnKey && highlighted >= 0)
        menu.close(menu.getItems()[size_t(highlighted)].id);
    else if (key == juce::KeyPress::escapeKey)
        menu.close(0);
    else
        return false;
    return true;
}
