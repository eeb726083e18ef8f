#pragma once

#include "Parameter.h"

/** An on/off value (on is exactly 1), with the words "true" and "false". setText accepts the
    eight words true/1/on/yes and false/0/off/no exactly, and reads any other text as a normalized
    number. Thread: any. */
class BoolParameter : public Parameter
{
public:
    BoolParameter(int index, const juce::String& name, bool value = false);
    BoolParameter(const BoolParameter& source, int index, const juce::String& name);

    Parameter* clone(int newIndex, const juce::String& newName) const override;

    float getFloat() const override { return value.load() == 1 ? 1.0f : 0.0f; }
    float getNormalized() const override { return getFloat(); }
    int getInt() const override { return value.load() == 1 ? 1 : 0; }
    bool getBool() const override { return value.load() == 1; }
    juce::String getText() const override;
    juce::var getVar() const override { return getBool(); }

    void setFloat(float newValue, bool notify) override;
    void setNormalized(float newValue, bool notify) override;
    void setInt(int newValue, bool notify) override;
    void setBool(bool newValue, bool notify) override;
    void setText(const juce::String& text, bool notify) override;
    void copyFrom(const Parameter& other, bool notify) override;

protected:
    /** The words of getText for on and off. */
    virtual const char* onWord() const { return "true"; }
    virtual const char* offWord() const { return "false"; }
    /** The generic reading of a text: the eight words, else a normalized number. */
    void setTextGeneric(const juce::String& text, bool notify);

private:
    std::atomic<int> value{0};
};

/** A switch shown as "On"/"Off"; setText first tries "on" and "off" ignoring case. */
class StateParameter : public BoolParameter
{
public:
    using BoolParameter::BoolParameter;
    StateParameter(const StateParameter& source, int index, const juce::String& name);
    Parameter* clone(int newIndex, const juce::String& newName) const override;
    void setText(const juce::String& text, bool notify) override;

protected:
    const char* onWord() const override { return "On"; }
    const char* offWord() const override { return "Off"; }
};

/** A switch shown as "1"/"0"; setText first tries "1" and "0" exactly. */
class LogicParameter : public BoolParameter
{
public:
    using BoolParameter::BoolParameter;
    LogicParameter(const LogicParameter& source, int index, const juce::String& name);
    Parameter* clone(int newIndex, const juce::String& newName) const override;
    void setText(const juce::String& text, bool notify) override;

protected:
    const char* onWord() const override { return "1"; }
    const char* offWord() const override { return "0"; }
};

/** A switch shown as "yes"/"no"; setText first tries "yes" and "no" exactly. */
class AnswerParameter : public BoolParameter
{
public:
    using BoolParameter::BoolParameter;
    AnswerParameter(const AnswerParameter& source, int index, const juce::String& name);
    Parameter* clone(int newIndex, const juce::String& newName) const override;
    void setText(const juce::String& text, bool notify) override;

protected:
    const char* onWord() const override { return "yes"; }
    const char* offWord() const override { return "no"; }
};
