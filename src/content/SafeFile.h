#pragma once

#include <juce_core/juce_core.h>

/** Whole-or-nothing file writes, for every file the product writes.

    The bytes go to a hidden temporary file beside the target, which is flushed to disk and only
    then renamed over the target. A write that fails at any point (the folder cannot be written,
    the disk fills up, a size limit is reached) returns false, leaves the target exactly as it was
    and removes the temporary file. A hidden name keeps a half-written file out of folder scans,
    which skip hidden files. Thread: any thread but the audio thread (file I/O). */
namespace SafeFile
{
bool write(const juce::File& target, const void* data, size_t size);
bool write(const juce::File& target, const juce::MemoryBlock& data);
/** UTF-8, without a byte-order mark. */
bool writeText(const juce::File& target, const juce::String& text);
/** The element as a document in JUCE's default text format (UTF-8 header, no DTD). */
bool writeXml(const juce::File& target, const juce::XmlElement& xml);
} // namespace SafeFile
