#pragma once

// Reader of the signed package format (.q41pkg): an outer ZIP archive with two entries, `hash` (a
// signature as hexadecimal text) and `content` (an inner ZIP archive). The package counts only when
// the signature, opened with the product's public RSA key, equals the MD5 of the inner archive's
// bytes. The inner archive holds `__desc__` (an XML description) and the preset documents.

#include <juce_core/juce_core.h>

/** One package, checked and opened at construction. An unreadable, unsigned, wrongly signed or
    damaged package offers no entries at all; nothing is reported.
    Thread: message thread; belongs to one owner. */
class PackageFile
{
public:
    /** `publicKey` is the text form of a juce::RSAKey ("exponent,modulus" in hexadecimal). */
    PackageFile(const juce::File& file, const juce::String& publicKey);

    bool isValid() const noexcept { return inner != nullptr; }

    /** The inner archive's entries, in archive order. */
    int getNumEntries() const noexcept { return inner != nullptr ? inner->getNumEntries() : 0; }
    juce::String getEntryName(int index) const;
    /** -1 when the inner archive has no entry of that exact name. */
    int indexOf(const juce::String& entryName) const;
    /** A stream on an entry's bytes, or null. */
    std::unique_ptr<juce::InputStream> createStream(int index) const;

    const juce::String& getProduct() const noexcept { return product; }
    const juce::String& getModule() const noexcept { return module; }
    const juce::String& getType() const noexcept { return type; }
    const juce::String& getName() const noexcept { return name; }
    int getRevision() const noexcept { return revision; }
    const juce::String& getAuthor() const noexcept { return author; }
    const juce::String& getOrganization() const noexcept { return organization; }
    juce::Time getOpenTime() const noexcept { return openTime; }

    static constexpr const char* descriptionEntry = "__desc__";
    /** Signature texts longer than this are refused before any arithmetic: a real one is about as
        long as the key's modulus in hexadecimal. */
    static constexpr int maximumSignatureLength = 4096;

    /** Whether `signature` (hexadecimal text) opened with the public key gives the MD5 of `content`. */
    static bool signatureMatches(const juce::String& signature, const juce::MemoryBlock& content,
                                 const juce::String& publicKey);

private:
    void readDescription();

    std::unique_ptr<juce::ZipFile> outer;
    juce::MemoryBlock contentBytes;
    std::unique_ptr<juce::ZipFile> inner;
    juce::String product, module, type, name;
    int revision = 0;
    juce::String author, organization;
    juce::Time openTime{juce::Time::getCurrentTime()};

    JUCE_DECLARE_NON_COPYABLE(PackageFile)
};
