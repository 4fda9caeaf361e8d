#include "ui/WidgetUiServices.h"

#include "TestPrinters.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <vector>

using namespace orbelan;
using Box = QMessageBox;

namespace {

// What the modal box looked like while it was up.
struct BoxSeen {
    Box::Icon icon = Box::NoIcon;
    QString title;
    QString text;
    Box::StandardButtons buttons;
    Box::StandardButton defaultButton = Box::NoButton;
};

// Once the next message box is up (the timer fires inside its modal loop),
// notes how it looks and clicks `press`. A box without that button is closed
// with another one so that the test fails instead of hanging.
void clickInNextBox(Box::StandardButton press, BoxSeen& seen)
{
    QTimer::singleShot(0, [press, &seen] {
        auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            ADD_FAILURE() << "no modal message box is up";
            return;
        }
        seen = {box->icon(), box->windowTitle(), box->text(), box->standardButtons(),
                box->standardButton(box->defaultButton())};
        QAbstractButton* button = box->button(press);
        EXPECT_NE(button, nullptr) << "the box has no button " << press;
        QTest::mouseClick(button != nullptr ? button : box->buttons().front(), Qt::LeftButton);
    });
}

TEST(WidgetUiServices, ShowsEachButtonSetWithItsFirstButtonAsDefaultAndReportsTheClick)
{
    struct Case {
        MessageButtons set;
        Box::StandardButtons shown;
        Box::StandardButton defaultButton, press;
        MessageAnswer answer;
    };
    const std::vector<Case> cases{
        {MessageButtons::OK, Box::Ok, Box::Ok, Box::Ok, MessageAnswer::OK},
        {MessageButtons::OKCancel, Box::Ok | Box::Cancel, Box::Ok, Box::Cancel, MessageAnswer::Cancel},
        {MessageButtons::AbortRetryIgnore, Box::Abort | Box::Retry | Box::Ignore, Box::Abort, Box::Ignore,
         MessageAnswer::Ignore},
        {MessageButtons::AbortRetryIgnore, Box::Abort | Box::Retry | Box::Ignore, Box::Abort, Box::Abort,
         MessageAnswer::Abort},
        {MessageButtons::YesNoCancel, Box::Yes | Box::No | Box::Cancel, Box::Yes, Box::Yes, MessageAnswer::Yes},
        {MessageButtons::YesNo, Box::Yes | Box::No, Box::Yes, Box::No, MessageAnswer::No},
        {MessageButtons::RetryCancel, Box::Retry | Box::Cancel, Box::Retry, Box::Retry, MessageAnswer::Retry},
    };
    WidgetUiServices services;
    for (const Case& c : cases) {
        SCOPED_TRACE(answerName(c.answer).toStdString());
        BoxSeen seen;
        clickInNextBox(c.press, seen);
        EXPECT_EQ(services.messageBox(nullptr, "Text", c.set, MessageIcon::None, "Caption"), c.answer);
        EXPECT_EQ(seen.buttons, c.shown);
        EXPECT_EQ(seen.defaultButton, c.defaultButton);
    }
}

TEST(WidgetUiServices, ShowsTheCaptionTextAndIcon)
{
    const std::vector<std::pair<MessageIcon, Box::Icon>> icons{
        {MessageIcon::None, Box::NoIcon},         {MessageIcon::Critical, Box::Critical},
        {MessageIcon::Question, Box::Question},   {MessageIcon::Exclamation, Box::Warning},
        {MessageIcon::Information, Box::Information},
    };
    WidgetUiServices services;
    for (const auto& [icon, boxIcon] : icons) {
        BoxSeen seen;
        clickInNextBox(Box::Ok, seen);
        services.messageBox(nullptr, "Acceso Denegado", MessageButtons::OK, icon, "Orbelan Viewer");
        EXPECT_EQ(seen.icon, boxIcon) << iconName(icon).toStdString();
        EXPECT_EQ(seen.title, "Orbelan Viewer");
        EXPECT_EQ(seen.text, "Acceso Denegado");
    }
}

TEST(WidgetUiServices, RunsADialogModallyAndReturnsTheCodeItEndedWith)
{
    WidgetUiServices services;
    QDialog dialog;
    bool wasModal = false;
    QTimer::singleShot(0, [&] {
        wasModal = QApplication::activeModalWidget() == &dialog;
        dialog.done(5);
    });
    EXPECT_EQ(services.execDialog(dialog), 5);
    EXPECT_TRUE(wasModal);
}

} // namespace
