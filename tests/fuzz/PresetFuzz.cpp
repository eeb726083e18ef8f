// A preset document (.vmprs2): read from a stream as a package entry is, whole and header-only, and
// through a file as the user store does.
#include "FuzzSupport.h"

#include "content/Preset.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

namespace
{
bool sameHeader(const Preset& a, const Preset& b)
{
    return a.getName() == b.getName() && a.getAuthor() == b.getAuthor() && a.getId() == b.getId() &&
           a.getApplication() == b.getApplication() && a.getCategory() == b.getCategory() &&
           a.getVersion() == b.getVersion() && a.getRating() == b.getRating() && a.isRatingSet() == b.isRatingSet() &&
           a.getTags() == b.getTags();
}

bool sameValues(const Preset& a, const Preset& b)
{
    if (a.getNumValues() != b.getNumValues())
        return false;
    for (int i = 0; i < a.getNumValues(); ++i)
        if (a.getValue(i).index != b.getValue(i).index || a.getValue(i).value != b.getValue(i).value)
            return false;
    return true;
}
} // namespace

int fuzzPreset(const uint8_t* data, size_t size)
{
    const auto& manager = fuzz::sharedProcessor().getPlugin().getParameterManager();

    juce::MemoryInputStream wholeStream(data, size, false);
    const Preset whole(wholeStream, manager, false, "Fuzz");
    juce::MemoryInputStream headerStream(data, size, false);
    const Preset header(headerStream, manager, true, "Fuzz");

    // A browser scan sees the same description as a load, whenever the whole document is readable.
    FUZZ_CHECK(header.getNumValues() == 0);
    Preset unread;
    unread.setName("Fuzz");
    if (whole.getNumValues() > 0 || ! sameHeader(whole, unread))
        FUZZ_CHECK(sameHeader(whole, header));

    // Written to a file and read back, a preset is the same preset.
    static const auto file = fuzz::scratchFile("Fuzz.vmprs2");
    FUZZ_CHECK(whole.saveToFile(file, manager));
    Preset reread;
    reread.loadFromFile(file, manager, false);
    FUZZ_CHECK(sameHeader(whole, reread));
    FUZZ_CHECK(sameValues(whole, reread));

    Preset scanned;
    scanned.loadFromFile(file, manager, true);
    FUZZ_CHECK(sameHeader(whole, scanned));
    return 0;
}
