#pragma once

#include <juce_core/juce_core.h>

#include <atomic>
#include <memory>

/** A skin name that one thread may replace while another reads it: the text is swapped whole as a
    shared pointer, never written in place. Thread: any. */
class SkinName
{
public:
    juce::String get() const
    {
        const auto text = value.load();
        return text != nullptr ? *text : juce::String();
    }
    void set(const juce::String& text) { value.store(std::make_shared<const juce::String>(text)); }

private:
    std::atomic<std::shared_ptr<const juce::String>> value{std::make_shared<const juce::String>()};
};
