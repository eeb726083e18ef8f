#include "SkinPackage.h"

#include "GFXPanel.h"
#include "SkinImage.h"
#include "SkinTypeface.h"
#include "io/XmlInput.h"
#include "io/ZipArchive.h"
#include "plugin/BasePlugin.h"

#include <juce_cryptography/juce_cryptography.h>

SkinPackage::SkinPackage(BasePlugin* p, int kind, const juce::String& skinName, const juce::File& skinsDirectory,
                         const void* packageData, size_t packageSize)
    : plugin(p), sourceKind(kind), name(skinName), directory(skinsDirectory), data(packageData), dataSize(packageSize)
{
}

SkinPackage::~SkinPackage()
{
    // The inner archive reads through the stream: it goes first.
    skinArchive.reset();
    skinStream.reset();
    packageArchive.reset();
}

void SkinPackage::open()
{
    if ((sourceKind != packageFile && sourceKind != packageInMemory) || packageArchive != nullptr ||
        skinStream != nullptr || skinArchive != nullptr)
        return;

    if (sourceKind == packageFile)
    {
        const auto file = directory.getChildFile(name).withFileExtension(fileExtension);
        if (file.getFullPathName().isNotEmpty() && file.existsAsFile())
            packageArchive = std::make_unique<juce::ZipFile>(file);
    }
    else if (data != nullptr)
    {
        packageArchive = std::make_unique<juce::ZipFile>(new juce::MemoryInputStream(data, dataSize, false), true);
    }
    // JUCE reads the central directory when the archive opens: no entries means no archive.
    if (packageArchive == nullptr || packageArchive->getNumEntries() == 0)
    {
        openResult = OpenResult::noPackage;
        return;
    }

    // The digest's text is taken as it stands: a line break after it is a mismatch.
    juce::MemoryBlock digestBytes;
    if (! ZipArchive::readEntry(*packageArchive, name + ".md5", maximumDigestBytes, digestBytes))
    {
        openResult = OpenResult::noDigest;
        return;
    }
    const auto expected = XmlInput::decode(digestBytes.getData(), digestBytes.getSize());

    if (! ZipArchive::readEntry(*packageArchive, name + ".skin", maximumSkinBytes, skinBytes))
    {
        openResult = OpenResult::noSkin;
        return;
    }
    skinStream = std::make_unique<juce::MemoryInputStream>(skinBytes, false);

    const auto digest = juce::MD5(skinBytes.getData(), skinBytes.getSize()).toHexString();
    if (! digest.equalsIgnoreCase(expected))
    {
        openResult = OpenResult::digestMismatch;
        return;
    }
    skinArchive = std::make_unique<juce::ZipFile>(skinStream.get(), false);
    openResult = OpenResult::open;
}

juce::File SkinPackage::folderFile(const juce::String& fileName) const
{
    return directory.getChildFile(name).getChildFile(fileName);
}

bool SkinPackage::readSkinFile(const juce::String& fileName, size_t limit, juce::MemoryBlock& bytes)
{
    bytes.reset();
    switch (sourceKind)
    {
    case resources:
        if (plugin == nullptr)
            return false;
        bytes = plugin->getResources().getData(fileName);
        return ! bytes.isEmpty() && bytes.getSize() <= limit;
    case folder:
    {
        // Only files inside the skin's folder: a name such as "../x" reaches nothing.
        const auto file = folderFile(fileName);
        if (! file.isAChildOf(directory.getChildFile(name)) || ! file.existsAsFile())
            return false;
        juce::FileInputStream stream(file);
        return stream.openedOk() && XmlInput::readAtMost(stream, limit, bytes);
    }
    case packageFile:
    case packageInMemory:
        open();
        return skinArchive != nullptr && ZipArchive::readEntry(*skinArchive, fileName, limit, bytes);
    default:
        return false;
    }
}

std::unique_ptr<juce::XmlElement> SkinPackage::readDocument()
{
    juce::MemoryBlock bytes;
    if (! readSkinFile("skin.xml", XmlInput::maximumDocumentBytes, bytes))
        return nullptr;
    auto root = XmlInput::parse(XmlInput::decode(bytes.getData(), bytes.getSize()));
    if (root == nullptr || ! root->getTagName().equalsIgnoreCase("PluginEditor"))
        return nullptr;

    fonts.clear();
    for (auto* list = root->getFirstChildElement(); list != nullptr; list = list->getNextElement())
    {
        if (! list->getTagName().equalsIgnoreCase("Fonts"))
            continue;
        for (auto* font = list->getFirstChildElement(); font != nullptr; font = font->getNextElement())
        {
            if (! font->getTagName().equalsIgnoreCase("font"))
                continue;
            // "bold" exactly gives bold; any other word, or none, plain.
            const int style = font->getStringAttribute("style") == "bold" ? 1 : 0;
            fonts.add({font->getStringAttribute("typeface"), style, font->getStringAttribute("file"), nullptr});
        }
        break; // only the first font list counts
    }
    return root;
}

const juce::XmlElement* SkinPackage::findMainPanel(const juce::XmlElement& root)
{
    for (auto* panel = root.getFirstChildElement(); panel != nullptr; panel = panel->getNextElement())
        if (panel->getTagName().equalsIgnoreCase("Panel") &&
            panel->getStringAttribute("name").equalsIgnoreCase("MainPanel"))
            return panel;
    return nullptr;
}

std::unique_ptr<juce::Component> SkinPackage::createMainPanel()
{
    const auto root = readDocument();
    const auto* element = root != nullptr ? findMainPanel(*root) : nullptr;
    if (element == nullptr)
        return nullptr;
    auto panel = std::make_unique<GFXPanel>("MainEditorPanel");
    panel->load(*element, *this);
    return panel;
}

juce::Image SkinPackage::getImage(const juce::String& fileName)
{
    juce::MemoryBlock bytes;
    if (fileName.isEmpty() || ! readSkinFile(fileName, SkinImage::maximumFileBytes, bytes))
        return {};
    return SkinImage::decode(bytes);
}

juce::Font SkinPackage::getFont(const juce::String& typefaceName, int style)
{
    for (auto& font : fonts)
    {
        if (font.typefaceName != typefaceName || font.style != style)
            continue;
        if (font.typeface != nullptr)
            return juce::Font(font.typeface);
        juce::MemoryBlock bytes;
        if (sourceKind == resources || ! readSkinFile(font.file, maximumFontBytes, bytes))
            continue;
        auto typeface = SkinTypeface::create(bytes);
        if (typeface == nullptr)
            continue;
        font.typeface = typeface;
        return juce::Font(typeface);
    }
    return {};
}
