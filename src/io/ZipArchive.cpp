#include "ZipArchive.h"

#include "XmlInput.h"

namespace ZipArchive
{
juce::Time entryTime()
{
    // Local time fields: the archive stores them as they are, so every time zone writes the same.
    return juce::Time(2024, 0, 1, 12, 0, 0, 0, true);
}

juce::MemoryBlock write(const std::vector<Entry>& entries)
{
    juce::ZipFile::Builder builder;
    for (const auto& entry : entries)
        builder.addEntry(new juce::MemoryInputStream(entry.bytes, true), entry.compression, entry.name, entryTime());
    juce::MemoryBlock bytes;
    juce::MemoryOutputStream out(bytes, false);
    builder.writeToStream(out, nullptr);
    out.flush();
    return bytes;
}

bool readEntry(juce::ZipFile& zip, const juce::String& entryName, size_t limit, juce::MemoryBlock& bytes)
{
    bytes.reset();
    const int index = zip.getIndexOfFileName(entryName);
    if (index < 0)
        return false;
    std::unique_ptr<juce::InputStream> stream(zip.createStreamForEntry(index));
    return stream != nullptr && XmlInput::readAtMost(*stream, limit, bytes);
}
} // namespace ZipArchive
