#pragma once

#include "Parameter.h"

/** A text value behind a read-write lock. Numeric forms read the text as a number; getBool is
    deliberately true when the text's integer value is 0. Thread: any; readers wait while a writer
    swaps the text. */
class StringParameter : public Parameter
{
public:
    StringParameter(int index, const juce::String& name, const juce::String& value = {});
    StringParameter(const StringParameter& source, int index, const juce::String& name);

    Parameter* clone(int newIndex, const juce::String& newName) const override;

    float getFloat() const override;
    float getNormalized() const override;
    int getInt() const override;
    bool getBool() const override;
    juce::String getText() const override;
    juce::var getVar() const override { return getText(); }

    void setFloat(float newValue, bool notify) override;
    void setNormalized(float newValue, bool notify) override;
    void setInt(int newValue, bool notify) override;
    void setBool(bool newValue, bool notify) override;
    void setText(const juce::String& text, bool notify) override;
    void copyFrom(const Parameter& other, bool notify) override;

private:
    juce::ReadWriteLock lock;
    juce::String value;
};
