#include "gui/GuiTestSupport.h"
#include "gui/widgets/AlertWindow.h"
#include "gui/widgets/InputTextWindow.h"

#include <gtest/gtest.h>

using guitest::TestDesktop;

namespace
{
struct RecordingCaller : Q41::AlertWindow::Caller
{
    void alertClosed(Q41::AlertWindow& window, int result) override
    {
        results.add(result);
        if (auto* input = dynamic_cast<Q41::InputTextWindow*>(&window))
            texts.add(input->getText());
    }
    juce::Array<int> results;
    juce::StringArray texts;
};

class Dialogs : public ::testing::Test
{
protected:
    DefaultLookAndFeel::Scope look;
    TestDesktop desktop;
    RecordingCaller caller;
};

constexpr int yesNoCancel[] = {Q41::AlertWindow::yes, Q41::AlertWindow::no, Q41::AlertWindow::cancel, -1};
} // namespace

TEST_F(Dialogs, AnAlertIsAtLeast250By120AndGrowsWithItsMessageAlone)
{
    Q41::AlertWindow small(&caller, "A title much longer than the message of this alert", "Hi");
    small.addButton(Q41::AlertWindow::ok, true, true);
    EXPECT_EQ(small.getWidth(), 250);
    EXPECT_EQ(small.getHeight(), 120);

    const juce::String message =
        "The preset \"Jet Stream\" was changed. Do you want to store it before loading another?";
    Q41::AlertWindow wide(&caller, "Short", message);
    wide.addButton(Q41::AlertWindow::ok, false, false);
    const int messageWidth = int(std::ceil(wide.getMessageLabel().getFont().getStringWidthFloat(message)));
    EXPECT_GT(wide.getWidth(), 250);
    EXPECT_EQ(wide.getContentBounds().getWidth(), messageWidth) << "the title does not widen the window";
    EXPECT_GE(wide.getMessageLabel().getWidth(), messageWidth);

    // The buttons stand at the bottom right of the content, 6 apart, 22 high, never overlapping.
    Q41::AlertWindow three(&caller, "Store", message);
    for (const int* code = yesNoCancel; *code >= 0; ++code)
        three.addButton(*code, false, false);
    const auto content = three.getContentBounds();
    auto* last = three.getButton(2);
    EXPECT_EQ(three.getLocalArea(last, last->getLocalBounds()).getRight(), content.getRight());
    EXPECT_EQ(three.getLocalArea(last, last->getLocalBounds()).getBottom(), content.getBottom());
    EXPECT_EQ(three.getButton(1)->getX() - three.getButton(0)->getRight(), Q41::AlertWindow::buttonGap);
    EXPECT_EQ(three.getButton(0)->getHeight(), 22);
    EXPECT_LE(three.getMessageLabel().getBottom() + 10, three.getLocalArea(last, last->getLocalBounds()).getY());
}

TEST_F(Dialogs, AShownAlertReportsTheButtonPressedAndThenGoes)
{
    const int childrenBefore = desktop.getNumChildComponents();
    juce::Component::SafePointer<Q41::AlertWindow> alert = Q41::AlertWindow::showAlert(
        &caller, "Store", "Store the preset?", yesNoCancel, Q41::AlertWindow::cancel, Q41::AlertWindow::yes, &desktop);
    ASSERT_NE(alert, nullptr);
    ASSERT_NE(alert->getCover(), nullptr);
    EXPECT_EQ(alert->getParentComponent(), alert->getCover());
    EXPECT_EQ(alert->getCover()->getParentComponent(), &desktop);
    EXPECT_EQ(alert->getCover()->getBounds(), desktop.getLocalBounds()) << "the cover takes every press";
    EXPECT_LE(alert->getBounds().getCentre().getDistanceFrom(desktop.getLocalBounds().getCentre()), 1);

    guitest::click(*alert->getButton(1));
    EXPECT_EQ(caller.results, juce::Array<int>({Q41::AlertWindow::no}));
    EXPECT_EQ(alert, nullptr) << "deleted once its caller heard the result";
    EXPECT_EQ(desktop.getNumChildComponents(), childrenBefore) << "the cover went with it";

    // Nobody to tell: the alert closes quietly.
    juce::Component::SafePointer<Q41::AlertWindow> quiet =
        Q41::AlertWindow::showAlert(nullptr, "Note", "Nothing to answer", yesNoCancel, -1, -1, &desktop);
    guitest::click(*quiet->getButton(0));
    EXPECT_EQ(quiet, nullptr);
}

TEST_F(Dialogs, EscapeActsOnlyWhereAnEscapeButtonExists)
{
    Q41::AlertWindow noEscape(&caller, "Note", "No way out but the button");
    noEscape.addButton(Q41::AlertWindow::ok, false, true);
    desktop.addChildComponent(noEscape);
    noEscape.show();
    EXPECT_FALSE(noEscape.keyPressed(juce::KeyPress(juce::KeyPress::escapeKey)));
    testsupport::dispatchPendingMessages();
    EXPECT_TRUE(noEscape.isVisible());
    EXPECT_TRUE(caller.results.isEmpty());
    EXPECT_FALSE(noEscape.keyPressed(juce::KeyPress(juce::KeyPress::returnKey))) << "a plain alert leaves Return alone";

    Q41::AlertWindow withEscape(&caller, "Store", "Store?");
    for (const int* code = yesNoCancel; *code >= 0; ++code)
        withEscape.addButton(*code, *code == Q41::AlertWindow::cancel, false);
    desktop.addChildComponent(withEscape);
    withEscape.show();
    EXPECT_TRUE(withEscape.keyPressed(juce::KeyPress(juce::KeyPress::escapeKey)));
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(caller.results, juce::Array<int>({Q41::AlertWindow::cancel}));
    EXPECT_FALSE(withEscape.isVisible());
}

TEST_F(Dialogs, TabMovesInARingOverTheButtonsOnly)
{
    Q41::AlertWindow alert(&caller, "Store", "Store?");
    for (const int* code = yesNoCancel; *code >= 0; ++code)
        alert.addButton(*code, false, false);
    const auto traverser = alert.createKeyboardFocusTraverser();
    auto* first = alert.getButton(0);
    auto* last = alert.getButton(2);
    EXPECT_EQ(traverser->getNextComponent(first), alert.getButton(1));
    EXPECT_EQ(traverser->getNextComponent(last), first) << "Tab from the last wraps to the first";
    EXPECT_EQ(traverser->getPreviousComponent(first), last) << "Shift-Tab from the first wraps to the last";
    EXPECT_EQ(traverser->getNextComponent(&alert.getMessageLabel()), first);
    EXPECT_EQ(traverser->getPreviousComponent(&alert.getMessageLabel()), last);
    EXPECT_EQ(traverser->getAllComponents(&alert).size(), 3u);
}

TEST_F(Dialogs, ModalsStackInCoversOfTheirOwnAndNeedARootForOne)
{
    WindowComponent first, second;
    first.setContentSize(300, 200);
    second.setContentSize(100, 50);
    EXPECT_EQ(second.getWidth(), 250) << "never below 250 by 120";
    EXPECT_EQ(second.getHeight(), 120);
    desktop.addChildComponent(first);
    first.show();
    desktop.addChildComponent(second);
    second.show();
    ASSERT_NE(first.getCover(), second.getCover());
    EXPECT_GT(desktop.getIndexOfChildComponent(second.getCover()), desktop.getIndexOfChildComponent(first.getCover()));

    // The close button hides the window; it shows again in the same cover.
    auto* cover = first.getCover();
    guitest::click(first.getCloseButton());
    EXPECT_FALSE(first.isVisible());
    EXPECT_FALSE(cover->isVisible());
    first.show();
    EXPECT_EQ(first.getCover(), cover);
    EXPECT_GT(desktop.getIndexOfChildComponent(cover), desktop.getIndexOfChildComponent(second.getCover()))
        << "shown again, it comes to the front";

    // The cover follows the root's size and places the window again.
    desktop.setSize(1000, 700);
    EXPECT_EQ(cover->getBounds(), desktop.getLocalBounds());
    EXPECT_LE(first.getBounds().getCentre().getDistanceFrom(desktop.getLocalBounds().getCentre()), 1);

    juce::Component plain;
    WindowComponent loose;
    plain.addChildComponent(loose);
    loose.show();
    EXPECT_TRUE(loose.isVisible()) << "no root: shown where it is";
    EXPECT_EQ(loose.getCover(), nullptr);
    EXPECT_EQ(loose.getParentComponent(), &plain);
}

TEST_F(Dialogs, AnAlertGoesWithTheEditorItStandsIn)
{
    auto editor = std::make_unique<TestDesktop>();
    juce::Component::SafePointer<Q41::AlertWindow> alert =
        Q41::AlertWindow::showAlert(&caller, "Store", "Store?", yesNoCancel, -1, -1, editor.get());
    ASSERT_NE(alert, nullptr);
    editor.reset();
    EXPECT_EQ(alert, nullptr);
    EXPECT_TRUE(caller.results.isEmpty());
}

TEST_F(Dialogs, ButtonTextsAndTheInputWindow)
{
    EXPECT_EQ(Q41::AlertWindow::getButtonText(Q41::AlertWindow::replaceAll), "Replace All");
    EXPECT_EQ(Q41::AlertWindow::getButtonText(Q41::AlertWindow::rename), "Rename");
    EXPECT_EQ(Q41::AlertWindow::getButtonText(12), "");
    EXPECT_EQ(Q41::AlertWindow::getButtonText(-1), "");

    Q41::InputTextWindow input(&caller, "Rename", "Please enter new name", "Jet Stream");
    desktop.addChildComponent(input);
    input.show();
    EXPECT_EQ(input.getNumButtons(), 2);
    EXPECT_EQ(input.getButton(0)->getButtonText(), "OK");
    EXPECT_GE(input.getEditor().getY(), input.getMessageLabel().getBottom() + 4);
    EXPECT_EQ(input.getEditor().getHeight(), 20);

    input.getEditor().setText("Jet Stream 2");
    input.getEditor().keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(caller.results, juce::Array<int>({Q41::AlertWindow::ok}));
    EXPECT_EQ(caller.texts, juce::StringArray("Jet Stream 2"));

    input.show();
    input.getEditor().keyPressed(juce::KeyPress(juce::KeyPress::escapeKey));
    testsupport::dispatchPendingMessages();
    EXPECT_EQ(caller.results.getLast(), Q41::AlertWindow::cancel);
}
