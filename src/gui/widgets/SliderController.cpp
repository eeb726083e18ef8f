#include "SliderController.h"

SliderController::SliderController(const juce::String& name) : juce::Slider(name)
{
    setRange(0.0, 1.0);
}

void SliderController::parameterUpdated(Parameter& parameter)
{
    setValue(parameter.getNormalized(), juce::dontSendNotification);
}

void SliderController::valueChanged()
{
    for (auto* p : parameters)
        p->setNormalized(float(getValue()), true);
}

void SliderController::startedDragging()
{
    for (auto* p : parameters)
        p->beginChange();
}

void SliderController::stoppedDragging()
{
    for (auto* p : parameters)
        p->endChange();
}
