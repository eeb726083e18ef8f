#pragma once

#include <juce_core/juce_core.h>

/** Whole-or-nothing file writes, for every file the product writes.

    A write goes to what the target path names: through symbolic links to the file they point at.
    A regular file (or a new one) gets its bytes through a hidden temporary file beside it, which
    is flushed to disk and only then renamed over it. A write that fails at any point (the folder
    cannot be written, the disk fills up, a size limit is reached) returns false, leaves the target
    exactly as it was and removes the temporary file. A hidden name keeps a half-written file out
    of folder scans, which skip hidden files. Anything else that stands at the path (a device, a
    FIFO, a socket) is opened and written directly and is never removed or replaced; a folder is
    refused. Thread: any thread but the audio thread (file I/O). */
namespace SafeFile
{
bool write(const juce::File& target, const void* data, size_t size);
bool write(const juce::File& target, const juce::MemoryBlock& data);
/** UTF-8, without a byte-order mark. */
bool writeText(const juce::File& target, const juce::String& text);
/** The element as a document in JUCE's default text format (UTF-8 header, no DTD). */
bool writeXml(const juce::File& target, const juce::XmlElement& xml);

/** The file a write to `target` changes: the end of its chain of symbolic links (relative links
    taken from the link's folder), or `target` itself when it is no link. */
juce::File resolveLinks(const juce::File& target);
/** Whether something other than a regular file or a folder stands at the path, following
    symbolic links (also the system's own, such as /dev/stdout): such a target is written in place. */
bool isSpecialFile(const juce::File& file);
/** The document bytes `writeXml` writes. */
juce::MemoryBlock xmlDocument(const juce::XmlElement& xml);
} // namespace SafeFile
