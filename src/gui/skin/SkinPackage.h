#pragma once

// A skin, and the one object through which every control of the editor fetches its images and
// fonts while the skin loads.
//
// A skin lies in one of four kinds of source:
//   resources        skin.xml and its files embedded in the plug-in's own module (the product
//                    embeds none; kept for products and tests that do)
//   folder           the files of the skin in the folder <directory>/<name>, for skin authors
//   packageFile      the package <directory>/<name>.q41skin, what the product opens
//   packageInMemory  the same package held in memory (tests, fuzzing)
//
// A package is a ZIP archive holding <name>.skin, a ZIP archive of the skin's files, and
// <name>.md5, the MD5 digest of <name>.skin as hexadecimal text. A package whose digest does not
// match behaves as absent: its skin.xml and images are never read. This is an integrity check
// against damaged downloads, not a signature.
//
// Nothing is cached between packages: each package made for one load reads its files anew, and
// each getImage decodes again. Within one package the archives are opened once, by the first
// getter that needs them (`open`).

#include "SkinFont.h"
#include "gui/core/SkinContext.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

/** Thread: message thread. Made on the stack for one skin load (or one row of the skin list). */
class SkinPackage : public SkinContext
{
public:
    enum SourceKind
    {
        resources = 0,
        folder = 1,
        packageFile = 2,
        packageInMemory = 3
    };

    /** The extension of a package file. */
    static constexpr const char* fileExtension = ".q41skin";

    /** `data` and `dataSize` describe the whole package for packageInMemory and must outlive this. */
    SkinPackage(BasePlugin* plugin, int sourceKind, const juce::String& name, const juce::File& directory,
                const void* data = nullptr, size_t dataSize = 0);
    ~SkinPackage() override;

    /** Opens the outer and the inner archive of a package and checks the digest. Does nothing for
        the other kinds, nor once the outer archive was opened: repeated calls are free. */
    void open();

    /** The skin's main panel, built with all its controls, as a new component owned by the caller
        (named "MainEditorPanel"); null when the skin does not load (no document, another root, no
        main panel). */
    std::unique_ptr<juce::Component> createMainPanel();

    /** The skin's document when its root is the editor's ("PluginEditor", any case), or null. Fills
        `fonts` from the document's font list. */
    std::unique_ptr<juce::XmlElement> readDocument();
    /** The first "Panel" child of the root named "MainPanel" (names of both ignoring case), or null. */
    static const juce::XmlElement* findMainPanel(const juce::XmlElement& root);

    BasePlugin* getPlugin() const override { return plugin; }
    juce::Image getImage(const juce::String& fileName) override;
    juce::Font getFont(const juce::String& typefaceName, int style) override;

    /** How far `open` came with a package. */
    enum class OpenResult
    {
        notOpened,      // not a package kind, or not asked yet
        noPackage,      // no file, or not a ZIP archive
        noDigest,       // the package has no <name>.md5
        noSkin,         // the package has no <name>.skin (or it is too large)
        digestMismatch, // the digest does not match <name>.skin
        open            // the inner archive is open
    };
    OpenResult getOpenResult() const noexcept { return openResult; }

    /** The bytes of a file of the skin from its source, read in bounded pieces; false when absent
        or larger than `limit`. */
    bool readSkinFile(const juce::String& fileName, size_t limit, juce::MemoryBlock& bytes);
    const juce::Array<SkinFont>& getFonts() const noexcept { return fonts; }

    /** Bounds of what a package may hold: a skin's archive of images, one document. */
    static constexpr size_t maximumSkinBytes = 256 * 1024 * 1024;
    static constexpr size_t maximumDigestBytes = 4096;
    static constexpr size_t maximumFontBytes = 16 * 1024 * 1024;

private:
    juce::File folderFile(const juce::String& fileName) const;

    BasePlugin* plugin;
    int sourceKind;
    juce::String name;
    juce::File directory;
    std::unique_ptr<juce::ZipFile> skinArchive;
    std::unique_ptr<juce::ZipFile> packageArchive;
    /** The inner archive's bytes, read whole once: the inner archive reads through this stream
        (seeking as ZIP reading needs) and does not own it. */
    std::unique_ptr<juce::InputStream> skinStream;
    juce::MemoryBlock skinBytes;
    const void* data;
    size_t dataSize;
    juce::Array<SkinFont> fonts;
    OpenResult openResult = OpenResult::notOpened;

    JUCE_DECLARE_NON_COPYABLE(SkinPackage)
};
