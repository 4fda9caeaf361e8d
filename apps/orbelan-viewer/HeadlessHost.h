#pragma once

#include "login/login.h"
#include "orbelan-viewer/LoginWait.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <ostream>

class QLabel;
class QSocketNotifier;

namespace orbelan {

class ScriptedUiServices;
class Viewer;

// Runs a Viewer without a window for scripts, batch snapshots and end-to-end
// tests: it executes one command per input line, in order, and prints one
// line per event the control raises and per message box, dialog or pop-up
// menu it opens. The grammar is documented in the README.
class HeadlessHost : public QObject {
    Q_OBJECT

public:
    HeadlessHost(Viewer& viewer, ScriptedUiServices& ui, std::ostream& out);

    // Reads commands from standard input as they come; the host quits at its end.
    void readStandardInput();
    // Runs the commands of a file; the host quits after the last one.
    bool readFile(const QString& path);
    // Waits until the map has loaded and every reply is in, then saves the
    // control's image. False, with an error line, when that takes longer
    // than the given seconds or the image cannot be written.
    bool snapshotWhenLoaded(const QString& path, int seconds);
    // Logs in with the host's login control and prints its LoginResponse as
    // an event line; nothing, after an error line, when no answer came.
    std::optional<LoginResult> logIn(const QString& host, int port, const QString& user, const QString& password);
    // Logs in at the control's server and, accepted, gives the control the
    // user and the map (as applyLogin chooses it); false after an error line.
    bool logInControl(const QString& user, const QString& password, std::optional<int> map);

protected:
    // Reports the control's tooltip each time its box comes into view.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Command = std::function<void(const QStringList& arguments)>;

    void addCommands();
    void reportEvents();
    void enqueue(const QString& line);
    void readAvailableInput();
    void drain();
    void execute(const QString& line);
    bool invokeViewerMethod(const QString& name, const QStringList& arguments);
    void quit();

    void show(const QStringList& arguments);
    void hide(const QStringList& arguments);
    void sleep(const QStringList& arguments);
    void waitIdle(const QStringList& arguments);
    void snapshot(const QStringList& arguments);
    void answer(const QStringList& arguments);
    void queueDialog(const QStringList& arguments);
    void clickMenuItem(const QStringList& arguments);
    void mouse(const QStringList& arguments);
    void key(const QStringList& arguments);
    void setProperty(const QStringList& arguments);
    void getProperty(const QStringList& arguments);
    void printView(const QStringList& arguments);
    void printLayers(const QStringList& arguments);
    void setLayerVisibility(const QStringList& arguments);
    void editInfo(const QStringList& arguments);
    void checkLogin(const QStringList& arguments);
    void exportImage(const QStringList& arguments);

    bool saveImage(const QString& path);
    bool failureShown() const;
    void print(const QString& line);
    void error(const QString& message);

    Viewer& viewer_;
    ScriptedUiServices& ui_;
    login login_;
    std::ostream& out_;
    // Taken at the start, as the filter also sees the box's events while
    // the control is being destroyed.
    QObject* toolTipBox_ = nullptr;
    const QLabel* toolTipLabel_ = nullptr;
    std::map<QString, Command> commands_;
    std::deque<QString> pending_;
    QByteArray partialLine_;
    QSocketNotifier* input_ = nullptr;
    bool inputEnded_ = false;
    bool running_ = false;
    bool quitting_ = false;
};

} // namespace orbelan
