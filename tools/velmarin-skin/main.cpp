// velmarin-skin: builds skin packages and checks them.
//
//   velmarin-skin pack DIR OUT.q41skin   package the files of DIR as the skin named OUT's base name
//   velmarin-skin lint FILE...           one line per problem of each package; "FILE: ok" for none
//                                        (links and actions checked against Velmarin's parameters
//                                        and events)
//
// Exit status: 0 when all went well, 1 when lint found a problem or a pack failed, 2 for a wrong
// command line. Every error is one line on standard error.
#include "gui/skin/SkinLint.h"
#include "gui/skin/SkinPackage.h"
#include "gui/skin/SkinPacker.h"
#include "io/SafeFile.h"
#include "plugin/BasePlugin.h"
#include "product/VelmarinProcessor.h"

#include <cstdio>

namespace
{
constexpr const char* usage = "usage: velmarin-skin pack DIR OUT.q41skin | velmarin-skin lint FILE...";

int fail(const juce::String& message, int status)
{
    std::fprintf(stderr, "velmarin-skin: %s\n", message.toRawUTF8());
    return status;
}

juce::File argumentFile(const juce::String& argument)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile(argument);
}

int lintWith(const juce::StringArray& files, const BasePlugin* plugin);

int pack(const juce::String& folderArgument, const juce::String& outArgument)
{
    const auto out = argumentFile(outArgument);
    if (out.getFileExtension() != SkinPackage::fileExtension || out.getFileNameWithoutExtension().isEmpty())
        return fail("the package must be named NAME" + juce::String(SkinPackage::fileExtension) + ": " + outArgument,
                    2);
    juce::String error;
    const auto bytes = SkinPacker::pack(argumentFile(folderArgument), out.getFileNameWithoutExtension(), error);
    if (! bytes)
        return fail(error, 1);
    if (! SafeFile::write(out, *bytes))
        return fail("cannot write " + out.getFullPathName(), 1);
    std::printf("%s: %zu bytes\n", out.getFullPathName().toRawUTF8(), bytes->getSize());
    return 0;
}

int lint(const juce::StringArray& files)
{
    // A Velmarin instance in folders of its own, for its parameter and event definitions only.
    const auto folder = juce::File::getSpecialLocation(juce::File::tempDirectory)
                            .getNonexistentChildFile("velmarin-skin-" + juce::Uuid().toDashedString(), {}, false);
    int status = 0;
    {
        const juce::ScopedJuceInitialiser_GUI juce;
        VelmarinProcessor velmarin(FolderRule::fixed(folder.getChildFile("user"), folder.getChildFile("data")));
        status = lintWith(files, &velmarin.getPlugin());
    }
    folder.deleteRecursively();
    return status;
}

int lintWith(const juce::StringArray& files, const BasePlugin* plugin)
{
    int status = 0;
    for (const auto& argument : files)
    {
        const auto problems = SkinLint::check(argumentFile(argument), plugin);
        for (const auto& problem : problems)
            std::printf("%s: %s\n", argument.toRawUTF8(), problem.toRawUTF8());
        if (problems.isEmpty())
            std::printf("%s: ok\n", argument.toRawUTF8());
        else
            status = 1;
    }
    return status;
}
} // namespace

int main(int argc, char* argv[])
{
    juce::StringArray args;
    for (int i = 1; i < argc; ++i)
        args.add(juce::CharPointer_UTF8(argv[i]));

    if (args.size() == 3 && args[0] == "pack")
        return pack(args[1], args[2]);
    if (args.size() >= 2 && args[0] == "lint")
        return lint(juce::StringArray(args.begin() + 1, args.size() - 1));
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h"))
    {
        std::printf("%s\n", usage);
        return 0;
    }
    return fail(usage, 2);
}
