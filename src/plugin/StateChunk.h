#pragma once

#include <juce_core/juce_core.h>

#include <memory>

class ParameterManager;

/** The state a host keeps in its project: a `PluginState` document carried in JUCE's binary XML
    block. This class knows the document's frame (root, `application`, the processing qualities)
    and the block's encoding, and counts the host's requests; the plug-in fills in the parameters and
    the MIDI map. `stateReadCount` counts how often the host asked for the state, `stateWriteCount`
    how often it gave one, whatever became of it.
    Thread: the host's thread that asks for or gives state, usually the message thread. */
class StateChunk
{
public:
    explicit StateChunk(ParameterManager& parameters);

    /** A `PluginState` document whose `application` is the code name (both ignoring case). */
    static bool isStateFor(const juce::XmlElement& element, const juce::String& codeName);
    /** The root named for the code name, with the real-time and offline qualities when asked. */
    std::unique_ptr<juce::XmlElement> createDocument(const juce::String& codeName, bool withQualities) const;
    /** Sets the real-time and offline qualities a state document holds; without them nothing. */
    void readQualities(const juce::XmlElement& root) const;

    /** The block for the host: the document as binary XML, or one byte when there is no document
        or it could not be serialised. Counts a read. */
    void writeToBlock(const juce::XmlElement* state, juce::MemoryBlock& block);
    /** The document in a block from the host, or null for a block of one byte or less, a truncated
        or foreign one. The caller applies it, then calls `countWrite`. */
    static std::unique_ptr<juce::XmlElement> readFromBlock(const void* data, int size);
    void countWrite() noexcept { ++stateWriteCount; }

    int getStateReadCount() const noexcept { return stateReadCount; }
    int getStateWriteCount() const noexcept { return stateWriteCount; }

private:
    ParameterManager& parameters;
    int stateReadCount = 0;
    int stateWriteCount = 0;

    JUCE_DECLARE_NON_COPYABLE(StateChunk)
};
