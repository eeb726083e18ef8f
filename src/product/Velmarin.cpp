#include "Velmarin.h"

#include "ProductPackageKey.h"
#include "VelmarinEditor.h"
#include "VelmarinParameterManager.h"
#include "VelmarinResources.h"
#include "engine/FrequencyReadout.h"
#include "engine/VelmarinCore.h"
#include "engine/VelmarinParameterIndex.h"

Velmarin::Velmarin(const FolderRule& folders)
    : MarrowgateEffect(new VelmarinParameterManager(), getResources(), folders)
{
}

juce::String Velmarin::getPackageKey() const
{
    return getProductPackageKey();
}

PluginResources Velmarin::getResources()
{
    return PluginResources(&VelmarinResources::getNamedResource);
}

std::unique_ptr<MarrowgateEffectCore> Velmarin::createEffectCore()
{
    return std::make_unique<VelmarinCore>();
}

std::unique_ptr<PluginEditor> Velmarin::createEditor()
{
    return std::make_unique<VelmarinEditor>(*this);
}

void Velmarin::refreshBbdFrequencyDisplay()
{
    float frequency = 0.0f;
    if (isPrepared())
        if (auto* velmarinCore = dynamic_cast<VelmarinCore*>(getCore()))
            frequency = velmarinCore->currentBbdFrequency.load();
    getParameterManager().setString(VelmarinParameter::currentBbdFrequency, bbdFrequencyText(frequency));
}
