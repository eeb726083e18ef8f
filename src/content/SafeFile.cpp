#include "SafeFile.h"

namespace SafeFile
{
bool write(const juce::File& target, const void* data, size_t size)
{
    if (target == juce::File() || target.isDirectory())
        return false;

    const juce::TemporaryFile temporary(target, juce::TemporaryFile::useHiddenFile);
    {
        juce::FileOutputStream out(temporary.getFile());
        if (! out.openedOk())
            return false;
        if (size > 0 && ! out.write(data, size))
            return false;
        out.flush();  // also syncs the file to disk
        if (out.getStatus().failed())
            return false;
    }
    // The stream does not report a short write (a full disk or a size limit cuts a write short
    // without an error code), so the file's size is the proof that every byte arrived.
    if (temporary.getFile().getSize() != static_cast<juce::int64>(size))
        return false;
    // On failure the temporary file's destructor removes it.
    return temporary.overwriteTargetFileWithTemporary();
}

bool write(const juce::File& target, const juce::MemoryBlock& data)
{
    return write(target, data.getData(), data.getSize());
}

bool writeText(const juce::File& target, const juce::String& text)
{
    return write(target, text.toRawUTF8(), text.getNumBytesAsUTF8());
}

bool writeXml(const juce::File& target, const juce::XmlElement& xml)
{
    juce::MemoryOutputStream document;
    xml.writeTo(document);
    return write(target, document.getData(), document.getDataSize());
}
} // namespace SafeFile
