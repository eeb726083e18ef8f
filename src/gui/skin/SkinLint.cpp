#include "SkinLint.h"

#include "ControlWords.h"
#include "SkinImage.h"
#include "SkinPackage.h"
#include "io/XmlInput.h"
#include "plugin/BasePlugin.h"

#include <set>

namespace
{
/** Attributes whose value names an image file of the skin. */
const std::set<juce::String> imageAttributes{"resource", "image", "strip", "background", "digits", "sign"};

juce::String describe(SkinPackage::OpenResult result, const juce::String& skinName)
{
    switch (result)
    {
    case SkinPackage::OpenResult::noPackage:
        return "not a skin package (no readable ZIP archive)";
    case SkinPackage::OpenResult::noDigest:
        return "the package has no entry " + skinName + ".md5";
    case SkinPackage::OpenResult::noSkin:
        return "the package has no entry " + skinName + ".skin";
    case SkinPackage::OpenResult::digestMismatch:
        return "the digest in " + skinName + ".md5 does not match " + skinName + ".skin";
    default:
        return {};
    }
}

/** The frame count an element declares for its image, if it declares one. */
std::optional<int> declaredFrames(const juce::XmlElement& element)
{
    for (const char* attribute : {"framesNum", "frames"})
        if (element.hasAttribute(attribute))
            return element.getIntAttribute(attribute);
    return std::nullopt;
}

juce::StringArray checkPackage(SkinPackage& package, const juce::String& skinName, const BasePlugin* plugin)
{
    package.open();
    if (package.getOpenResult() != SkinPackage::OpenResult::open)
        return {describe(package.getOpenResult(), skinName)};

    juce::MemoryBlock documentBytes;
    if (! package.readSkinFile("skin.xml", XmlInput::maximumDocumentBytes, documentBytes))
        return {"the skin has no skin.xml"};
    const auto root = XmlInput::parse(XmlInput::decode(documentBytes.getData(), documentBytes.getSize()));
    if (root == nullptr)
        return {"skin.xml is not a well-formed document"};
    if (! root->getTagName().equalsIgnoreCase("PluginEditor"))
        return {"skin.xml: the root element is <" + root->getTagName() + ">, not <PluginEditor>"};

    juce::StringArray problems;
    if (SkinPackage::findMainPanel(*root) == nullptr)
        problems.add("skin.xml: no <Panel name=\"MainPanel\">");

    std::set<juce::String> reported;
    const auto checkImage = [&](const juce::XmlElement& element, const juce::String& attribute)
    {
        const auto fileName = element.getStringAttribute(attribute);
        // Each image once for each frame count it is cut into.
        const auto key = fileName + "\n" + juce::String(declaredFrames(element).value_or(1));
        if (fileName.isEmpty() || ! reported.insert(key).second)
            return;
        juce::MemoryBlock bytes;
        if (! package.readSkinFile(fileName, SkinImage::maximumFileBytes, bytes))
        {
            problems.add("<" + element.getTagName() + " " + attribute + "=\"" + fileName +
                         "\">: the skin has no file " + fileName);
            return;
        }
        const auto image = SkinImage::decode(bytes);
        if (! image.isValid())
        {
            problems.add(fileName + ": not a PNG, JPEG or GIF image within " + juce::String(SkinImage::maximumSide) +
                         " pixels a side");
            return;
        }
        if (const auto frames = declaredFrames(element))
        {
            if (*frames <= 0)
                problems.add("<" + element.getTagName() + " " + attribute + "=\"" + fileName +
                             "\">: " + juce::String(*frames) + " frames (read as 1)");
            else if (image.getHeight() % *frames != 0)
                problems.add(fileName + ": height " + juce::String(image.getHeight()) + " is not divided by " +
                             juce::String(*frames) + " frames");
        }
    };

    const auto checkBindings = [&](const juce::XmlElement& element)
    {
        if (element.getTagName().equalsIgnoreCase("link"))
        {
            const auto name = element.getStringAttribute("param");
            if (element.getStringAttribute("as") != "connectedTo")
                problems.add("<link param=\"" + name + "\">: as=\"" + element.getStringAttribute("as") +
                             "\" binds nothing (only \"connectedTo\" does)");
            else if (plugin != nullptr && plugin->getParameterManager().getParameter(name) == nullptr)
                problems.add("<link param=\"" + name + "\">: the plug-in has no parameter of that name");
        }
        else if (element.getTagName().equalsIgnoreCase("action") && plugin != nullptr &&
                 plugin->getEvents().getUid(element.getStringAttribute("event")) < 0)
        {
            problems.add("<action event=\"" + element.getStringAttribute("event") +
                         "\">: the plug-in has no event of that name");
        }
    };

    const std::function<void(const juce::XmlElement&)> walk = [&](const juce::XmlElement& element)
    {
        checkBindings(element);
        if (element.getTagName().equalsIgnoreCase("controls"))
            for (auto* control = element.getFirstChildElement(); control != nullptr;
                 control = control->getNextElement())
                if (! ControlWords::isKnown(control->getTagName()))
                    problems.add("<" + control->getTagName() + ">: not a control the panel builder knows; skipped");
        for (int i = 0; i < element.getNumAttributes(); ++i)
            if (imageAttributes.count(element.getAttributeName(i)) != 0)
                checkImage(element, element.getAttributeName(i));
        // The skin's font list: a control's own `font` element names a typeface, not a file.
        if (element.getTagName().equalsIgnoreCase("Fonts"))
            for (auto* font = element.getFirstChildElement(); font != nullptr; font = font->getNextElement())
            {
                if (! font->getTagName().equalsIgnoreCase("font"))
                    continue;
                const auto fileName = font->getStringAttribute("file");
                juce::MemoryBlock bytes;
                if (fileName.isEmpty())
                    problems.add("<font typeface=\"" + font->getStringAttribute("typeface") + "\">: no file");
                else if (! package.readSkinFile(fileName, SkinPackage::maximumFontBytes, bytes))
                    problems.add("<font file=\"" + fileName + "\">: the skin has no file " + fileName);
            }
        for (auto* child = element.getFirstChildElement(); child != nullptr; child = child->getNextElement())
            walk(*child);
    };
    walk(*root);
    return problems;
}
} // namespace

namespace SkinLint
{
juce::StringArray check(const juce::File& packageFile, const BasePlugin* plugin)
{
    const auto skinName = packageFile.getFileNameWithoutExtension();
    if (! packageFile.existsAsFile())
        return {"no such file"};
    // The editor finds a package only by its extension.
    if (packageFile.getFileExtension() != SkinPackage::fileExtension)
        return {juce::String("not a ") + SkinPackage::fileExtension + " file"};
    SkinPackage package(nullptr, SkinPackage::packageFile, skinName, packageFile.getParentDirectory());
    return checkPackage(package, skinName, plugin);
}

juce::StringArray check(const juce::String& skinName, const juce::MemoryBlock& bytes, const BasePlugin* plugin)
{
    SkinPackage package(nullptr, SkinPackage::packageInMemory, skinName, {}, bytes.getData(), bytes.getSize());
    return checkPackage(package, skinName, plugin);
}
} // namespace SkinLint
