#pragma once

#include <juce_core/juce_core.h>

/** The plug-in's own resources, embedded in the binary and found by file name: the text before the
    last "." is the resource's name and the text behind it its type ("parameters.xml" is the
    resource `parameters` of type `xml`). A missing resource gives nothing. Thread: any. */
namespace PluginResources
{
/** The bytes of a resource, or an empty block. */
juce::MemoryBlock getData(const juce::String& fileName);
/** The resource as UTF-8 text, or empty text. */
juce::String getText(const juce::String& fileName);
} // namespace PluginResources
