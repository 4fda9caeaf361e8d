#include "ui/dlgAbout.h"

#include "version/OrbelanVersion.h"
#include "ui/ScriptedUiServices.h"
#include "TestPrinters.h"

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace orbelan;

namespace {

QString labelText(const QDialog& dialog, const char* name)
{
    const auto* label = dialog.findChild<QLabel*>(name);
    return label != nullptr ? label->text() : QStringLiteral("<no label %1>").arg(name);
}

TEST(dlgAbout, NamesTheProductAndLeavesDescriptionAndDisclaimerEmpty)
{
    const dlgAbout about;
    EXPECT_EQ(about.objectName(), "dlgAbout");
    EXPECT_EQ(about.windowTitle(), "About Orbelan Viewer");
    EXPECT_EQ(labelText(about, "lblTitle"), "Orbelan Viewer");
    EXPECT_EQ(labelText(about, "lblDescription"), "");
    EXPECT_EQ(labelText(about, "lblDisclaimer"), "");
    const auto* cmdOK = about.findChild<QPushButton*>("cmdOK");
    ASSERT_NE(cmdOK, nullptr);
    EXPECT_EQ(cmdOK->text(), "OK");
}

TEST(dlgAbout, ShowsMajorMinorAndRevisionJoinedWithDots)
{
    EXPECT_EQ(labelText(dlgAbout(2, 10, 37), "lblVersion"), "Version 2.10.37");
    const QString own =
        QStringLiteral("Version %1.%2.%3").arg(version::kMajor).arg(version::kMinor).arg(version::kRevision);
    EXPECT_EQ(labelText(dlgAbout(), "lblVersion"), own);
}

TEST(dlgAbout, OnlyCmdOKClearsTheCancelledFlag)
{
    ScriptedUiServices services;
    dlgAbout confirmed;
    EXPECT_TRUE(confirmed.cancelled());
    services.queueDialog({"dlgAbout", {}, "cmdOK"});
    EXPECT_EQ(services.execDialog(confirmed), QDialog::Accepted);
    EXPECT_FALSE(confirmed.cancelled());

    dlgAbout closed;
    EXPECT_EQ(services.execDialog(closed), QDialog::Rejected);
    EXPECT_TRUE(closed.cancelled());
}

} // namespace
