#include "PackageBuilder.h"

#include "PackageFile.h"
#include "PackageKey.h"
#include "io/SafeFile.h"
#include "io/ZipArchive.h"

#include <juce_cryptography/juce_cryptography.h>

PackageBuilder::PackageBuilder(PackageDescription d) : description(std::move(d)) {}

void PackageBuilder::addEntry(const juce::String& entryName, const juce::MemoryBlock& bytes)
{
    names.add(entryName);
    contents.add(bytes);
}

juce::MemoryBlock PackageBuilder::buildContent() const
{
    juce::XmlElement desc("PackageDescription");
    desc.setAttribute("product", description.product);
    desc.setAttribute("module", description.module);
    desc.setAttribute("type", description.type);
    desc.setAttribute("name", description.name);
    desc.setAttribute("revision", description.revision);
    desc.setAttribute("author", description.author);
    desc.setAttribute("organization", description.organization);
    const auto descText = desc.toString();

    std::vector<ZipArchive::Entry> entries{
        {PackageFile::descriptionEntry, juce::MemoryBlock(descText.toRawUTF8(), descText.getNumBytesAsUTF8())}};
    for (int i = 0; i < names.size(); ++i)
        entries.push_back({names[i], contents.getReference(i)});
    return ZipArchive::write(entries);
}

juce::String PackageBuilder::sign(const juce::MemoryBlock& content, const juce::String& privateKey)
{
    const juce::RSAKey key(privateKey);
    if (! key.isValid())
        return {};
    juce::BigInteger value;
    value.parseString(juce::MD5(content.getData(), content.getSize()).toHexString(), 16);
    key.applyToValue(value);
    return value.toString(16);
}

bool PackageBuilder::write(const juce::File& target, const juce::String& privateKey) const
{
    if (packageKeyBits(privateKey) < minimumPackageKeyBits)
        return false;
    const auto content = buildContent();
    const auto signature = sign(content, privateKey);
    if (signature.isEmpty())
        return false;

    return SafeFile::write(target, wrap(content, signature));
}

juce::MemoryBlock PackageBuilder::wrap(const juce::MemoryBlock& content, const juce::String& signature)
{
    return ZipArchive::write({{"hash", juce::MemoryBlock(signature.toRawUTF8(), signature.getNumBytesAsUTF8()), 0},
                              {"content", content, 0}});
}

namespace
{
/** A random odd number of exactly `bits` bits from the system's entropy source. */
juce::BigInteger randomOddNumber(int bits, juce::InputStream& entropy)
{
    juce::MemoryBlock bytes(static_cast<size_t>((bits + 7) / 8));
    if (entropy.read(bytes.getData(), static_cast<int>(bytes.getSize())) != static_cast<int>(bytes.getSize()))
    {
        // No entropy source: fall back to JUCE's generator (not for release keys).
        juce::Random random;
        random.setSeedRandomly();
        random.fillBitsRandomly(bytes.getData(), bytes.getSize());
    }
    juce::BigInteger value;
    value.loadFromMemoryBlock(bytes);
    value.setRange(bits, static_cast<int>(bytes.getSize()) * 8 - bits + 1, false);
    value.setBit(bits - 1);
    value.setBit(bits - 2);
    value.setBit(0);
    return value;
}

juce::BigInteger probablePrime(int bits, juce::InputStream& entropy, const juce::BigInteger& exponent)
{
    for (;;)
    {
        auto candidate = randomOddNumber(bits, entropy);
        // The public exponent must have an inverse: p - 1 must not share a factor with it.
        auto quotient = candidate - juce::BigInteger(1);
        juce::BigInteger remainder;
        quotient.divideBy(exponent, remainder);
        if (remainder.isZero())
            continue;
        if (juce::Primes::isProbablyPrime(candidate, 40))
            return candidate;
    }
}
} // namespace

void PackageBuilder::createKeyPair(int bits, juce::String& publicKey, juce::String& privateKey)
{
    // Primes from the system's entropy source with the public exponent 65537.
    juce::FileInputStream entropy(juce::File("/dev/urandom"));
    const juce::BigInteger exponent(65537);
    for (;;)
    {
        const auto p = probablePrime(bits / 2, entropy, exponent);
        const auto q = probablePrime(bits - bits / 2, entropy, exponent);
        if (p == q)
            continue;
        const auto n = p * q;
        const auto phi = (p - juce::BigInteger(1)) * (q - juce::BigInteger(1));
        auto d = exponent;
        d.inverseModulo(phi);
        if (d.isZero())
            continue;
        publicKey = exponent.toString(16) + "," + n.toString(16);
        privateKey = d.toString(16) + "," + n.toString(16);
        return;
    }
}
