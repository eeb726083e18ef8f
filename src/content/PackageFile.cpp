#include "PackageFile.h"
#include "io/XmlInput.h"
#include "io/ZipArchive.h"

#include <juce_cryptography/juce_cryptography.h>

namespace
{
/** Limits of the two outer entries: a signature is a few hundred bytes, a library some megabytes. */
constexpr size_t maximumHashBytes = 64 * 1024;
constexpr size_t maximumContentBytes = 256 * 1024 * 1024;
} // namespace

bool PackageFile::signatureMatches(const juce::String& signature, const juce::MemoryBlock& content,
                                   const juce::String& publicKey)
{
    const auto text = signature.trim();
    if (text.isEmpty() || text.length() > maximumSignatureLength || ! text.containsOnly("0123456789abcdefABCDEF"))
        return false;
    const juce::RSAKey key(publicKey);
    if (! key.isValid())
        return false;

    juce::BigInteger value;
    value.parseString(text, 16);
    if (value.isZero())
        return false;
    key.applyToValue(value);
    const auto digest = juce::MD5(content.getData(), content.getSize()).toHexString();
    return value.toString(16, 32) == digest;
}

PackageFile::PackageFile(const juce::File& file, const juce::String& publicKey)
{
    if (file == juce::File() || ! file.existsAsFile())
        return;
    outer = std::make_unique<juce::ZipFile>(file);

    juce::MemoryBlock hashBytes;
    if (! ZipArchive::readEntry(*outer, "hash", maximumHashBytes, hashBytes) ||
        ! ZipArchive::readEntry(*outer, "content", maximumContentBytes, contentBytes) ||
        ! signatureMatches(hashBytes.toString(), contentBytes, publicKey))
    {
        outer.reset();
        contentBytes.reset();
        return;
    }

    inner = std::make_unique<juce::ZipFile>(new juce::MemoryInputStream(contentBytes, false), true);
    readDescription();
}

void PackageFile::readDescription()
{
    const int index = indexOf(descriptionEntry);
    auto stream = index >= 0 ? createStream(index) : nullptr;
    if (stream == nullptr)
        return;
    const auto root = XmlInput::parse(*stream);
    if (root == nullptr)
        return;
    product = root->getStringAttribute("product");
    module = root->getStringAttribute("module");
    type = root->getStringAttribute("type");
    name = root->getStringAttribute("name");
    revision = root->getIntAttribute("revision");
    author = root->getStringAttribute("author");
    organization = root->getStringAttribute("organization");
}

juce::String PackageFile::getEntryName(int index) const
{
    const auto* entry = inner != nullptr ? inner->getEntry(index) : nullptr;
    return entry != nullptr ? entry->filename : juce::String();
}

int PackageFile::indexOf(const juce::String& entryName) const
{
    return inner != nullptr ? inner->getIndexOfFileName(entryName) : -1;
}

std::unique_ptr<juce::InputStream> PackageFile::createStream(int index) const
{
    if (inner == nullptr || index < 0 || index >= inner->getNumEntries())
        return nullptr;
    return std::unique_ptr<juce::InputStream>(inner->createStreamForEntry(index));
}
