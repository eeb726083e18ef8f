#pragma once

#include "Parameter.h"

/** A whole number between two bounds. Thread: any; the value is one atomic. */
class IntParameter : public Parameter
{
public:
    IntParameter(int index, const juce::String& name, int minimum, int maximum, int value);
    IntParameter(const IntParameter& source, int index, const juce::String& name);

    Parameter* clone(int newIndex, const juce::String& newName) const override;

    float getFloat() const override { return static_cast<float>(value.load()); }
    /** (value - minimum) / (maximum - minimum) in float; equal bounds divide by zero, on purpose. */
    float getNormalized() const override;
    int getInt() const override { return value.load(); }
    bool getBool() const override { return value.load() != minimum; }
    juce::String getText() const override { return juce::String(value.load()); }
    juce::var getVar() const override { return value.load(); }

    void setFloat(float newValue, bool notify) override;
    /** minimum + floor(range * n + 0.5), product and half in float, the rest in double; no clamp after. */
    void setNormalized(float newValue, bool notify) override;
    void setInt(int newValue, bool notify) override;
    void setBool(bool newValue, bool notify) override;
    void setText(const juce::String& text, bool notify) override;
    void copyFrom(const Parameter& other, bool notify) override;

    int getMinimum() const noexcept { return minimum; }
    int getMaximum() const noexcept { return maximum; }

    /** Takes effect only while the maximum is not negative and m differs; re-clamps and notifies. */
    void setMinimum(int m);
    /** Takes effect only when m >= minimum and m differs; re-clamps and notifies. */
    void setMaximum(int m);

protected:
    int clampToBounds(int v) const noexcept;
    void store(int newValue, bool notify);

private:
    void reclampAfterBoundsChange();

    int minimum;
    int maximum;
    std::atomic<int> value{0};
};
