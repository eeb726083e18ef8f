#include "Velmarin.h"

#include "../engine/VelmarinCore.h"
#include "../parameters/VelmarinParameterManager.h"

Velmarin::Velmarin()
    : MarrowgateEffect(new VelmarinParameterManager())
{
}

std::unique_ptr<MarrowgateEffectCore> Velmarin::createEffectCore()
{
    return std::make_unique<VelmarinCore>();
}
