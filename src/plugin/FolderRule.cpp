#include "FolderRule.h"

namespace
{
juce::CriticalSection overrideLock;
juce::File userOverride;
juce::File dataOverride;
} // namespace

void FolderRule::setOverride(const juce::File& userDirectory, const juce::File& dataDirectory)
{
    const juce::ScopedLock lock(overrideLock);
    userOverride = userDirectory;
    dataOverride = dataDirectory;
}

juce::File FolderRule::userDirectory(const juce::String& codeName, const juce::File& pluginFile, const juce::String& branch)
{
    return resolve(codeName, pluginFile, branch, true);
}

juce::File FolderRule::dataDirectory(const juce::String& codeName, const juce::File& pluginFile, const juce::String& branch)
{
    return resolve(codeName, pluginFile, branch, false);
}

juce::File FolderRule::resolve(const juce::String& codeName, const juce::File& pluginFile, const juce::String& branch,
                               bool user)
{
    {
        const juce::ScopedLock lock(overrideLock);
        const auto& chosen = user ? userOverride : dataOverride;
        if (chosen != juce::File())
            return chosen;
    }

    const auto variable = codeName.toUpperCase() + (user ? "_USER_DIR" : "_DATA_DIR");
    const auto fromEnvironment = juce::SystemStats::getEnvironmentVariable(variable, {});
    if (fromEnvironment.isNotEmpty())
        return juce::File::getCurrentWorkingDirectory().getChildFile(fromEnvironment);

    const auto local = pluginFile.getSiblingFile(codeName + (user ? "_user" : "_data"));
    if (! branch.equalsIgnoreCase("master") && local.isDirectory())
        return local;

    const auto base = user ? juce::File::userApplicationDataDirectory : juce::File::commonApplicationDataDirectory;
    return juce::File::getSpecialLocation(base).getChildFile(vendorFolder).getChildFile(codeName);
}
