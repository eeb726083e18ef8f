#include "SafeFileBatch.h"

#include "SafeFile.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

struct SafeFileBatch::Staged
{
    juce::File target;
    std::unique_ptr<juce::TemporaryFile> temporary; // regular targets
    juce::MemoryBlock bytes;                        // special targets
};

namespace
{
/** Writes every byte to a file that is opened, never created or truncated (a device or a FIFO). */
bool writeInPlace(const juce::File& file, const juce::MemoryBlock& bytes)
{
    const int fd = ::open(file.getFullPathName().toRawUTF8(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const auto* data = static_cast<const char*>(bytes.getData());
    size_t done = 0;
    while (done < bytes.getSize())
    {
        const auto count = ::write(fd, data + done, bytes.getSize() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        done += static_cast<size_t>(count);
    }
    return ::close(fd) == 0 && done == bytes.getSize();
}
} // namespace

SafeFileBatch::SafeFileBatch() = default;
SafeFileBatch::~SafeFileBatch() = default; // temporary files that were not renamed go with it

bool SafeFileBatch::add(const juce::File& target, const void* data, size_t size)
{
    if (target == juce::File())
        return false;
    auto entry = std::make_unique<Staged>();
    if (SafeFile::isSpecialFile(target))
    {
        // Opened by the path given: links such as /dev/stdout name no file to resolve to.
        entry->target = target;
        entry->bytes.append(data, size);
        staged.push_back(std::move(entry));
        return true;
    }
    entry->target = SafeFile::resolveLinks(target);
    if (entry->target.isDirectory())
        return false;

    entry->temporary = std::make_unique<juce::TemporaryFile>(entry->target, juce::TemporaryFile::useHiddenFile);
    {
        juce::FileOutputStream out(entry->temporary->getFile());
        if (! out.openedOk())
            return false;
        if (size > 0 && ! out.write(data, size))
            return false;
        out.flush(); // also syncs the file to disk
        if (out.getStatus().failed())
            return false;
    }
    // The stream does not report a short write (a full disk or a size limit cuts a write short
    // without an error code), so the file's size is the proof that every byte arrived.
    if (entry->temporary->getFile().getSize() != static_cast<juce::int64>(size))
        return false;
    staged.push_back(std::move(entry));
    return true;
}

bool SafeFileBatch::commit()
{
    bool ok = true;
    for (auto& entry : staged)
        if (entry->temporary != nullptr)
            ok = entry->temporary->overwriteTargetFileWithTemporary() && ok;
    for (auto& entry : staged)
        if (entry->temporary == nullptr)
            ok = writeInPlace(entry->target, entry->bytes) && ok;
    staged.clear();
    return ok;
}
