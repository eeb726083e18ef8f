#pragma once

#include "IntParameter.h"

/** An index into a list of item names, made from a ";"-separated text. Thread: any for values;
    setItems only where bounds may change (start-up). */
class EnumParameter : public IntParameter
{
public:
    EnumParameter(int index, const juce::String& name);
    EnumParameter(const EnumParameter& source, int index, const juce::String& name);

    Parameter* clone(int newIndex, const juce::String& newName) const override;

    /** The item at the value; empty when the value is no item's index. */
    juce::String getText() const override;
    /** An exact item name selects it; any other text is read as a normalized number. */
    void setText(const juce::String& text, bool notify) override;

    /** Replaces the items unless the text is the same; the bounds follow the item count. */
    void setItems(const juce::String& text);
    const juce::StringArray& getItems() const noexcept { return items; }
    const juce::String& getItemsText() const noexcept { return itemsText; }

private:
    juce::StringArray items;
    juce::String itemsText;
};
