#include "GUIController.h"

#include "SkinContext.h"
#include "SkinXml.h"
#include "plugin/BasePlugin.h"

GUIController::~GUIController()
{
    if (parameter != nullptr)
        parameter->removeAsyncListener(this);
}

void GUIController::parameterChanged(Parameter& p)
{
    if (! suspended)
        updateFromParameter(p);
}

Parameter* GUIController::getParameterAt(const juce::MouseEvent&, juce::Component**)
{
    return parameter;
}

void GUIController::load(const juce::XmlElement& element, SkinContext& skin)
{
    paramReset = SkinXml::boolean(element, "paramReset", true);
    auto* plugin = skin.getPlugin();
    if (plugin == nullptr)
        return;

    if (auto* links = SkinXml::child(element, "links"))
        for (auto* link : SkinXml::children(*links, "link"))
        {
            auto* found = plugin->getParameterManager().getParameter(link->getStringAttribute("param"));
            if (found != nullptr && link->getStringAttribute("as") == "connectedTo")
                connectParameter(found);
        }

    if (auto* actions = SkinXml::child(element, "actions"))
        for (auto* action : SkinXml::children(*actions, "action"))
        {
            const auto type = action->getStringAttribute("type");
            const int eventId = plugin->getEvents().getUid(action->getStringAttribute("event"));
            if (type.isNotEmpty() && eventId >= 0)
                bindAction(type, eventId, plugin->getEvents().getName(eventId));
        }
}

void GUIController::bindAction(const juce::String&, int, const juce::String&) {}

void GUIController::updateFromParameter(Parameter&) {}

void GUIController::addListener(Listener* listener)
{
    if (listener != nullptr)
        listeners.add(listener);
}

void GUIController::removeListener(Listener* listener)
{
    listeners.removeAllInstancesOf(listener);
}

void GUIController::connectParameter(Parameter* p)
{
    if (p == parameter)
        return;
    if (parameter != nullptr)
        parameter->removeAsyncListener(this);
    parameter = p;
    if (parameter != nullptr)
    {
        parameter->addAsyncListener(this);
        updateFromParameter(*parameter);
    }
}

void GUIController::notifyValueChanged()
{
    callListeners([this](Listener& l) { l.controllerValueChanged(*this); });
}

void GUIController::fireEvent(int eventId)
{
    callListeners([this, eventId](Listener& l) { l.controllerEvent(*this, eventId); });
}

void GUIController::beginUserGesture()
{
    if (parameter == nullptr || suspended)
        return;
    parameter->beginChange();
    notifyDragStarted();
}

void GUIController::endUserGesture()
{
    if (parameter == nullptr || suspended)
        return;
    parameter->endChange();
    notifyDragEnded();
}

void GUIController::notifyDragStarted()
{
    callListeners([this](Listener& l) { l.controllerDragStarted(*this); });
}

void GUIController::notifyDragEnded()
{
    callListeners([this](Listener& l) { l.controllerDragEnded(*this); });
}
