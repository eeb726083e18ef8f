#pragma once

// Lets a MIDI controller number drive one automatable parameter. The table is built for the audio
// thread: 128 atomic pointers and no lock. Learning is done by the audio thread too: while a
// parameter is marked for learning, the controller that arrives takes it over at once, so the
// parameter follows the user's hand before anything travels back to the GUI.

#include "parameters/Parameter.h"

#include <juce_audio_basics/juce_audio_basics.h>

#include <array>
#include <atomic>

class ParameterManager;

/** Controller number to parameter, with learning and the map document (`.vmccmap` files and the
    element in the state chunk). A parameter stands at most once in the table.
    Thread: `handleController` on the audio thread (no lock, no allocation); everything else on the
    message thread. Table entries and the learn target are atomics shared by both. */
class MidiControlMap
{
public:
    static constexpr int numControllers = 128;

    class Listener
    {
    public:
        virtual ~Listener() = default;
        /** After a controller moved a parameter. Audio thread. */
        virtual void controllerMoved(MidiControlMap& map, Parameter& parameter) = 0;
    };

    explicit MidiControlMap(ParameterManager& manager);

    /** The plug-in's code name: written into map documents and required of documents read. */
    void setName(const juce::String& codeName) { name = codeName; }
    const juce::String& getName() const noexcept { return name; }

    /** A Control Change message, on any channel, at its sample position. Audio thread. */
    void handleController(const juce::MidiMessage& message);

    /** Puts the parameter on a controller, clearing its previous entry; -1 only clears. */
    void assign(Parameter* parameter, int controller);
    /** The first controller that drives the parameter, or -1. */
    int getController(const Parameter* parameter) const;
    Parameter* getParameter(int controller) const;

    /** Marks a parameter for learning; the first call of a learning session backs up the table. */
    void startLearning(Parameter* parameter);
    /** Ends learning and puts the whole table back as it was when learning started. */
    void cancelLearning();
    /** Ends learning and keeps what it learned. */
    void finishLearning();
    bool isLearning() const noexcept { return learnParameter.load() != nullptr; }

    /** Replaces the table from a map element; false (and nothing changed) when the element is not
        a map of this plug-in. Assignments naming unknown or non-automatable parameters, or
        controllers out of range, are skipped. */
    bool readXml(const juce::XmlElement* element);
    std::unique_ptr<juce::XmlElement> createXml() const;
    /** False when the file gives no document or a refused one; the map then stays as it was. */
    bool loadFromFile(const juce::File& file);
    bool saveToFile(const juce::File& file) const;

    void addListener(Listener* listener) { listeners.addIfNotAlreadyThere(listener); }
    void removeListener(Listener* listener) { listeners.removeFirstMatchingValue(listener); }

private:
    void clearEntriesOf(const Parameter* parameter, int except);

    ParameterManager& parameters;
    juce::Array<Listener*> listeners;
    juce::String name;
    std::atomic<int> activity{0};
    std::atomic<Parameter*> learnParameter{nullptr};
    std::array<std::atomic<Parameter*>, numControllers> table{};

    // Audio thread only.
    Parameter* learnedParameter = nullptr;
    int learnedController = -1;
    Parameter* displaced = nullptr;

    std::array<Parameter*, numControllers> backup{};

    JUCE_DECLARE_NON_COPYABLE(MidiControlMap)
};
