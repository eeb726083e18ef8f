// A skin package (.q41skin): the outer archive, the digest, the inner archive, skin.xml with its
// font list, the images and fonts it names, read as the editor and the skin tool's lint read them.
//
// The first byte chooses what the rest is. Even: a whole package held in memory. Odd: only the
// inner archive, which the body wraps with its correct digest, so that the fuzzer reaches the
// document, images and fonts behind the digest check quickly.
#include "FuzzSupport.h"

#include "gui/skin/SkinLint.h"
#include "gui/skin/SkinPackage.h"
#include "gui/skin/SkinPacker.h"

int fuzzSkinPackage(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const bool wrapped = (data[0] & 1) != 0;
    const juce::MemoryBlock rest(data + 1, size - 1);
    const auto bytes = wrapped ? SkinPacker::wrap("Fuzz", rest) : rest;

    SkinPackage skin(nullptr, SkinPackage::packageInMemory, "Fuzz", {}, bytes.getData(), bytes.getSize());
    const auto root = skin.readDocument();
    if (wrapped)
    {
        // A correctly wrapped archive passes the digest check whatever it holds.
        const auto result = skin.getOpenResult();
        FUZZ_CHECK(result == SkinPackage::OpenResult::open || result == SkinPackage::OpenResult::noPackage);
    }
    (void)skin.getImage("Background.png");
    (void)skin.getImage("Thumbnail.png");
    for (const auto& font : skin.getFonts())
        (void)skin.getFont(font.typefaceName, font.style);

    // What lint passes, the editor loads.
    if (SkinLint::check("Fuzz", bytes).isEmpty())
        FUZZ_CHECK(root != nullptr && SkinPackage::findMainPanel(*root) != nullptr);
    return 0;
}
