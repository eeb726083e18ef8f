#include "SkinTypeface.h"

#include <ft2build.h>
#include FT_FREETYPE_H

namespace
{
bool hasCharacterMap(const juce::MemoryBlock& bytes)
{
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0)
        return false;
    FT_Face face = nullptr;
    const bool usable = FT_New_Memory_Face(library, static_cast<const FT_Byte*>(bytes.getData()),
                                           static_cast<FT_Long>(bytes.getSize()), 0, &face) == 0 &&
                        face != nullptr && face->num_charmaps > 0 && face->charmaps != nullptr;
    if (face != nullptr)
        FT_Done_Face(face);
    FT_Done_FreeType(library);
    return usable;
}
} // namespace

namespace SkinTypeface
{
juce::Typeface::Ptr create(const juce::MemoryBlock& fontBytes)
{
    if (fontBytes.isEmpty() || ! hasCharacterMap(fontBytes))
        return nullptr;
    auto typeface = juce::Typeface::createSystemTypefaceFor(fontBytes.getData(), fontBytes.getSize());
    return typeface != nullptr && typeface->getName().isNotEmpty() ? typeface : nullptr;
}
} // namespace SkinTypeface
