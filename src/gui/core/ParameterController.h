#pragma once

#include "parameters/Parameter.h"

/** The binding of a widget made by code (not read from a skin) to one or more parameters. It
    follows them on the message thread only, as a control does: it is on each parameter's
    asynchronous listeners, never the synchronous ones. Thread: message thread. */
class ParameterController : public Parameter::Listener
{
public:
    ParameterController() = default;
    ~ParameterController() override;

    void parameterChanged(Parameter& parameter) override { parameterUpdated(parameter); }
    void parameterChangeStarted(Parameter&) override {}
    void parameterChangeEnded(Parameter&) override {}

    /** Whether the widget can show this parameter; all by default. */
    virtual bool acceptsParameter(Parameter&) { return true; }
    /** The parameter's value changed (or was just added): show it, without writing back. */
    virtual void parameterUpdated(Parameter& parameter) = 0;
    /** A parameter joined the widget, before its first update. */
    virtual void parameterAdded(Parameter&) {}

    /** Adds a parameter the widget accepts and does not have yet, shows it and follows it. */
    void addParameter(Parameter* p);
    /** Leaves every parameter. */
    void removeAllParameters();
    const juce::Array<Parameter*>& getParameters() const noexcept { return parameters; }

protected:
    juce::Array<Parameter*> parameters;
};
