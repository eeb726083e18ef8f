#pragma once

// The object between one visible control and the plug-in: bound to at most one parameter, it
// follows the parameter on the message thread and tells its listeners (the editor) of gestures,
// writes and events.
//
// How a value flows. A control the user moves writes its parameter with notification (the plug-in,
// the host and the audio side hear it at once), then calls notifyValueChanged. A parameter changed
// anywhere else (host automation, MIDI, a preset) reaches the control only through the parameter's
// asynchronous listeners, on the message thread: updateFromParameter sets the control's visual value
// without any notification, so the round trip stops there. A control is never a synchronous
// listener, so no GUI code runs on the audio thread or a host thread.

#include "BlinkingComponent.h"
#include "parameters/Parameter.h"

#include <juce_gui_basics/juce_gui_basics.h>

class SkinContext;

/** Thread: message thread. */
class GUIController : public Parameter::Listener, public BlinkingComponent
{
public:
    /** What the editor implements to hear its controls. */
    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void controllerReserved(GUIController&) {}
        /** A press or drag gesture started on the control. */
        virtual void controllerDragStarted(GUIController&) {}
        virtual void controllerDragEnded(GUIController&) {}
        /** The control wrote a new value to its parameter. */
        virtual void controllerValueChanged(GUIController&) {}
        /** An action bound to an event fired. */
        virtual void controllerEvent(GUIController&, int /*eventId*/) {}
    };

    GUIController() = default;
    ~GUIController() override;

    // Parameter::Listener, asynchronous only.
    void parameterChanged(Parameter& parameter) override;
    void parameterChangeStarted(Parameter&) override {}
    void parameterChangeEnded(Parameter&) override {}

    /** The parameter a mouse event at that place means; a control with several parameters answers
        by position and may say which child was hit. */
    virtual Parameter* getParameterAt(const juce::MouseEvent& event, juce::Component** hit);
    /** Stores an event for one of the control's action slots; unknown types are ignored. */
    virtual void bindAction(const juce::String& type, int eventId, const juce::String& eventName);
    /** Sets the control's visual value from the parameter, with no notification of its own. */
    virtual void updateFromParameter(Parameter& parameter);
    /** Reads the control's own words: `paramReset`, the parameter `links` (the last "connectedTo"
        link naming a parameter of the plug-in wins) and the `actions` (each naming an event of the
        plug-in, exactly). Unknown names bind nothing. */
    virtual void load(const juce::XmlElement& element, SkinContext& skin);
    /** Appends a listener (a null is ignored; doubles are not checked). */
    virtual void addListener(Listener* listener);
    void removeListener(Listener* listener);

    /** Binds the control to a parameter (or to none): leaves the old one's asynchronous listeners,
        joins the new one's and shows its value. Binding the bound parameter again does nothing. */
    void connectParameter(Parameter* p);
    Parameter* getParameter() const noexcept { return parameter; }

    /** Tells the listeners, last first, that the control wrote its parameter. */
    void notifyValueChanged();
    /** Tells the listeners, last first, that an event fired. */
    void fireEvent(int eventId);
    /** A user edit starts or ends: the bound parameter's gesture opens or closes and the listeners
        hear of it (nothing while suspended or unbound). */
    void beginUserGesture();
    void endUserGesture();
    /** Tells the listeners, last first, that a gesture started or ended. */
    void notifyDragStarted();
    void notifyDragEnded();

    /** Whether a double click resets the parameter. */
    bool resetsOnDoubleClick() const noexcept { return paramReset; }
    void setParamReset(bool shouldReset) noexcept { paramReset = shouldReset; }
    /** While suspended the control ignores its parameter and never writes it. */
    bool isSuspended() const noexcept { return suspended; }
    void setSuspended(bool shouldSuspend) noexcept { suspended = shouldSuspend; }

protected:
    /** Calls `call` on each listener from the last to the first; a listener may remove itself. */
    template <typename Call> void callListeners(Call&& call)
    {
        for (int i = listeners.size(); --i >= 0;)
        {
            i = juce::jmin(i, listeners.size() - 1);
            if (i < 0)
                break;
            call(*listeners.getUnchecked(i));
        }
    }

    juce::Array<Listener*> listeners;
    Parameter* parameter = nullptr;
    bool paramReset = true;
    bool suspended = false;
};
