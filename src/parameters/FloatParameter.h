#pragma once

#include "Parameter.h"

/** A float value between two bounds, with a cached normalized copy written beside it.
    Thread: any; the value and its normalized copy are two separate atomic stores, so a reader may
    see them one change apart. */
class FloatParameter : public Parameter
{
public:
    /** The bounds are the smaller and the larger of a and b; the value is clamped to a, then to b. */
    FloatParameter(int index, const juce::String& name, float a, float b, float value);

    /** Copies bounds and value; the clone's cached normalized stays 0 until its next change. */
    FloatParameter(const FloatParameter& source, int index, const juce::String& name);

    Parameter* clone(int newIndex, const juce::String& newName) const override;

    float getFloat() const override { return value.load(); }
    float getNormalized() const override { return normalized.load(); }
    int getInt() const override;
    bool getBool() const override { return normalized.load() >= 0.5f; }
    juce::String getText() const override;
    juce::var getVar() const override { return static_cast<double>(value.load()); }

    void setFloat(float newValue, bool notify) override;
    void setNormalized(float newValue, bool notify) override;
    void setInt(int newValue, bool notify) override;
    /** Deliberately writes the cached normalized the wrong way round: true stores the maximum with
        normalized 0, false the minimum with normalized 1, so getBool answers the opposite. */
    void setBool(bool newValue, bool notify) override;
    void setText(const juce::String& text, bool notify) override;
    void copyFrom(const Parameter& other, bool notify) override;

    /** The taper: linear in this program. All float setters go through these two. */
    virtual float normalizedToValue(float normalizedValue) const;
    virtual float valueToNormalized(float plainValue) const;

    float getMinimum() const noexcept { return minimum; }
    float getMaximum() const noexcept { return maximum; }

private:
    float clampToBounds(float v) const noexcept;
    void store(float newValue, float newNormalized, bool notify);

    float minimum;
    float maximum;
    std::atomic<float> value{0.0f};
    std::atomic<float> normalized{0.0f};
};
