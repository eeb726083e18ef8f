#pragma once

// The parameter manager owns every Parameter of one plug-in instance, finds them by index and by
// name under one read-write lock, and builds them from the "parameters.xml" definition resource.
// The maps are written only at start-up; lookups are safe on any thread.

#include "Parameter.h"
#include "ParameterFormatter.h"
#include "PluginResources.h"

class FloatParameter;

/** Owner and directory of a plug-in's parameters.
    Thread: definition on the constructing thread before anyone else sees the object; lookups on
    any thread (read lock). */
class ParameterManager
{
public:
    /** Half-open ranges of parameter indices. */
    using Ranges = juce::SparseSet<int>;

    ParameterManager();
    virtual ~ParameterManager();

    /** The display text of a parameter: by default its text followed by its unit. */
    virtual juce::String format(const Parameter& parameter);
    /** True keeps a parameter from being set when a preset is applied. False for every index here. */
    virtual bool isParameterProtected(int index);
    /** Whether a parameter's value is meant to be shown to the user: the editor's parameter info
        panel shows its value row only then. True for every index here; a product whose editor
        hides internal values says false for them. */
    virtual bool isParameterVisible(int index);
    /** Makes the parameter of a `float` row; a product may return a subclass with a taper. */
    virtual FloatParameter* createFloatParameter(int index, const juce::String& name, float minimum, float maximum,
                                                 float value);
    /** The formatter for a parameter index, or null for the generic display. */
    virtual ParameterFormatter* getFormatter(int index);

    /** Reads the named resource ("parameters.xml") and defines its parameters. */
    void loadFromResource(const PluginResources& resources, const juce::String& resourceName);
    /** Clears the manager and defines all parameters of a `PluginParameters` document. */
    void readXml(const juce::XmlElement& root);
    /** Deletes every parameter, last to first, and empties the lookup maps. */
    void clear();
    /** Takes ownership. Returns 1 when added; 0 when already present (the pointer) or when the index
        or name is taken (then p is deleted). */
    int addParameter(Parameter* p);

    Parameter* getParameter(int index) const;
    Parameter* getParameter(const juce::String& name) const;
    bool getBool(int index) const;
    juce::String getText(int index) const;
    /** setText with notification. */
    void setText(int index, const juce::String& text);
    /** Stores a text parameter's value with notification (the form read-outs use). */
    void setString(int index, const juce::String& text) { setText(index, text); }
    juce::String getName(int index) const;
    /** copyFrom with notification; nothing when either parameter is missing. */
    void copyValue(int destination, int source);

    void addListenerToAll(Parameter::Listener* listener);
    void addAsyncListenerToAll(Parameter::Listener* listener);
    void removeListenerFromAll(Parameter::Listener* listener);
    void removeAsyncListenerFromAll(Parameter::Listener* listener);
    void addListener(int index, Parameter::Listener* listener);
    void addAsyncListener(int index, Parameter::Listener* listener);

    /** Tells every parameter's listeners once, in definition order, as if each had changed. */
    void notifyAll();
    /** Remembers every parameter's normalized value as its default. */
    void captureDefaults();
    /** The normalized default captured for an index; false when none was captured. */
    bool getDefaultValue(int index, float& value) const;

    /** Definition order. The array itself changes only at start-up. */
    const juce::OwnedArray<Parameter>& getParameters() const noexcept { return parameters; }
    int getNumParameters() const noexcept { return parameters.size(); }
    const juce::String& getApplicationName() const noexcept { return applicationName; }

    /** The format word of the definition grammar for a code, and back (0 for an unknown word). */
    static int formatCodeForWord(const juce::String& word);

    juce::ReadWriteLock& getLock() noexcept { return lock; }

private:
    Parameter* createRow(const juce::XmlElement& row);

    juce::OwnedArray<Parameter> parameters;
    juce::String applicationName;
    juce::HashMap<int, Parameter*> parametersByIndex;
    juce::HashMap<juce::String, Parameter*> parametersByName;
    juce::HashMap<int, float> defaultValues;
    mutable juce::ReadWriteLock lock;

    JUCE_DECLARE_NON_COPYABLE(ParameterManager)
};
