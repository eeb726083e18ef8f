#include "SafeFile.h"

#include "SafeFileBatch.h"

#include <climits>

#include <sys/stat.h>
#include <unistd.h>

namespace SafeFile
{
bool write(const juce::File& target, const void* data, size_t size)
{
    SafeFileBatch batch;
    return batch.add(target, data, size) && batch.commit();
}

bool write(const juce::File& target, const juce::MemoryBlock& data)
{
    return write(target, data.getData(), data.getSize());
}

bool writeText(const juce::File& target, const juce::String& text)
{
    return write(target, text.toRawUTF8(), text.getNumBytesAsUTF8());
}

juce::MemoryBlock xmlDocument(const juce::XmlElement& xml)
{
    juce::MemoryOutputStream document;
    xml.writeTo(document);
    return document.getMemoryBlock();
}

bool writeXml(const juce::File& target, const juce::XmlElement& xml)
{
    return write(target, xmlDocument(xml));
}

juce::File resolveLinks(const juce::File& target)
{
    auto file = target;
    // A loop of links ends where the system's own limit would.
    for (int hops = 0; hops < 40; ++hops)
    {
        char buffer[PATH_MAX];
        const auto length = ::readlink(file.getFullPathName().toRawUTF8(), buffer, sizeof(buffer) - 1);
        if (length <= 0)
            break;
        const auto link = juce::String::fromUTF8(buffer, static_cast<int>(length));
        file = file.getParentDirectory().getChildFile(link);
    }
    return file;
}

bool isSpecialFile(const juce::File& file)
{
    struct stat info = {};
    if (::stat(file.getFullPathName().toRawUTF8(), &info) != 0)
        return false;
    return ! S_ISREG(info.st_mode) && ! S_ISDIR(info.st_mode);
}
} // namespace SafeFile
