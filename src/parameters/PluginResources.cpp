#include "PluginResources.h"

juce::MemoryBlock PluginResources::getData(const juce::String& fileName) const
{
    const int dot = fileName.lastIndexOfChar('.');
    if (lookup == nullptr || dot <= 0)
        return {};
    // The resource compiler names each embedded file "<name>_<type>".
    const auto key = fileName.substring(0, dot) + "_" + fileName.substring(dot + 1);
    int size = 0;
    if (const char* data = lookup(key.toRawUTF8(), size); data != nullptr && size > 0)
        return juce::MemoryBlock(data, static_cast<size_t>(size));
    return {};
}

juce::String PluginResources::getText(const juce::String& fileName) const
{
    const auto data = getData(fileName);
    if (data.isEmpty())
        return {};
    return juce::String::fromUTF8(static_cast<const char*>(data.getData()), static_cast<int>(data.getSize()));
}
