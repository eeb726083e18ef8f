#include "ModalTextEditor.h"

ModalTextEditor::ModalTextEditor()
{
    setMultiLine(false);
    setSelectAllWhenFocused(true);
    addListener(this);
}

ModalTextEditor::~ModalTextEditor()
{
    removeListener(this);
}

void ModalTextEditor::commit()
{
    if (ended)
        return;
    ended = true;
    const auto text = getText();
    // Listeners may delete the editor: the list is copied and this is not touched afterwards.
    const auto listeners = modalListeners;
    for (auto* listener : listeners)
        listener->modalTextCommitted(*this, text);
}

void ModalTextEditor::cancel()
{
    if (ended)
        return;
    ended = true;
    const auto listeners = modalListeners;
    for (auto* listener : listeners)
        listener->modalTextCancelled(*this);
}
