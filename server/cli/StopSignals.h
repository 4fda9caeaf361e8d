#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <memory>

namespace orbelan::server {

// Turns SIGTERM and SIGINT into a Qt signal, so that the server stops from
// its event loop, where it may still write and close things, instead of
// inside a signal handler. The handler only writes the signal's number to a
// pipe, which is all a handler may safely do.
class StopSignals : public QObject {
    Q_OBJECT

public:
    explicit StopSignals(QObject* parent = nullptr);
    ~StopSignals() override;

    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

signals:
    // name: "SIGTERM" or "SIGINT".
    void stopRequested(const QString& name);

private:
    void readSignal();

    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace orbelan::server
