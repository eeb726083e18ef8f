#include "GUIController.h"

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

void GUIController::notifyDragStarted()
{
    callListeners([this](Listener& l) { l.controllerDragStarted(*this); });
}

void GUIController::notifyDragEnded()
{
    callListeners([this](Listener& l) { l.controllerDragEnded(*this); });
}
