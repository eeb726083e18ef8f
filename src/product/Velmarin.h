#pragma once

#include "plugin/MarrowgateEffect.h"
#include "product/VelmarinVersion.h"

/** The product: an analog BBD stereo flanger. Makes a VelmarinCore and a VelmarinParameterManager
    and answers the product's constants (identity, 28 preset and host parameters, latency 1).
    Thread: as BasePlugin. */
class Velmarin : public MarrowgateEffect
{
public:
    static constexpr int presetParameterCount = 28;

    /** Finds its folders by `folders`: the product's rule unless the maker names its own. */
    explicit Velmarin(const FolderRule& folders = {});

    /** The files embedded in the product's module ("parameters.xml", "default.vmhpmap"). */
    static PluginResources getResources();

    int getLatency() override { return 1; }
    bool autoMapsHostParameters() override { return true; }
    bool supportsPresets() override { return true; }
    /** The preset and host parameters: every row before "Current BBD Frequency". */
    int getParameterCount() override { return presetParameterCount; }
    int getHostParameterCount() override { return presetParameterCount; }
    bool wantsTransport() override { return true; }
    juce::String getDefaultTagCategories() override { return "Type;Modulation;Spatialize"; }
    juce::String getCodeName() const override { return "Velmarin"; }
    juce::String getCodeLetters() const override { return "VM"; }
    juce::String getPresetFileExtension() override { return ".vmprs2"; }
    juce::String getPackageKey() const override;

    juce::String getDescription() const override { return "Analog BBD Stereo Flanger"; }
    juce::String getVersion() const override { return velmarinVersion; }
    juce::String getWebAddress() const override { return "https://q41group.com/velmarin"; }
    juce::String getYear() const override { return "2013"; }
    juce::String getBuildDate() const override { return "2018-06-04"; }
    juce::String getBuildIdentifier() const override { return "velmarin-" + getVersion() + "-linux"; }
    juce::String getBranch() const override { return "master"; }

    /** The editor's periodic read-out of the BBD clock: stores the left line's clock frequency as
        text into "Current BBD Frequency" (empty while unprepared, bypassed or gated). Message thread. */
    void refreshBbdFrequencyDisplay();

    /** Velmarin's skinned editor. */
    std::unique_ptr<PluginEditor> createEditor() override;

protected:
    std::unique_ptr<MarrowgateEffectCore> createEffectCore() override;
};
