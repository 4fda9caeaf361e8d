#include "ScriptedUiServices.h"

#include "TestPrinters.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace orbelan;
using enum MessageAnswer;

namespace {

// A form with one field of every kind a script can fill. cmdOK accepts only
// when txtName is filled; otherwise it warns through the services and stays
// open, as the component's forms validate.
class ScriptedForm : public QDialog {
public:
    explicit ScriptedForm(UiServices& services)
    {
        setObjectName("dlgScripted");
        setWindowTitle("Scripted form");
        cboKind->addItems({"Point", "Line", "Polygon", "1"});
        cboTyped->setEditable(true);
        cboTyped->addItems({"Alpha", "Beta"});
        chkBold->setCheckable(true);
        spnCount->setRange(0, 10);
        spnScale->setRange(0.0, 100.0);
        cmdDisabled->setEnabled(false);
        connect(cmdOK, &QPushButton::clicked, this, [this, &services] {
            if (txtName->text().isEmpty())
                services.messageBox(this, "Name is required", MessageButtons::OK, MessageIcon::Exclamation,
                                    windowTitle());
            else
                accept();
        });
        connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
        connect(cmdDone, &QPushButton::clicked, this, [this] { done(7); });
    }

    void reject() override
    {
        ++rejectCalls;
        QDialog::reject();
    }

    template <typename Widget>
    Widget* add(const char* name)
    {
        auto* widget = new Widget(this);
        widget->setObjectName(name);
        return widget;
    }

    QLineEdit* txtName = add<QLineEdit>("txtName");
    QTextEdit* txtNotes = add<QTextEdit>("txtNotes");
    QPlainTextEdit* txtLog = add<QPlainTextEdit>("txtLog");
    QComboBox* cboKind = add<QComboBox>("cboKind");
    QComboBox* cboTyped = add<QComboBox>("cboTyped");
    QCheckBox* chkBold = add<QCheckBox>("chkBold");
    QSpinBox* spnCount = add<QSpinBox>("spnCount");
    QDoubleSpinBox* spnScale = add<QDoubleSpinBox>("spnScale");
    QLabel* lblHint = add<QLabel>("lblHint");
    QPushButton* cmdHelp = add<QPushButton>("cmdHelp");
    QPushButton* cmdDisabled = add<QPushButton>("cmdDisabled");
    QPushButton* cmdOK = add<QPushButton>("cmdOK");
    QPushButton* cmdCancel = add<QPushButton>("cmdCancel");
    QPushButton* cmdDone = add<QPushButton>("cmdDone");
    int rejectCalls = 0;
};

class ScriptedUiServicesTest : public ::testing::Test {
protected:
    MessageAnswer ask(MessageButtons buttons)
    {
        return services.messageBox(nullptr, "Question", buttons, MessageIcon::Question, "Orbelan");
    }

    // Runs the form with one script holding a single field.
    void runWith(const QString& field, const QString& value)
    {
        services.queueDialog({{{field, value}, {"txtName", "Ann"}}, "cmdOK"});
        services.execDialog(form);
    }

    // The text of the error a script raises, or "" when it runs through.
    std::string scriptError(const DialogScript& script)
    {
        services.queueDialog(script);
        try {
            services.execDialog(form);
        } catch (const std::invalid_argument& error) {
            return error.what();
        }
        return {};
    }

    ScriptedUiServices services;
    ScriptedForm form{services};
};

// --- message boxes ---------------------------------------------------------

TEST_F(ScriptedUiServicesTest, WithNothingQueuedEveryBoxGetsTheFirstButtonOfItsSet)
{
    EXPECT_EQ(ask(MessageButtons::OK), OK);
    EXPECT_EQ(ask(MessageButtons::OKCancel), OK);
    EXPECT_EQ(ask(MessageButtons::AbortRetryIgnore), Abort);
    EXPECT_EQ(ask(MessageButtons::YesNoCancel), Yes);
    EXPECT_EQ(ask(MessageButtons::YesNo), Yes);
    EXPECT_EQ(ask(MessageButtons::RetryCancel), Retry);
}

TEST_F(ScriptedUiServicesTest, QueuedAnswersAreUsedInOrderAndOneTheBoxLacksWaitsAtTheFront)
{
    services.queueAnswer(No);
    services.queueAnswer(Cancel);
    // Cancel is one of this box's buttons, but No is first in line.
    EXPECT_EQ(ask(MessageButtons::OKCancel), OK);
    EXPECT_EQ(services.queuedAnswers(), 2u);
    EXPECT_EQ(ask(MessageButtons::YesNoCancel), No);
    EXPECT_EQ(ask(MessageButtons::RetryCancel), Cancel);
    EXPECT_EQ(services.queuedAnswers(), 0u);
    EXPECT_EQ(ask(MessageButtons::YesNo), Yes);
}

TEST_F(ScriptedUiServicesTest, EveryBoxIsRecordedAndObservedWithTheAnswerItGot)
{
    std::vector<ShownMessage> observed;
    services.setMessageObserver([&observed](const ShownMessage& shown) { observed.push_back(shown); });
    services.queueAnswer(No);
    services.messageBox(nullptr, "Acceso Denegado", MessageButtons::OK, MessageIcon::Critical, "Orbelan Viewer");
    services.messageBox(nullptr, "Save?", MessageButtons::YesNoCancel, MessageIcon::Question, "Orbelan");

    ASSERT_EQ(services.messages().size(), 2u);
    const ShownMessage& first = services.messages()[0];
    EXPECT_EQ(first.icon, MessageIcon::Critical);
    EXPECT_EQ(first.caption, "Orbelan Viewer");
    EXPECT_EQ(first.text, "Acceso Denegado");
    EXPECT_EQ(first.buttons, MessageButtons::OK);
    EXPECT_EQ(first.answer, OK);
    ASSERT_EQ(observed.size(), 2u);
    EXPECT_EQ(observed[1].text, "Save?");
    EXPECT_EQ(observed[1].answer, No);
}

// --- filling dialogs -------------------------------------------------------

TEST_F(ScriptedUiServicesTest, AScriptFillsEveryKindOfFieldAndClicksItsButton)
{
    services.queueDialog({{{"txtName", "Ann"},
                           {"txtNotes", "two\nlines"},
                           {"txtLog", "log"},
                           {"cboKind", "Polygon"},
                           {"cboTyped", "Gamma"},
                           {"chkBold", "-1"},
                           {"spnCount", "7"},
                           {"spnScale", "12.5"}},
                          "cmdOK"});

    EXPECT_EQ(services.execDialog(form), QDialog::Accepted);
    EXPECT_EQ(form.txtName->text(), "Ann");
    EXPECT_EQ(form.txtNotes->toPlainText(), "two\nlines");
    EXPECT_EQ(form.txtLog->toPlainText(), "log");
    EXPECT_EQ(form.cboKind->currentIndex(), 2);
    EXPECT_EQ(form.cboTyped->currentText(), "Gamma");
    EXPECT_TRUE(form.chkBold->isChecked());
    EXPECT_EQ(form.spnCount->value(), 7);
    EXPECT_DOUBLE_EQ(form.spnScale->value(), 12.5);
}

TEST_F(ScriptedUiServicesTest, AComboTakesAnItemTextFirstAndOtherwiseAZeroBasedIndex)
{
    runWith("cboKind", "1"); // an item is called "1"
    EXPECT_EQ(form.cboKind->currentIndex(), 3);
    runWith("cboKind", "2");
    EXPECT_EQ(form.cboKind->currentText(), "Polygon");
    runWith("cboKind", "0");
    EXPECT_EQ(form.cboKind->currentText(), "Point");
}

TEST_F(ScriptedUiServicesTest, AValueTheFieldCannotTakeIsRefused)
{
    const std::vector<std::pair<QString, QString>> refused{
        {"cboKind", "line"}, {"cboKind", "4"},     {"cboKind", "-1"},  {"chkBold", "checked"},
        {"spnCount", "11"},  {"spnCount", "3.5"},  {"spnCount", "x"},  {"spnScale", "100.5"},
    };
    for (const auto& [field, value] : refused)
        EXPECT_NE(scriptError({{{field, value}}, "cmdOK"}).find(field.toStdString()), std::string::npos)
            << field.toStdString() << " = " << value.toStdString();
}

TEST_F(ScriptedUiServicesTest, ScriptingMistakesThrowNamingWhatIsWrong)
{
    EXPECT_NE(scriptError({{{"txtMissing", "x"}}, "cmdOK"}).find("txtMissing"), std::string::npos);
    EXPECT_NE(scriptError({{}, "cmdNowhere"}).find("cmdNowhere"), std::string::npos);
    EXPECT_NE(scriptError({{}, ""}), "");
    EXPECT_NE(scriptError({{{"", "x"}}, "cmdOK"}), "");
    EXPECT_NE(scriptError({{}, "cmdDisabled"}).find("disabled"), std::string::npos);
    EXPECT_NE(scriptError({{{"cmdHelp", "1"}}, "cmdOK"}).find("cmdHelp"), std::string::npos);
    EXPECT_NE(scriptError({{{"lblHint", "x"}}, "cmdOK"}).find("QLabel"), std::string::npos);
}

TEST_F(ScriptedUiServicesTest, AMisspeltNameLeavesEveryFieldAsItWas)
{
    // cboKind sorts before the misspelt names, so it would be filled first.
    scriptError({{{"cboKind", "Line"}, {"txtNmae", "Ann"}}, "cmdOK"});
    scriptError({{{"cboKind", "Line"}}, "cmdOk"});
    EXPECT_EQ(form.cboKind->currentIndex(), 0);
}

// --- ending dialogs --------------------------------------------------------

TEST_F(ScriptedUiServicesTest, TheResultIsWhatTheClickedButtonEndedTheDialogWith)
{
    services.queueDialog({{}, "cmdDone"});
    services.queueDialog({{}, "cmdCancel"});
    EXPECT_EQ(services.execDialog(form), 7);
    EXPECT_EQ(services.execDialog(form), QDialog::Rejected);
    EXPECT_EQ(form.rejectCalls, 1);
    // Without a script the dialog's own reject() closes it.
    EXPECT_EQ(services.execDialog(form), QDialog::Rejected);
    EXPECT_EQ(form.rejectCalls, 2);
}

TEST_F(ScriptedUiServicesTest, AClickThatLeavesTheDialogOpenIsFollowedByTheNextScript)
{
    services.queueDialog({{}, "cmdOK"});
    services.queueDialog({{{"txtName", "Ann"}}, "cmdOK"});
    services.queueDialog({{}, "cmdDone"});

    EXPECT_EQ(services.execDialog(form), QDialog::Accepted);
    ASSERT_EQ(services.messages().size(), 1u);
    EXPECT_EQ(services.messages()[0].text, "Name is required");
    EXPECT_EQ(services.queuedDialogs(), 1u);
}

TEST_F(ScriptedUiServicesTest, ADialogStillOpenWhenTheScriptsRunOutIsRejected)
{
    services.queueDialog({{}, "cmdOK"});
    EXPECT_EQ(services.execDialog(form), QDialog::Rejected);
    EXPECT_EQ(form.rejectCalls, 1);
}

TEST_F(ScriptedUiServicesTest, DialogsAreObservedAsTheyOpenAndNeverShown)
{
    std::vector<ShownDialog> observed;
    QString nameWhenObserved = "not observed";
    services.setDialogObserver([&](const ShownDialog& shown) {
        observed.push_back(shown);
        nameWhenObserved = form.txtName->text();
    });
    services.queueDialog({{{"txtName", "Ann"}}, "cmdOK"});
    services.execDialog(form);

    ASSERT_EQ(observed.size(), 1u);
    EXPECT_EQ(observed[0].objectName, "dlgScripted");
    EXPECT_EQ(observed[0].caption, "Scripted form");
    EXPECT_EQ(nameWhenObserved, "");
    EXPECT_EQ(services.dialogs().size(), 1u);
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible()) << window->metaObject()->className();
}

} // namespace
