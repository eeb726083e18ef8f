#include "XmlInput.h"

#include <climits>
#include <cstring>
#include <optional>
#include <string>

namespace
{
/** Well-formed UTF-8 as RFC 3629 has it: no overlong form, no surrogate, nothing above U+10FFFF.
    juce::CharPointer_UTF8::isValidString lets overlong forms through ("C1 BC" for "|"), and JUCE's
    string code then counts their length in two different ways and writes past its buffers. */
bool isWellFormedUtf8(const uint8_t* text, size_t size)
{
    size_t i = 0;
    while (i < size)
    {
        const uint8_t lead = text[i];
        if (lead < 0x80)
        {
            ++i;
            continue;
        }
        size_t extra = 0;
        uint32_t codePoint = 0, smallest = 0;
        if ((lead & 0xe0) == 0xc0)
            extra = 1, codePoint = lead & 0x1fu, smallest = 0x80;
        else if ((lead & 0xf0) == 0xe0)
            extra = 2, codePoint = lead & 0x0fu, smallest = 0x800;
        else if ((lead & 0xf8) == 0xf0)
            extra = 3, codePoint = lead & 0x07u, smallest = 0x10000;
        else
            return false;
        if (size - i <= extra)
            return false;
        for (size_t k = 1; k <= extra; ++k)
        {
            if ((text[i + k] & 0xc0) != 0x80)
                return false;
            codePoint = (codePoint << 6) | (text[i + k] & 0x3fu);
        }
        if (codePoint < smallest || codePoint > 0x10ffff || (codePoint >= 0xd800 && codePoint <= 0xdfff))
            return false;
        i += extra + 1;
    }
    return true;
}

/** UTF-16 after its byte order mark, up to the first zero unit; empty for a lone surrogate. */
juce::String decodeUtf16(const uint8_t* bytes, size_t size, bool bigEndian)
{
    const auto unitAt = [&](size_t at)
    {
        return bigEndian ? (static_cast<uint32_t>(bytes[at]) << 8) | bytes[at + 1]
                         : (static_cast<uint32_t>(bytes[at + 1]) << 8) | bytes[at];
    };
    std::wstring text;
    for (size_t i = 2; i + 1 < size; i += 2)
    {
        uint32_t codePoint = unitAt(i);
        if (codePoint == 0)
            break;
        if (codePoint >= 0xdc00 && codePoint <= 0xdfff)
            return {};
        if (codePoint >= 0xd800 && codePoint <= 0xdbff)
        {
            if (i + 3 >= size)
                return {};
            const uint32_t low = unitAt(i + 2);
            if (low < 0xdc00 || low > 0xdfff)
                return {};
            codePoint = 0x10000 + ((codePoint - 0xd800) << 10) + (low - 0xdc00);
            i += 2;
        }
        text.push_back(static_cast<wchar_t>(codePoint));
    }
    return juce::String(text.c_str());
}

/** Steps over a reference at "&" and tells whether it is one JUCE's parser reads safely: one of
    the five predefined entities or a complete numeric character reference that names a character.
    JUCE's parser steps over the end of the text after a broken "&#x", appends any number it reads
    as a character ("&#xFFFFFFFF;" puts a malformed sequence into a string), and expands any other
    name to the name itself, which it parses as XML when it begins with "<". */
bool skipReference(juce::CharPointer_UTF8& p)
{
    ++p;
    if (*p != '#')
    {
        for (const char* name : {"amp;", "quot;", "apos;", "lt;", "gt;"})
        {
            const auto length = static_cast<int>(std::strlen(name));
            if (p.compareIgnoreCaseUpTo(juce::CharPointer_ASCII(name), length) == 0)
            {
                p += length;
                return true;
            }
        }
        return false;
    }
    ++p;
    const bool hex = *p == 'x' || *p == 'X';
    if (hex)
        ++p;
    uint64_t value = 0;
    int digits = 0;
    for (;; ++p, ++digits)
    {
        const auto c = *p;
        const int digit = hex ? juce::CharacterFunctions::getHexDigitValue(c)
                              : (c >= '0' && c <= '9' ? static_cast<int>(c - '0') : -1);
        if (digit < 0)
            break;
        value = value * (hex ? 16u : 10u) + static_cast<uint64_t>(digit);
        if (value > 0x10ffff)
            return false;
    }
    if (digits == 0 || *p != ';' || value == 0 || (value >= 0xd800 && value <= 0xdfff))
        return false;
    ++p;
    return true;
}

bool startsWith(juce::CharPointer_UTF8 p, const char* prefix)
{
    return p.compareUpTo(juce::CharPointer_ASCII(prefix), static_cast<int>(std::strlen(prefix))) == 0;
}

/** Moves past the next `terminator`, or to the end of the text when there is none. */
void skipPast(juce::CharPointer_UTF8& p, const char* terminator)
{
    const auto at = p.indexOf(juce::CharPointer_ASCII(terminator));
    if (at < 0)
        p = p.findTerminatingNull();
    else
        p += at + static_cast<int>(std::strlen(terminator));
}

/** Moves over a start tag from its "<" to past its ">" (or to the end of the text), checking the
    references in its quoted values. False for a "<" inside the tag, an "&" outside its quoted values
    or a bad reference: JUCE's parser gives up on a tag it cannot read and reads the rest of it as
    text, where an "&" is taken as a reference. */
bool skipStartTag(juce::CharPointer_UTF8& p, bool& empty)
{
    empty = false;
    juce::juce_wchar previous = 0;
    for (++p; ! p.isEmpty();)
    {
        const auto c = *p;
        if (c == '<' || c == '&')
            return false;
        if (c == '>')
        {
            empty = previous == '/';
            ++p;
            return true;
        }
        if (c == '"' || c == '\'')
        {
            for (++p; ! p.isEmpty() && *p != c;)
            {
                if (*p == '<')
                    return false;
                if (*p == '&')
                {
                    if (! skipReference(p))
                        return false;
                }
                else
                    ++p;
            }
            if (! p.isEmpty())
                ++p;
            previous = c;
            continue;
        }
        previous = c;
        ++p;
    }
    return true;
}

/** The document's text as JUCE's parser may be given it, or nothing when it must not be parsed.
    The scan follows the markup the way JUCE's parser does: comments, CDATA sections and quoted
    values hide markup, the document ends with its root element. It refuses a document type
    declaration (JUCE expands the entities of one as XML), bad references, and elements nested
    deeper than maximumDepth (JUCE's parser recurses once per level and runs out of stack).
    Processing instructions inside the root element are dropped: JUCE's parser never returns from
    one that text follows, and none of our documents gives them a meaning. */
std::optional<juce::String> checkedText(const juce::String& text, int maximumDepth)
{
    juce::String kept;
    auto keptUpTo = text.getCharPointer();
    int depth = 0;
    for (auto p = text.getCharPointer(); ! p.isEmpty();)
    {
        const auto c = *p;
        if (c == '&')
        {
            if (depth == 0 || ! skipReference(p))
                return std::nullopt;
        }
        else if (c != '<')
        {
            // Only white space may stand beside the root element.
            if (depth == 0 && ! juce::CharacterFunctions::isWhitespace(c))
                return std::nullopt;
            ++p;
        }
        else if (startsWith(p, "<!--"))
        {
            p += 4;
            skipPast(p, "-->");
        }
        else if (startsWith(p, "<![CDATA["))
        {
            if (depth == 0)
                return std::nullopt;
            skipPast(p, "]]>");
        }
        else if (p[1] == '?')
        {
            const auto start = p;
            p += 2;
            skipPast(p, "?>");
            if (depth > 0)
            {
                kept.appendCharPointer(keptUpTo, start);
                keptUpTo = p;
            }
        }
        else if (p[1] == '!')
        {
            return std::nullopt; // a document type or another declaration
        }
        else if (p[1] == '/')
        {
            if (depth == 0)
                return std::nullopt;
            for (p += 2; ! p.isEmpty() && *p != '>'; ++p)
                if (*p == '<')
                    return std::nullopt;
            if (--depth == 0)
                break; // JUCE's parser reads nothing after the root element
            if (! p.isEmpty())
                ++p;
        }
        else
        {
            bool empty = false;
            if (! skipStartTag(p, empty))
                return std::nullopt;
            if (! empty && ++depth > maximumDepth)
                return std::nullopt;
            if (empty && depth == 0)
                break;
        }
    }
    if (kept.isEmpty())
        return text;
    kept.appendCharPointer(keptUpTo);
    return kept;
}
} // namespace

namespace XmlInput
{
juce::String decode(const void* data, size_t size)
{
    if (data == nullptr || size == 0)
        return {};
    const auto* bytes = static_cast<const uint8_t*>(data);
    if (size >= 2 && ((bytes[0] == 0xff && bytes[1] == 0xfe) || (bytes[0] == 0xfe && bytes[1] == 0xff)))
        return decodeUtf16(bytes, size, bytes[0] == 0xfe);

    if (size >= 3 && bytes[0] == 0xef && bytes[1] == 0xbb && bytes[2] == 0xbf)
    {
        bytes += 3;
        size -= 3;
    }
    // The text ends at the first zero byte, as a juce::String does.
    const auto* end = static_cast<const uint8_t*>(std::memchr(bytes, 0, size));
    const auto length = std::min<size_t>(end != nullptr ? static_cast<size_t>(end - bytes) : size, INT_MAX - 1);
    if (! isWellFormedUtf8(bytes, length))
        return {};
    return juce::String::fromUTF8(reinterpret_cast<const char*>(bytes), static_cast<int>(length));
}

bool isParseable(const juce::String& text)
{
    return checkedText(text, maximumDepth).has_value();
}

std::unique_ptr<juce::XmlElement> parse(const juce::String& text, bool headerOnly)
{
    if (text.isEmpty())
        return nullptr;
    const auto checked = checkedText(text, maximumDepth);
    if (! checked.has_value())
        return nullptr;
    juce::XmlDocument document(*checked);
    return document.getDocumentElement(headerOnly);
}

std::unique_ptr<juce::XmlElement> parse(const juce::File& file, bool headerOnly)
{
    if (! file.existsAsFile())
        return nullptr;
    juce::FileInputStream stream(file);
    if (! stream.openedOk())
        return nullptr;
    return parse(stream, headerOnly);
}

bool readAtMost(juce::InputStream& stream, size_t limit, juce::MemoryBlock& bytes)
{
    bytes.reset();
    juce::MemoryOutputStream out(bytes, false);
    char buffer[8192];
    for (;;)
    {
        const int count = stream.read(buffer, static_cast<int>(sizeof(buffer)));
        if (count <= 0)
            return true;
        if (out.getDataSize() + static_cast<size_t>(count) > limit)
        {
            out.reset();
            return false;
        }
        out.write(buffer, static_cast<size_t>(count));
    }
}

std::unique_ptr<juce::XmlElement> parse(juce::InputStream& stream, bool headerOnly)
{
    juce::MemoryBlock bytes;
    if (! readAtMost(stream, maximumDocumentBytes, bytes))
        return nullptr;
    return parse(decode(bytes.getData(), bytes.getSize()), headerOnly);
}

std::unique_ptr<juce::XmlElement> parseBinaryState(const void* data, int size)
{
    // The layout of juce::AudioProcessor::copyXmlToBinary.
    constexpr juce::uint32 magic = 0x21324356;
    if (data == nullptr || size <= 8 || juce::ByteOrder::littleEndianInt(data) != magic)
        return nullptr;
    const auto declared = static_cast<int>(juce::ByteOrder::littleEndianInt(juce::addBytesToPointer(data, 4)));
    if (declared <= 0)
        return nullptr;
    const auto length = std::min(size - 8, declared);
    return parse(decode(juce::addBytesToPointer(data, 8), static_cast<size_t>(length)));
}
} // namespace XmlInput
