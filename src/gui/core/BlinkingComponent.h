#pragma once

#include <juce_events/juce_events.h>

/** A phase that a private timer inverts on every tick, for controls that can blink. While the timer
    runs and the phase is false, a button draws its first frame. Nothing in the product starts the
    timer today; the drawing code consults it. Thread: message thread. */
class BlinkingComponent
{
public:
    BlinkingComponent() : timer(*this) {}
    virtual ~BlinkingComponent() = default;

    void startBlinking(int intervalMilliseconds) { timer.startTimer(intervalMilliseconds); }
    void stopBlinking()
    {
        timer.stopTimer();
        blinkPhase = false;
    }
    bool isBlinking() const { return timer.isTimerRunning(); }
    bool getBlinkPhase() const noexcept { return blinkPhase; }

protected:
    /** Called on every tick after the phase flipped; controls repaint. */
    virtual void blinkTick() {}

private:
    struct BlinkTimer : juce::Timer
    {
        explicit BlinkTimer(BlinkingComponent& o) : owner(o) {}
        void timerCallback() override
        {
            owner.blinkPhase = ! owner.blinkPhase;
            owner.blinkTick();
        }
        BlinkingComponent& owner;
    };

    BlinkTimer timer;
    bool blinkPhase = false;
};
