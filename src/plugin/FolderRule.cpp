#include "FolderRule.h"

FolderRule FolderRule::fixed(const juce::File& userDirectory, const juce::File& dataDirectory)
{
    FolderRule rule;
    rule.fixedUser = userDirectory;
    rule.fixedData = dataDirectory;
    return rule;
}

juce::File FolderRule::userDirectory(const juce::String& codeName, const juce::File& pluginFile,
                                     const juce::String& branch) const
{
    return fixedUser != juce::File() ? fixedUser : resolve(codeName, pluginFile, branch, true);
}

juce::File FolderRule::dataDirectory(const juce::String& codeName, const juce::File& pluginFile,
                                     const juce::String& branch) const
{
    return fixedData != juce::File() ? fixedData : resolve(codeName, pluginFile, branch, false);
}

juce::File FolderRule::resolve(const juce::String& codeName, const juce::File& pluginFile, const juce::String& branch,
                               bool user)
{
    const auto local = pluginFile.getSiblingFile(codeName + (user ? "_user" : "_data"));
    if (! branch.equalsIgnoreCase("master") && local.isDirectory())
        return local;

    const auto base = user ? juce::File::userApplicationDataDirectory : juce::File::commonApplicationDataDirectory;
    return juce::File::getSpecialLocation(base).getChildFile(vendorFolder).getChildFile(codeName);
}
