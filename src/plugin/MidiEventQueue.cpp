#include "MidiEventQueue.h"

namespace
{
constexpr int reservedBytes = 8192;
}

MidiEventQueue::MidiEventQueue() : iterator(buffers[0].begin())
{
    for (auto& b : buffers)
        b.ensureSize(reservedBytes);
}

void MidiEventQueue::clear()
{
    for (auto& b : buffers)
        b.clear();
    iterator = buffers[currentBuffer].begin();
    hasEvents = false;
    eventWaiting = false;
    waitingPosition = -1;
}

void MidiEventQueue::append(const juce::MidiBuffer& blockEvents)
{
    auto& target = buffers[currentBuffer];
    for (const auto event : blockEvents)
        if (event.samplePosition >= 0)
            target.addEvent(event.data, event.numBytes, event.samplePosition);
    iterator = target.begin();
    eventWaiting = false;
    waitingPosition = -1;
    hasEvents = ! target.isEmpty();
}

bool MidiEventQueue::peek(int& position)
{
    if (! eventWaiting)
    {
        if (! hasEvents || iterator == buffers[currentBuffer].end())
        {
            hasEvents = false;
            return false;
        }
        waiting = *iterator;
        ++iterator;
        eventWaiting = true;
        waitingPosition = waiting.samplePosition;
    }
    position = waitingPosition;
    return true;
}

void MidiEventQueue::carryOver(int numSamples)
{
    auto& from = buffers[currentBuffer];
    auto& spare = buffers[1 - currentBuffer];
    spare.clear();
    for (const auto event : from)
        if (event.samplePosition >= numSamples)
            spare.addEvent(event.data, event.numBytes, event.samplePosition - numSamples);
    from.clear();
    currentBuffer = 1 - currentBuffer;
    iterator = buffers[currentBuffer].begin();
    eventWaiting = false;
    waitingPosition = -1;
    hasEvents = ! buffers[currentBuffer].isEmpty();
}
