#pragma once

// The one way documents from outside become XML elements: state chunks, presets, settings, map
// files, package descriptions. JUCE's parser reads past the end of its buffer on malformed UTF-8,
// never returns from a processing instruction (`<?...?>`) that stands inside an element before
// text, expands unknown entities as markup and recurses once per nesting level until the stack
// runs out. A scan of the markup here, before the parser sees the text, refuses what would harm
// it and drops processing instructions inside the root element; every well-formed document
// without a document type declaration gets through.

#include <juce_core/juce_core.h>

/** Thread: any; no state. */
namespace XmlInput
{
/** The bytes as text, up to the first zero character: UTF-16 with a byte order mark is converted,
    anything else must be well-formed UTF-8 (an optional byte order mark is dropped). Malformed
    bytes (overlong forms, surrogates, lone UTF-16 surrogates) give empty text. */
juce::String decode(const void* data, size_t size);

/** The deepest nesting of elements a document may have; ours go five levels deep. */
constexpr int maximumDepth = 256;

/** Whether the text may be parsed: no document type declaration, elements nested at most
    maximumDepth levels, every "&" in text and values one of the five predefined entities
    ("&amp;" ...) or a complete numeric character reference naming a character (1 to U+10FFFF, no
    surrogate). Comments and CDATA sections may hold anything. */
bool isParseable(const juce::String& text);

/** The document element of a text, or null for a text that gives none or is not parseable.
    With headerOnly only the outer element is read, as juce::XmlDocument does. */
std::unique_ptr<juce::XmlElement> parse(const juce::String& text, bool headerOnly = false);
/** `parse` of a file's bytes after `decode`; null for a missing or unreadable file or one larger
    than maximumDocumentBytes. */
std::unique_ptr<juce::XmlElement> parse(const juce::File& file, bool headerOnly = false);
/** Reads what a stream has left, in pieces, into `bytes`. No length the stream declares is trusted
    (a ZIP entry can claim gigabytes in a few bytes): false, with `bytes` empty, when the stream
    holds more than `limit` bytes. */
bool readAtMost(juce::InputStream& stream, size_t limit, juce::MemoryBlock& bytes);

/** The most a document read from a stream may hold; our largest is a few kilobytes. */
constexpr size_t maximumDocumentBytes = 16 * 1024 * 1024;

/** `parse` of everything a stream has left; null when it holds more than maximumDocumentBytes. */
std::unique_ptr<juce::XmlElement> parse(juce::InputStream& stream, bool headerOnly = false);
/** A host state chunk as juce::AudioProcessor::copyXmlToBinary writes it: the magic number, the
    text's length and the UTF-8 text. Null for anything else. */
std::unique_ptr<juce::XmlElement> parseBinaryState(const void* data, int size);
} // namespace XmlInput
