#pragma once

// Folders for the instances of tests that need none of their own. The test run's HOME is a private
// temporary folder (TestMain.cpp), which keeps the product's user folder away from a user's real
// settings; the product's data folder, though, is the machine's shared one, where an installation
// may have put skins and factory packages. These folders keep both inside the private HOME.

#include "plugin/FolderRule.h"

#include <juce_core/juce_core.h>

namespace testsupport
{
inline FolderRule privateFolders()
{
    const juce::File home(juce::SystemStats::getEnvironmentVariable("HOME", {}));
    return FolderRule::fixed(home.getChildFile("instance-user"), home.getChildFile("instance-data"));
}
} // namespace testsupport
