#include "ComponentSearch.h"

namespace ComponentSearch
{
juce::Component* findByName(juce::Component& root, const juce::String& name)
{
    for (auto* child : root.getChildren())
        if (child->getName() == name)
            return child;
    for (auto* child : root.getChildren())
        if (auto* found = findByName(*child, name))
            return found;
    return nullptr;
}
} // namespace ComponentSearch
