#include "ModalComponent.h"

ModalComponent::CoveringWindow::CoveringWindow(ModalComponent& m) : modal(m)
{
    setInterceptsMouseClicks(true, true);
}

void ModalComponent::CoveringWindow::paint(juce::Graphics& g)
{
    if (modal.wantsCoveringPaint())
        g.fillAll(juce::Colours::white.withAlpha(0.25f));
}

void ModalComponent::CoveringWindow::resized()
{
    modal.place();
}

void ModalComponent::CoveringWindow::parentSizeChanged()
{
    if (auto* parent = getParentComponent())
        setBounds(parent->getLocalBounds());
}

ModalComponent::~ModalComponent()
{
    if (cover != nullptr)
    {
        cover->removeChildComponent(this);
        if (auto* parent = cover->getParentComponent())
            parent->removeChildComponent(cover.get());
    }
}

juce::Component* ModalComponent::findRoot()
{
    for (juce::Component* c = this; c != nullptr; c = c->getParentComponent())
        if (dynamic_cast<Desktop*>(c) != nullptr)
            return c;
    return nullptr;
}

juce::Rectangle<int> ModalComponent::rootArea() const
{
    if (auto* desktop = dynamic_cast<Desktop*>(root.getComponent()))
        return desktop->getDesktopArea();
    return {};
}

void ModalComponent::place()
{
    if (placement == centred)
    {
        const auto area = rootArea();
        setTopLeftPosition(area.getWidth() / 2 - getWidth() / 2, area.getHeight() / 2 - getHeight() / 2);
    }
    else
    {
        setTopLeftPosition(x, y);
    }
}

void ModalComponent::show()
{
    if (cover == nullptr)
    {
        if (auto* found = findRoot(); found != nullptr && found != this)
        {
            root = found;
            cover = std::make_unique<CoveringWindow>(*this);
            cover->setVisible(false);
            found->addChildComponent(cover.get());
            cover->setBounds(found->getLocalBounds());
            cover->addChildComponent(this);
        }
    }
    if (cover != nullptr && ! cover->isVisible())
    {
        cover->setVisible(true);
        cover->toFront(false);
        place();
    }
    setVisible(true);
    if (getWantsKeyboardFocus())
        grabKeyboardFocus();
}

void ModalComponent::showAt(int mode, juce::Point<int> position, juce::Component* relativeTo)
{
    placement = mode;
    if (relativeTo != nullptr)
    {
        const auto* target = root != nullptr ? root.getComponent() : findRoot();
        if (target != nullptr)
            position = target->getLocalPoint(relativeTo, position);
    }
    x = position.x;
    y = position.y;
    show();
}

void ModalComponent::hide()
{
    setVisible(false);
    if (cover != nullptr)
        cover->setVisible(false);
}
