// velmarin-package: makes the package signing key, builds signed preset packages (.q41pkg) and
// verifies them.
//
//   velmarin-package keygen --out KEYFILE [--bits N] [--keep-existing]
//   velmarin-package public-key --key KEYFILE [--cpp FILE.cpp] [--pub FILE.pub]
//   velmarin-package build --key KEYFILE --presets DIR --out FILE.q41pkg [--name N] [--author A]
//                          [--organization O] [--revision R] [--extension .vmprs2]
//   velmarin-package verify --key KEYFILE FILE.q41pkg
//
// A key file holds two lines, "public=e,n" and "private=d,n" (hexadecimal). It is a secret: keep
// it out of the repository. A public key file holds the first line only; `verify` needs no more.
// Keys have at least 2048 bits. Errors print one line on standard error and exit with status 2.
#include "content/PackageBuilder.h"
#include "content/PackageFile.h"
#include "content/PackageKey.h"
#include "io/SafeFile.h"
#include "io/XmlInput.h"

#include <sys/stat.h>

#include <iostream>
#include <map>

namespace
{
int fail(const juce::String& message)
{
    std::cerr << "velmarin-package: " << message << std::endl;
    return 2;
}

constexpr const char* usage =
    "Usage:\n"
    "  velmarin-package keygen --out KEYFILE [--bits N] [--keep-existing]\n"
    "      make a key pair of N bits (at least 2048, the default); an existing KEYFILE is never\n"
    "      overwritten (--keep-existing: leave it and succeed)\n"
    "  velmarin-package public-key --key KEYFILE [--cpp FILE.cpp] [--pub FILE.pub]\n"
    "      write the public half as the plug-in's source file and/or as a public key file\n"
    "  velmarin-package build --key KEYFILE --presets DIR --out FILE.q41pkg [--name N] [--author A]\n"
    "                         [--organization O] [--revision R] [--extension .vmprs2]\n"
    "      sign every preset of DIR into one package\n"
    "  velmarin-package verify --key KEYFILE FILE.q41pkg\n"
    "      check a package's signature; the public key file is enough\n";

/** One line naming what is wrong with a key's size, or empty when it is big enough. */
juce::String keySizeProblem(const juce::String& path, const juce::String& key)
{
    const int bits = packageKeyBits(key);
    if (bits >= minimumPackageKeyBits)
        return {};
    return "the key in " + path + " has " + juce::String(bits) + " bits; package keys need at least " +
           juce::String(minimumPackageKeyBits);
}

struct Arguments
{
    juce::String command;
    std::map<juce::String, juce::String> options;
    juce::StringArray positional;
    bool flag(const juce::String& name) const { return options.count(name) > 0; }
    juce::String get(const juce::String& name, const juce::String& fallback = {}) const
    {
        const auto it = options.find(name);
        return it != options.end() ? it->second : fallback;
    }
};

bool parse(int argc, char* argv[], Arguments& args, juce::String& error)
{
    if (argc < 2)
    {
        error = "missing command (keygen, public-key, build or verify)";
        return false;
    }
    args.command = argv[1];
    for (int i = 2; i < argc; ++i)
    {
        const juce::String arg = juce::String::fromUTF8(argv[i]);
        if (arg == "--keep-existing")
            args.options[arg] = "1";
        else if (arg.startsWith("--"))
        {
            if (i + 1 >= argc)
            {
                error = arg + " needs a value";
                return false;
            }
            args.options[arg] = juce::String::fromUTF8(argv[++i]);
        }
        else
            args.positional.add(arg);
    }
    return true;
}

juce::File fileArgument(const juce::String& path)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile(path);
}

/** Reads a key file; without `needPrivate` a public key file is enough. */
bool readKeyFile(const juce::String& path, juce::String& publicKey, juce::String& privateKey, bool needPrivate = true)
{
    const auto file = fileArgument(path);
    if (path.isEmpty() || ! file.existsAsFile())
        return false;
    juce::StringArray lines;
    file.readLines(lines);
    for (const auto& line : lines)
    {
        if (line.startsWith("public="))
            publicKey = line.fromFirstOccurrenceOf("=", false, false).trim();
        else if (line.startsWith("private="))
            privateKey = line.fromFirstOccurrenceOf("=", false, false).trim();
    }
    return publicKey.contains(",") && (privateKey.contains(",") || ! needPrivate);
}

int keygen(const Arguments& args)
{
    const auto out = fileArgument(args.get("--out"));
    if (args.get("--out").isEmpty())
        return fail("keygen needs --out KEYFILE");
    if (out.exists())
        return args.flag("--keep-existing")
                   ? 0
                   : fail("key file exists and is never overwritten: " + out.getFullPathName());
    const int bits = args.get("--bits", "2048").getIntValue();
    if (bits < minimumPackageKeyBits || bits > 8192)
        return fail("--bits must be from " + juce::String(minimumPackageKeyBits) + " to 8192");

    const auto start = juce::Time::getMillisecondCounterHiRes();
    juce::String publicKey, privateKey;
    PackageBuilder::createKeyPair(bits, publicKey, privateKey);
    const auto seconds = (juce::Time::getMillisecondCounterHiRes() - start) / 1000.0;

    out.getParentDirectory().createDirectory();
    if (! SafeFile::writeText(out, "public=" + publicKey + "\nprivate=" + privateKey + "\n"))
        return fail("cannot write key file " + out.getFullPathName());
    chmod(out.getFullPathName().toRawUTF8(), 0600); // a secret: readable by its owner only
    std::cout << "made a " << bits << "-bit package key in " << juce::String(seconds, 2)
              << " s: " << out.getFullPathName() << std::endl;
    return 0;
}

int publicKeySource(const Arguments& args)
{
    juce::String publicKey, privateKey;
    if (! readKeyFile(args.get("--key"), publicKey, privateKey, false))
        return fail("cannot read key file " + args.get("--key"));
    // The plug-in would refuse such a key at run time: refuse it where the build takes it.
    if (const auto problem = keySizeProblem(args.get("--key"), publicKey); problem.isNotEmpty())
        return fail(problem);
    if (args.get("--cpp").isEmpty() && args.get("--pub").isEmpty())
        return fail("public-key needs --cpp FILE or --pub FILE");
    if (args.get("--pub").isNotEmpty())
    {
        const auto pub = fileArgument(args.get("--pub"));
        const auto line = "public=" + publicKey + "\n";
        pub.getParentDirectory().createDirectory();
        if (! (pub.existsAsFile() && pub.loadFileAsString() == line) && ! SafeFile::writeText(pub, line))
            return fail("cannot write " + pub.getFullPathName());
    }
    if (args.get("--cpp").isEmpty())
        return 0;
    const auto out = fileArgument(args.get("--cpp"));
    const auto text = "// Generated by velmarin-package from the build's package key. Do not edit.\n"
                      "#include <juce_core/juce_core.h>\n\n"
                      "juce::String getProductPackageKey()\n{\n    return \"" +
                      publicKey + "\";\n}\n";
    // Rewritten only when it changes, so that a rebuild does not recompile the plug-in for nothing.
    if (out.existsAsFile() && out.loadFileAsString() == text)
        return 0;
    out.getParentDirectory().createDirectory();
    return SafeFile::writeText(out, text) ? 0 : fail("cannot write " + out.getFullPathName());
}

int build(const Arguments& args)
{
    juce::String publicKey, privateKey;
    if (! readKeyFile(args.get("--key"), publicKey, privateKey))
        return fail("cannot read key file " + args.get("--key"));
    if (const auto problem = keySizeProblem(args.get("--key"), privateKey); problem.isNotEmpty())
        return fail(problem);
    const auto folder = fileArgument(args.get("--presets"));
    if (args.get("--presets").isEmpty() || ! folder.isDirectory())
        return fail("--presets must name a folder of presets");
    if (args.get("--out").isEmpty())
        return fail("build needs --out FILE.q41pkg");
    const auto extension = args.get("--extension", ".vmprs2");

    PackageDescription description;
    description.product = "Velmarin";
    description.module = "Presets";
    description.type = "Factory";
    description.name = args.get("--name", "Velmarin Factory");
    description.revision = args.get("--revision", "1").getIntValue();
    description.author = args.get("--author", "Q41 Group");
    description.organization = args.get("--organization", "Q41 Group Audio Software");
    PackageBuilder builder(description);

    auto files = folder.findChildFiles(juce::File::findFiles, false, "*" + extension);
    // Hidden files (an editor's or a writer's temporary files) are no presets.
    files.removeIf([](const juce::File& file) { return file.getFileName().startsWithChar('.'); });
    files.sort();
    if (files.isEmpty())
        return fail("no " + extension + " files in " + folder.getFullPathName());
    for (const auto& file : files)
    {
        // A broken preset would ship as an empty one: refuse it here instead.
        const auto root = XmlInput::parse(file);
        if (root == nullptr || ! root->hasTagNameIgnoringNamespace("Preset"))
            return fail("not a preset document: " + file.getFullPathName());
        juce::MemoryBlock bytes;
        file.loadFileAsData(bytes);
        builder.addEntry(file.getFileName(), bytes);
    }

    const auto out = fileArgument(args.get("--out"));
    out.getParentDirectory().createDirectory();
    if (! builder.write(out, privateKey))
        return fail("cannot write package " + out.getFullPathName());
    const PackageFile check(out, publicKey);
    if (! check.isValid())
        return fail("the written package does not verify: " + out.getFullPathName());
    std::cout << "packed " << files.size() << " presets into " << out.getFullPathName() << std::endl;
    return 0;
}

int verify(const Arguments& args)
{
    juce::String publicKey, privateKey;
    if (! readKeyFile(args.get("--key"), publicKey, privateKey, false))
        return fail("cannot read key file " + args.get("--key"));
    if (args.positional.size() != 1)
        return fail("verify needs one package file");
    const auto file = fileArgument(args.positional[0]);
    if (! file.existsAsFile())
        return fail((file.isDirectory() ? "a folder, not a package: " : "no such file: ") + args.positional[0]);
    const auto start = juce::Time::getMillisecondCounterHiRes();
    const PackageFile package(file, publicKey);
    const auto milliseconds = juce::Time::getMillisecondCounterHiRes() - start;
    if (! package.isValid())
        return fail("not a package signed with this key: " + args.positional[0]);
    const int entries = package.getNumEntries() - (package.indexOf(PackageFile::descriptionEntry) >= 0 ? 1 : 0);
    std::cout << package.getName() << ": " << entries << " entries, author " << package.getAuthor() << ", checked in "
              << juce::String(milliseconds, 1) << " ms" << std::endl;
    return 0;
}
} // namespace

int main(int argc, char* argv[])
{
    if (argc >= 2 &&
        (juce::String(argv[1]) == "--help" || juce::String(argv[1]) == "-h" || juce::String(argv[1]) == "help"))
    {
        std::cout << usage;
        return 0;
    }
    Arguments args;
    juce::String error;
    if (! parse(argc, argv, args, error))
        return fail(error);
    if (args.command == "keygen")
        return keygen(args);
    if (args.command == "public-key")
        return publicKeySource(args);
    if (args.command == "build")
        return build(args);
    if (args.command == "verify")
        return verify(args);
    return fail("unknown command '" + args.command + "' (keygen, public-key, build or verify)");
}
