// velmarin-skingen: draws the shipped skins and the about window's logos.
//
//   velmarin-skingen skins PARAMETERS.XML FONTS OUT   Big.q41skin and Small.q41skin into OUT
//   velmarin-skingen files PARAMETERS.XML FONTS OUT   the same skins as loose files, OUT/Big and
//                                                     OUT/Small (a skin folder, to look at or edit)
//   velmarin-skingen logos FONTS OUT                  Q41Logo.png and PluginLogo.png into OUT
//
// PARAMETERS.XML is the product's parameter definitions (names, items, defaults); FONTS the folder
// of the DejaVu fonts and their licence. The same sources always give the same bytes.
//
// Exit status: 0 when all was written, 1 when something could not be read or written, 2 for a
// wrong command line. Every error is one line on standard error.
#include "SkinBuilder.h"

#include "io/SafeFile.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdio>

namespace
{
constexpr const char* usage = "usage: velmarin-skingen skins|files PARAMETERS.XML FONTS OUT | velmarin-skingen logos "
                              "FONTS OUT";

int fail(const juce::String& message, int status)
{
    std::fprintf(stderr, "velmarin-skingen: %s\n", message.toRawUTF8());
    return status;
}

juce::File argumentFile(const juce::String& argument)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile(argument);
}

int skins(const juce::String& definitions, const juce::String& fontArgument, const juce::String& outArgument,
          bool loose)
{
    const SkinBuilder::ParameterTable parameters(argumentFile(definitions));
    if (! parameters.valid())
        return fail("cannot read the parameter definitions " + definitions, 1);
    const auto fontFolder = argumentFile(fontArgument);
    const SkinArt::Fonts fonts(fontFolder);
    if (! fonts.valid())
        return fail("no DejaVu fonts in " + fontFolder.getFullPathName(), 1);
    const auto out = argumentFile(outArgument);
    if (! out.createDirectory())
        return fail("cannot make the folder " + out.getFullPathName(), 1);

    for (const auto* size : {&SkinLayout::bigSkin(), &SkinLayout::smallSkin()})
    {
        const auto files = SkinBuilder::build(*size, parameters, fonts, fontFolder);
        if (loose)
        {
            const auto folder = out.getChildFile(size->name);
            folder.deleteRecursively();
            folder.createDirectory();
            for (const auto& [name, bytes] : files)
                if (! SafeFile::write(folder.getChildFile(name), bytes))
                    return fail("cannot write " + folder.getChildFile(name).getFullPathName(), 1);
            std::printf("%s: %zu files\n", folder.getFullPathName().toRawUTF8(), files.size());
            continue;
        }
        juce::String error;
        const auto package = SkinBuilder::package(files, size->name, error);
        if (! package)
            return fail(error, 1);
        const auto file = out.getChildFile(size->name + ".q41skin");
        if (! SafeFile::write(file, *package))
            return fail("cannot write " + file.getFullPathName(), 1);
        std::printf("%s: %zu bytes\n", file.getFullPathName().toRawUTF8(), package->getSize());
    }
    return 0;
}

int logos(const juce::String& fontArgument, const juce::String& outArgument)
{
    const SkinArt::Fonts fonts(argumentFile(fontArgument));
    if (! fonts.valid())
        return fail("no DejaVu fonts in " + argumentFile(fontArgument).getFullPathName(), 1);
    const auto out = argumentFile(outArgument);
    for (const auto& [name, image] :
         {std::pair{"Q41Logo.png", SkinArt::q41Logo(fonts)}, std::pair{"PluginLogo.png", SkinArt::pluginLogo(fonts)}})
    {
        const auto file = out.getChildFile(name);
        if (! SafeFile::write(file, SkinBuilder::png(image)))
            return fail("cannot write " + file.getFullPathName(), 1);
        std::printf("%s\n", file.getFullPathName().toRawUTF8());
    }
    return 0;
}
} // namespace

int main(int argc, char* argv[])
{
    juce::StringArray args;
    for (int i = 1; i < argc; ++i)
        args.add(juce::CharPointer_UTF8(argv[i]));

    const juce::ScopedJuceInitialiser_GUI juce;
    if (args.size() == 4 && (args[0] == "skins" || args[0] == "files"))
        return skins(args[1], args[2], args[3], args[0] == "files");
    if (args.size() == 3 && args[0] == "logos")
        return logos(args[1], args[2]);
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h"))
    {
        std::printf("%s\n", usage);
        return 0;
    }
    return fail(usage, 2);
}
