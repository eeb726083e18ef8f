#pragma once

#include <juce_core/juce_core.h>

/** Text answers that identify a build of a plug-in: names, version, dates, format.
    Thread: any; every answer is a constant or derived from one. */
class SoftwareDesignation
{
public:
    virtual ~SoftwareDesignation() = default;

    virtual juce::String getShortName() const = 0;
    virtual juce::String getDescription() const = 0;
    virtual juce::String getVersion() const = 0;
    virtual juce::String getWebAddress() const = 0;
    virtual juce::String getYear() const = 0;
    virtual juce::String getLocation() const = 0;
    virtual juce::String getBuildDate() const = 0;
    virtual juce::String getReservedText() const { return {}; }
    virtual juce::String getBuildIdentifier() const = 0;
    /** The plug-in format the host loaded: "VST3", "LV2" or "Standalone" in this build. */
    virtual juce::String getPluginFormat() const = 0;
    virtual juce::String getWordSize() const = 0;
    virtual juce::String getBranch() const = 0;
    virtual juce::String getFullVersion() const { return getVersion(); }
    virtual juce::String getNumberText() const { return "0"; }
};
