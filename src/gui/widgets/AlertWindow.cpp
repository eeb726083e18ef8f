#include "AlertWindow.h"

namespace Q41
{
namespace
{
constexpr float messageFontHeight = 15.0f;
} // namespace

juce::String AlertWindow::getButtonText(int code)
{
    static const char* const texts[] = {"Cancel",  "No",      "Yes",  "OK",          "Overwrite", "SaveAs",
                                        "Discard", "Replace", "Skip", "Replace All", "Skip All",  "Rename"};
    if (code < 0 || code >= int(std::size(texts)))
        return {};
    return texts[code];
}

AlertWindow::AlertWindow(Caller* c, const juce::String& title, const juce::String& message) : caller(c)
{
    setTitle(title);
    setWantsKeyboardFocus(true);
    messageLabel.setText(message, juce::dontSendNotification);
    messageLabel.setJustificationType(juce::Justification::centredLeft);
    if (auto* methods = dynamic_cast<HardLabel::LookAndFeelMethods*>(&getLookAndFeel()))
        messageLabel.setFont(methods->getHardLabelFont(messageFontHeight));
    else
        messageLabel.setFont(juce::Font(messageFontHeight));
    addAndMakeVisible(messageLabel);
    addAndMakeVisible(buttonRow);
    layoutContents();
}

AlertWindow::~AlertWindow()
{
    cancelPendingUpdate();
    if (followedRoot != nullptr)
        followedRoot->removeComponentListener(this);
}

void AlertWindow::addButton(int code, bool escape, bool returnKey)
{
    auto button = std::make_unique<juce::TextButton>(getButtonText(code));
    button->changeWidthToFitText(buttonHeight);
    button->setWantsKeyboardFocus(true);
    const int index = int(buttons.size());
    button->onClick = [this, index] { buttonPressed(index); };
    buttonRow.addAndMakeVisible(*button);
    if (escape)
        escapeButton = button.get();
    if (returnKey)
        returnButton = button.get();
    buttons.push_back(std::move(button));
    codes.push_back(code);
    layoutContents();
}

juce::TextButton* AlertWindow::getButton(int index) const
{
    return index >= 0 && index < int(buttons.size()) ? buttons[size_t(index)].get() : nullptr;
}

int AlertWindow::getButtonCode(int index) const
{
    return index >= 0 && index < int(codes.size()) ? codes[size_t(index)] : cancel;
}

void AlertWindow::layoutContents()
{
    const auto font = messageLabel.getFont();
    juce::StringArray lines;
    lines.addLines(messageLabel.getText());
    float textWidth = 0.0f;
    for (const auto& line : lines)
        textWidth = juce::jmax(textWidth, font.getStringWidthFloat(line));
    const int textHeight = int(std::ceil(font.getHeight() * float(juce::jmax(1, lines.size()))));

    int rowWidth = 0;
    for (const auto& button : buttons)
        rowWidth += button->getWidth() + (rowWidth > 0 ? buttonGap : 0);
    buttonRow.setSize(rowWidth, buttonHeight);

    setContentSize(juce::jmax(int(std::ceil(textWidth)), rowWidth),
                   buttonHeight + 20 + textHeight + getExtraContentHeight());
    messageArea = {0, 0, 0, textHeight};
    resized();
}

void AlertWindow::resized()
{
    WindowComponent::resized();
    const auto content = getContentBounds();
    buttonRow.setBounds(content.getRight() - buttonRow.getWidth(), content.getBottom() - buttonHeight,
                        buttonRow.getWidth(), buttonHeight);
    int x = 0;
    for (const auto& button : buttons)
    {
        button->setTopLeftPosition(x, 0);
        x += button->getWidth() + buttonGap;
    }
    const int extra = getExtraContentHeight();
    const auto aboveRow = content.withTrimmedBottom(buttonHeight + 10);
    messageArea = aboveRow.withTrimmedBottom(extra);
    messageLabel.setBounds(messageArea);
    layoutExtraContent(aboveRow.withTop(messageArea.getBottom()));
}

void AlertWindow::buttonPressed(int index)
{
    hide();
    const juce::Component::SafePointer<AlertWindow> self(this);
    if (caller != nullptr)
        caller->alertClosed(*this, getButtonCode(index));
    if (self != nullptr && ownsItself)
        juce::MessageManager::callAsync([self] { delete self.getComponent(); });
}

bool AlertWindow::keyPressed(const juce::KeyPress& key)
{
    if (key == juce::KeyPress::escapeKey && escapeButton != nullptr)
    {
        escapeButton->triggerClick();
        return true;
    }
    return false;
}

std::unique_ptr<juce::ComponentTraverser> AlertWindow::createKeyboardFocusTraverser()
{
    return std::make_unique<FocusTraverser>(*this);
}

void AlertWindow::handleAsyncUpdate()
{
    auto* target = returnButton != nullptr ? returnButton : getButton(0);
    if (target != nullptr && target->isShowing())
        target->grabKeyboardFocus();
}

void AlertWindow::componentBeingDeleted(juce::Component& component)
{
    // The editor the alert stands in goes: the alert goes with it.
    if (&component == followedRoot.getComponent() && ownsItself)
    {
        component.removeComponentListener(this);
        followedRoot = nullptr;
        delete this;
    }
}

void AlertWindow::deleteWhenClosed(juce::Component* rootToFollow)
{
    ownsItself = true;
    followedRoot = rootToFollow;
    if (rootToFollow != nullptr)
        rootToFollow->addComponentListener(this);
}

AlertWindow* AlertWindow::showAlert(Caller* caller, const juce::String& title, const juce::String& message,
                                    const int* buttonCodes, int escapeCode, int returnCode, juce::Component* parent)
{
    auto* alert = new AlertWindow(caller, title, message);
    for (const int* code = buttonCodes; code != nullptr && *code >= 0; ++code)
        alert->addButton(*code, *code == escapeCode, *code == returnCode);

    if (parent == nullptr)
        if (auto* callerComponent = dynamic_cast<juce::Component*>(caller))
        {
            parent = callerComponent;
            for (auto* c = callerComponent; c != nullptr; c = c->getParentComponent())
                if (dynamic_cast<ModalComponent::Desktop*>(c) != nullptr)
                    parent = c;
        }
    if (parent != nullptr)
        parent->addChildComponent(alert);
    alert->show();
    alert->deleteWhenClosed(alert->getRoot() != nullptr ? alert->getRoot() : parent);
    alert->triggerAsyncUpdate();
    return alert;
}

juce::Component* AlertWindow::FocusTraverser::getNextComponent(juce::Component* current)
{
    const int count = owner.getNumButtons();
    if (count == 0)
        return nullptr;
    for (int i = 0; i < count - 1; ++i)
        if (owner.getButton(i) == current)
            return owner.getButton(i + 1);
    return owner.getButton(0);
}

juce::Component* AlertWindow::FocusTraverser::getPreviousComponent(juce::Component* current)
{
    const int count = owner.getNumButtons();
    if (count == 0)
        return nullptr;
    for (int i = 1; i < count; ++i)
        if (owner.getButton(i) == current)
            return owner.getButton(i - 1);
    return owner.getButton(count - 1);
}

juce::Component* AlertWindow::FocusTraverser::getDefaultComponent(juce::Component*)
{
    return owner.getButton(0);
}

std::vector<juce::Component*> AlertWindow::FocusTraverser::getAllComponents(juce::Component*)
{
    std::vector<juce::Component*> all;
    for (int i = 0; i < owner.getNumButtons(); ++i)
        all.push_back(owner.getButton(i));
    return all;
}
} // namespace Q41
