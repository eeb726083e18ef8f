#pragma once

// Where one plug-in instance keeps its files. The user folder holds the settings file and the user
// store; the data folder holds what an installation shares between users (factory packages, skins).
//
// The rule: a development build (branch other than "master") uses the folders "<code>_user" and
// "<code>_data" beside the plug-in file when they exist; every other build uses
//   user:  <per-user application data>/Q41 Group/<code>   (~/.config/Q41 Group/Velmarin on Linux)
//   data:  <shared application data>/Q41 Group/<code>     (/opt/Q41 Group/Velmarin on Linux)
//
// An instance is given its rule when it is made: the plug-in's entry gives the rule above; tests,
// benchmarks and the render tool give folders of their own, so that they never read or rewrite a
// user's real settings. Nothing process-wide chooses a folder.

#include <juce_core/juce_core.h>

/** The folder rule an instance follows: a plain value, copied into the instance at start-up.
    A default-made rule is the product's; `fixed` names the folders outright.
    Thread: any thread (a value without shared state). */
class FolderRule
{
public:
    static constexpr const char* vendorFolder = "Q41 Group";

    /** The product's rule. */
    FolderRule() = default;
    /** The given folders whatever the plug-in's file or branch; an empty one follows the rule. */
    static FolderRule fixed(const juce::File& userDirectory, const juce::File& dataDirectory);

    juce::File userDirectory(const juce::String& codeName, const juce::File& pluginFile,
                             const juce::String& branch) const;
    juce::File dataDirectory(const juce::String& codeName, const juce::File& pluginFile,
                             const juce::String& branch) const;

private:
    static juce::File resolve(const juce::String& codeName, const juce::File& pluginFile, const juce::String& branch,
                              bool user);

    juce::File fixedUser;
    juce::File fixedData;
};
