#include "PresetChangeNotifier.h"

PresetChangeNotifier::PresetChangeNotifier(std::function<bool()> query) : isChanged(std::move(query)) {}

PresetChangeNotifier::~PresetChangeNotifier()
{
    cancelPendingUpdate();
}

void PresetChangeNotifier::handleAsyncUpdate()
{
    const bool changed = isChanged != nullptr && isChanged();
    if (changed == lastAnswer)
        return;
    lastAnswer = changed;
    // Last first, so that a listener may leave while it is being told.
    for (int i = listeners.size(); --i >= 0;)
        if (i < listeners.size())
            listeners.getUnchecked(i)->presetChangedStateChanged(changed);
}
