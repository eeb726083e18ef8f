#pragma once

// Where one plug-in instance keeps its files. The user folder holds the settings file and the user
// store; the data folder holds what an installation shares between users (factory packages, skins).
//
// The rule: a development build (branch other than "master") uses the folders "<code>_user" and
// "<code>_data" beside the plug-in file when they exist; every other build uses
//   user:  <per-user application data>/Q41 Group/<code>   (~/.config/Q41 Group/Velmarin on Linux)
//   data:  <shared application data>/Q41 Group/<code>     (/opt/Q41 Group/Velmarin on Linux)
//
// The seam: a folder given to `setOverride`, or else the environment variables
// "<CODE>_USER_DIR" and "<CODE>_DATA_DIR" (VELMARIN_USER_DIR, VELMARIN_DATA_DIR), replace the
// rule's answer. Tests, the render tool, the build's LV2 description step and plug-in validation
// use it so that they never read or rewrite a user's real settings.

#include <juce_core/juce_core.h>

/** The folder rule and its seam. Thread: the override is set before instances are created (it is
    guarded by a lock, so a late call is safe, but instances that already started keep theirs). */
class FolderRule
{
public:
    static constexpr const char* vendorFolder = "Q41 Group";

    /** Replaces the two folders for instances created from now on; an empty file restores the
        environment variables or the rule for that folder. */
    static void setOverride(const juce::File& userDirectory, const juce::File& dataDirectory);

    static juce::File userDirectory(const juce::String& codeName, const juce::File& pluginFile, const juce::String& branch);
    static juce::File dataDirectory(const juce::String& codeName, const juce::File& pluginFile, const juce::String& branch);

private:
    static juce::File resolve(const juce::String& codeName, const juce::File& pluginFile, const juce::String& branch,
                              bool user);
};
