#pragma once

// Writer of the signed package format that PackageFile reads: the description and the preset
// documents go into an inner ZIP archive; its MD5, signed with the private RSA key, goes into the
// outer archive as `hash`, beside the inner archive as `content`. Used by the package tool and by
// tests; the plug-in itself only reads packages.

#include <juce_core/juce_core.h>

/** The attributes of a package's `__desc__` document. */
struct PackageDescription
{
    juce::String product, module, type, name;
    int revision = 1;
    juce::String author, organization;
};

/** Collects entries and writes one signed package. Thread: one owner. */
class PackageBuilder
{
public:
    explicit PackageBuilder(PackageDescription description);

    /** Adds an entry of the inner archive, in order. */
    void addEntry(const juce::String& entryName, const juce::MemoryBlock& bytes);
    /** Writes the package atomically (through a temporary file). False when the key is not a
        valid private key text, has fewer than minimumPackageKeyBits bits, or the write failed. */
    bool write(const juce::File& target, const juce::String& privateKey) const;

    /** The inner archive's bytes: `__desc__` first, then the entries in the order added. */
    juce::MemoryBlock buildContent() const;
    /** The outer archive: the signature text as `hash`, the inner archive as `content`. */
    static juce::MemoryBlock wrap(const juce::MemoryBlock& content, const juce::String& signature);
    /** The signature of the content's MD5 as lower-case hexadecimal. Any key size: tests and the
        fuzz targets sign with small keys of their own that no build trusts. */
    static juce::String sign(const juce::MemoryBlock& content, const juce::String& privateKey);
    /** A new key pair of `bits` bits as key texts ("exponent,modulus" and "private exponent,modulus"). */
    static void createKeyPair(int bits, juce::String& publicKey, juce::String& privateKey);

private:
    PackageDescription description;
    juce::StringArray names;
    juce::Array<juce::MemoryBlock> contents;
};
