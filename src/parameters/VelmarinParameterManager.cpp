#include "VelmarinParameterManager.h"

juce::String VelmarinParameterManager::format(const Parameter& parameter)
{
    return ParameterManager::format(parameter);
}

ParameterFormatter* VelmarinParameterManager::getFormatter(int index)
{
    switch (index)
    {
        case 0: case 2: case 3: case 4: case 6: case 7: case 11: case 12:
        case 14: case 15: case 18: case 21: case 23: case 24: case 26: case 27:
            return this;
        default:
            return nullptr;
    }
}
