#pragma once

// Tells the parts of the GUI that show whether the loaded preset has been changed (the preset name,
// the browser) when that answer flips. Anyone may trigger a check; the check itself asks the change
// detector once on the message thread, so a burst of knob moves costs one question.

#include <juce_events/juce_events.h>

#include <functional>

/** Thread: `trigger` from any thread; the check and the listeners on the message thread. */
class PresetChangeNotifier : private juce::AsyncUpdater
{
public:
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /** The parameters moved away from the loaded preset (true), or back to it (false). */
        virtual void presetChangedStateChanged(bool changed) = 0;
    };

    /** `isChanged` answers whether the parameters differ from the loaded preset now. */
    explicit PresetChangeNotifier(std::function<bool()> isChanged);
    ~PresetChangeNotifier() override;

    /** Asks for a check on the message thread; several triggers before it runs make one check. */
    void trigger() { triggerAsyncUpdate(); }
    /** The answer of the last check; false before the first. */
    bool wasChanged() const noexcept { return lastAnswer; }

    void addListener(Listener* listener) { listeners.addIfNotAlreadyThere(listener); }
    void removeListener(Listener* listener) { listeners.removeFirstMatchingValue(listener); }

private:
    void handleAsyncUpdate() override;

    std::function<bool()> isChanged;
    bool lastAnswer = false;
    juce::Array<Listener*> listeners;
};
