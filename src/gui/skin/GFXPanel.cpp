#include "GFXPanel.h"

#include "ControlWords.h"
#include "gui/core/SkinWidget.h"
#include "gui/core/SkinXml.h"

GFXPanel::GFXPanel(const juce::String& componentName) : juce::Component(componentName) {}

GFXPanel::~GFXPanel()
{
    // The panel owns its controls: last first.
    for (int i = getNumChildComponents(); --i >= 0;)
    {
        auto* child = getChildComponent(i);
        removeChildComponent(i);
        delete child;
    }
}

void GFXPanel::load(const juce::XmlElement& element, SkinContext& skin)
{
    BaseGFXController::load(element, skin);
    if (element.hasAttribute("bkgCol"))
        background = SkinXml::colour(element.getStringAttribute("bkgCol"));

    if (auto* controls = SkinXml::child(element, "controls"))
    {
        const int offsetX = SkinXml::integer(*controls, "ofsX", 0);
        const int offsetY = SkinXml::integer(*controls, "ofsY", 0);
        for (auto* child = controls->getFirstChildElement(); child != nullptr; child = child->getNextElement())
        {
            auto control = ControlWords::make(child->getTagName(), child->getStringAttribute("name"), skin);
            if (control == nullptr)
                continue; // a word the builder does not know
            if (auto* controller = dynamic_cast<GUIController*>(control.get()))
            {
                controller->load(*child, skin);
                if (auto* bound = controller->getParameter())
                    controller->updateFromParameter(*bound);
            }
            else if (auto* widget = dynamic_cast<SkinWidget*>(control.get()))
            {
                // Controls bound to several parameters, or only to items: the panel reads their words.
                widget->loadFromSkin(*child, skin);
            }
            addAndMakeVisible(control.release());
        }
        for (auto* child : getChildren())
            child->setTopLeftPosition(child->getX() + offsetX, child->getY() + offsetY);
    }
    setTopLeftPosition(left, top);
    setSize(width, height);
    repaint();
}

void GFXPanel::addListener(Listener* listener)
{
    GUIController::addListener(listener);
    if (listener == nullptr)
        return;
    for (auto* child : getChildren())
        if (auto* controller = dynamic_cast<GUIController*>(child))
            controller->addListener(listener);
}

void GFXPanel::paint(juce::Graphics& g)
{
    if (image.isValid())
        g.drawImage(image, 0, 0, width, height, 0, 0, width, height);
    else if (background.getAlpha() != 0)
        g.fillAll(background);
}
