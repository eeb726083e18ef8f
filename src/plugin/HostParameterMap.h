#pragma once

#include "parameters/Parameter.h"

#include <juce_events/juce_events.h>

#include <array>
#include <atomic>
#include <functional>

class ParameterManager;

/** The host's numbered list of parameters and the plug-in's parameters behind it, in both
    directions. The list has a fixed length; an index without a parameter is a placeholder that keeps
    the last value the host wrote to it. Host index h is "valid" below the count the owner answers;
    every host query outside it gives 0, false or an empty text.

    Thread: the host's queries and writes (values, texts, defaults, `setValue`) come on any thread,
    the audio thread included. Each lookup holds one of the two critical sections (one around the
    list, one around the reverse index) for that lookup or one change only; no parameter code runs
    inside them, so a change between two lookups gives null and the caller is ready for that. Changes
    of the map (`place`, `clear`, `clearAll`, `readAssignments`) run on the message thread. */
class HostParameterMap
{
public:
    static constexpr int maxHostParameters = 256;

    /** `hostCount` answers how many host indices the host sees; it is asked on every query.
        `tellHostDisplay` is called when a placement the host must hear of changes a name. */
    HostParameterMap(ParameterManager& parameters, std::function<int()> hostCount,
                     std::function<void()> tellHostDisplay);

    /** True for 0 up to the host count: also placeholders count. */
    bool isValid(int hostIndex) const;
    /** The parameter at a host index, or null for a placeholder or an index outside the list. */
    Parameter* getParameter(int hostIndex) const;
    /** The host index of a parameter index, or -1. */
    int getHostIndex(int parameterIndex) const;

    /** The mapped parameter's normalized value, or the placeholder's stored one. */
    float getValue(int hostIndex) const;
    /** The mapped parameter's display text, or the placeholder's value with eight decimals. */
    juce::String getText(int hostIndex) const;
    /** The display text the mapped parameter would show at a value; the live one is not touched. */
    juce::String getTextForValue(int hostIndex, float normalizedValue) const;
    /** The normalized value the mapped parameter would take from a typed text; the live one is not
        touched. A text that reads as nothing gives the present value. */
    float getValueForText(int hostIndex, const juce::String& text) const;
    /** The normalized default the manager captured for the mapped parameter, else 0. */
    float getDefaultValue(int hostIndex) const;
    bool isMeta(int hostIndex) const;

    /** A write from the host: stored for the index, then given to the mapped parameter with its
        echo guard raised, so the change is not sent back to the host. */
    void setValue(int hostIndex, float value);
    /** True while a host write to this index is under way. The guard is per index, not per thread. */
    bool isHostWriting(int hostIndex) const { return hostWriteGuards[static_cast<size_t>(hostIndex)].load() != 0; }

    /** Puts a parameter at a host index without checks or messages: the start-up's default map. */
    void placeSilently(int hostIndex, Parameter& parameter);
    /** Moves a parameter to a host index (a null parameter clears the index). The parameter leaves
        any earlier index; one that is not automatable gets no new one, nor does an invalid index.
        With `tellHost`, a placement updates the host's display and tells the change listeners. */
    void place(int hostIndex, Parameter* parameter, bool tellHost);
    /** Makes a valid index a placeholder and tells the change listeners when it held a parameter. */
    void clear(int hostIndex);
    /** Every index a placeholder; tells the change listeners. */
    void clearAll();
    /** Replaces the map from the `assign` children of a map document (host numbers count from 1,
        parameters by name); the caller has checked that the document is this plug-in's. */
    void readAssignments(const juce::XmlElement& root);

    /** Told when the map changes (message thread, asynchronously). */
    juce::ChangeBroadcaster& getChanges() noexcept { return hostMapChanges; }

private:
    ParameterManager& parameters;
    std::function<int()> hostCount;
    std::function<void()> tellHostDisplay;

    juce::Array<Parameter*> hostParameters;
    juce::CriticalSection hostParametersLock;
    juce::HashMap<int, int> hostIndices;
    juce::CriticalSection hostIndicesLock;
    std::array<std::atomic<float>, maxHostParameters> hostValues{};
    std::array<std::atomic<int>, maxHostParameters> hostWriteGuards{};
    juce::ChangeBroadcaster hostMapChanges;

    JUCE_DECLARE_NON_COPYABLE(HostParameterMap)
};
