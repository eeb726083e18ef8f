#include "GFXRocker.h"

#include "DrawnLook.h"

GFXRocker::GFXRocker(const juce::String& name) : juce::Component(name) {}

void GFXRocker::load(const juce::XmlElement& element, SkinContext& skin)
{
    BaseGFXController::load(element, skin);
    orientation = element.getStringAttribute("type", "vertical") == "horizontal" ? horizontal : vertical;
    setBounds(left, top, width, height);
}

void GFXRocker::bindAction(const juce::String& type, int eventId, const juce::String&)
{
    if (type == "onLessClick")
        lessEventId = eventId;
    else if (type == "onMoreClick")
        moreEventId = eventId;
    else if (type == "onLessClickWithCtrl")
        lessCtrlEventId = eventId;
    else if (type == "onMoreClickWithCtrl")
        moreCtrlEventId = eventId;
}

void GFXRocker::mouseDown(const juce::MouseEvent& event)
{
    insideDrag = false;
    const bool more = orientation == vertical ? event.y < getHeight() / 2 : event.x > getWidth() / 2;
    const bool ctrl = event.mods.isCtrlDown();
    frame = more ? 2 : 0;
    const int eventId = more ? (ctrl ? moreCtrlEventId : moreEventId) : (ctrl ? lessCtrlEventId : lessEventId);
    if (eventId >= 0)
        fireEvent(eventId);
    repaint();
}

void GFXRocker::mouseDrag(const juce::MouseEvent& event)
{
    // The pointer in the rocker's own coordinates against its bounds in the parent's: a test kept
    // as the rocker has always made it.
    insideDrag = getBounds().contains(event.getPosition());
    repaint();
}

void GFXRocker::mouseUp(const juce::MouseEvent&)
{
    insideDrag = false;
    frame = 1;
    repaint();
}

void GFXRocker::paint(juce::Graphics& g)
{
    if (image.isValid())
    {
        drawFrame(g, getShownFrame());
        return;
    }
    g.fillAll(DrawnLook::grey(0.9f));
    auto area = getLocalBounds();
    const auto first =
        orientation == vertical ? area.removeFromTop(area.getHeight() / 2) : area.removeFromLeft(area.getWidth() / 2);
    // Vertical: the top half is "more"; horizontal: the right half.
    const bool firstPressed = orientation == vertical ? getShownFrame() == 2 : getShownFrame() == 0;
    const bool secondPressed = orientation == vertical ? getShownFrame() == 0 : getShownFrame() == 2;
    g.setColour(DrawnLook::grey(firstPressed ? 0.5f : 0.7f));
    g.fillRect(first.reduced(1));
    g.setColour(DrawnLook::grey(secondPressed ? 0.5f : 0.7f));
    g.fillRect(area.reduced(1));
}
