#pragma once

// The parameter model: every knob, switch, selector and internal value of the plug-in is one
// Parameter. A value lives in an atomic (text behind a read-write lock), so the audio thread, the
// host, the GUI, presets and the MIDI map can all read and write the same object. A write tells the
// synchronous listeners on the writing thread, and once more, coalesced, the asynchronous listeners
// on the message thread. The family is closed: Float, Int (with Enum and Note), Bool (with State,
// Logic and Answer) and String.

#include <juce_events/juce_events.h>

#include <atomic>
#include <optional>

class ParameterFormatter;

/** One stored value with six read and write forms (float, normalized 0..1, int, bool, text, var).
    Thread: any thread may call any getter or setter; numeric values never block. Setters with
    notify true call `listeners` on the calling thread, so those listeners must be quick. */
class Parameter : public juce::AsyncUpdater
{
public:
    /** Hears of value changes and change gestures. Default operations do nothing. */
    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void parameterChanged(Parameter& parameter) = 0;
        virtual void parameterChangeStarted(Parameter&) {}
        virtual void parameterChangeEnded(Parameter&) {}
    };

    Parameter(int index, const juce::String& name);

    /** Copies formatter, automatable, meta and format; not the unit and not the listeners. */
    Parameter(const Parameter& source, int index, const juce::String& name);

    ~Parameter() override;

    /** Message thread: tells every async listener once for any number of writes since the last run. */
    void handleAsyncUpdate() override;

    /** A new parameter of the same class with the same bounds and value; owned by the caller. */
    virtual Parameter* clone(int newIndex, const juce::String& newName) const = 0;

    virtual float getFloat() const = 0;
    virtual float getNormalized() const = 0;
    virtual int getInt() const = 0;
    virtual bool getBool() const = 0;
    virtual juce::String getText() const = 0;
    virtual juce::var getVar() const = 0;

    virtual void setFloat(float value, bool notify) = 0;
    virtual void setNormalized(float value, bool notify) = 0;
    virtual void setInt(int value, bool notify) = 0;
    virtual void setBool(bool value, bool notify) = 0;
    virtual void setText(const juce::String& text, bool notify) = 0;
    virtual void copyFrom(const Parameter& other, bool notify) = 0;

    /** The text a user reads, with units, signs and rounding, chosen by the format code: 0 asks the
        formatter (or gives the text and unit), 1 to 14 are the generic formats of the definition
        file's words ("integer" .. "crossfade"), anything above 14 gives an empty text. */
    juce::String getDisplayText() const;

    int getIndex() const noexcept { return index; }
    void setIndex(int newIndex) noexcept { index = newIndex; }
    const juce::String& getName() const noexcept { return name; }

    bool isAutomatable() const noexcept { return automatable; }
    void setAutomatable(bool shouldBe) noexcept { automatable = shouldBe; }
    bool isMeta() const noexcept { return meta; }
    void setMeta(bool shouldBe) noexcept { meta = shouldBe; }
    const juce::String& getUnit() const noexcept { return unit; }
    void setUnit(const juce::String& newUnit) { unit = newUnit; }
    int getFormat() const noexcept { return format; }
    void setFormat(int newFormat) noexcept { format = newFormat; }
    ParameterFormatter* getFormatter() const noexcept { return formatter; }
    void setFormatter(ParameterFormatter* newFormatter) noexcept { formatter = newFormatter; }

    /** Listener lists. A listener stands at most once in each list. Not locked: change them only
        while no other thread writes, or accept that a walk in progress may skip an entry. */
    void addListener(Listener* listener);
    void removeListener(Listener* listener);
    void addAsyncListener(Listener* listener);
    void removeAsyncListener(Listener* listener);
    bool hasListener(Listener* listener) const { return listeners.contains(listener); }
    bool hasAsyncListener(Listener* listener) const { return asyncListeners.contains(listener); }

    /** Opens a change gesture; only the first call of a gesture tells the listeners. */
    void beginChange();
    /** Closes a change gesture; only a call while one is open tells the listeners. */
    void endChange();
    bool isChangeActive() const noexcept { return gestureActive.load() != 0; }

    /** Calls the synchronous listeners and triggers the async update, as after a change. */
    void notifyListeners();

protected:
    /** Clamps into 0..1; anything that is not >= 0, NaN included, becomes 0. */
    static float clamp01(float value) noexcept;
    /** C++ truncation toward zero that is defined for every input: NaN gives 0, out of range saturates. */
    static int truncateToInt(double value) noexcept;
    /** The text's double value ("abc" reads as 0), or nothing when that value is NaN or infinite.
        A text setter that gets nothing keeps its value: a stored NaN would make every later write
        of a number count as unchanged, so the value and what the engine hears would part. */
    static std::optional<double> finiteValueOf(const juce::String& text);

private:
    template <typename Call> static void walkBackwards(juce::Array<Listener*>& list, Call&& call);

    ParameterFormatter* formatter = nullptr;
    int index = -1;
    juce::String name;
    bool automatable = false;
    bool meta = false;
    juce::String unit;
    int format = 0;
    juce::Array<Listener*> listeners;
    juce::Array<Listener*> asyncListeners;
    std::atomic<int> gestureActive{0};

    JUCE_DECLARE_NON_COPYABLE(Parameter)
};
