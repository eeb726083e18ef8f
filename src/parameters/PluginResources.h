#pragma once

#include <juce_core/juce_core.h>

/** The files a product embeds in its own module, found by file name: the text before the last "."
    is the resource's name and the text behind it its type ("parameters.xml" is the resource
    `parameters` of type `xml`). The product hands over its resource compiler's look-up; a missing
    resource, or no look-up at all, gives nothing. Thread: any. */
class PluginResources
{
public:
    /** The resource compiler's look-up: the bytes and size of "<name>_<type>", or null. */
    using Lookup = const char* (*)(const char* resourceName, int& dataSizeInBytes);

    explicit PluginResources(Lookup lookup = nullptr) : lookup(lookup) {}

    /** The bytes of a resource, or an empty block. */
    juce::MemoryBlock getData(const juce::String& fileName) const;
    /** The resource as UTF-8 text, or empty text. */
    juce::String getText(const juce::String& fileName) const;

private:
    Lookup lookup;
};
