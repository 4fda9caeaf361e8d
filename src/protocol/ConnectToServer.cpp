#include "protocol/ConnectToServer.h"

#include "protocol/Socket.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace orbelan {

namespace {

// A failed socket is re-opened as well as a closed or closing one, so that a
// request sent after a failed connection attempt tries again instead of
// waiting out the limit on a socket that will never connect.
bool needsOpening(int state)
{
    return state == kSocketClosed || state == kSocketClosing || state == kSocketError;
}

bool isUsable(int state)
{
    return state == kSocketConnected || state == kSocketOpen;
}

// Milliseconds a single wait may sleep: the time left, within what QTimer takes.
int sliceOf(std::chrono::milliseconds limit, const QElapsedTimer& clock)
{
    constexpr qint64 longest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp<qint64>(limit.count() - clock.elapsed(), 0, longest));
}

} // namespace

bool ConnectToServer(Socket& socket, const QString& host, quint16 port, std::chrono::milliseconds limit)
{
    if (needsOpening(socket.State())) {
        socket.Close();
        socket.setRemoteHost(host);
        socket.setRemotePort(port);
        socket.Connect();
    }
    waitForSocketState(socket, [](int state) { return isUsable(state) || state == kSocketError; }, limit);
    return isUsable(socket.State());
}

bool waitForSocketState(Socket& socket, const std::function<bool(int state)>& done,
                        std::chrono::milliseconds limit)
{
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    QTimer alarm;
    alarm.setSingleShot(true);
    QObject::connect(&alarm, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(&socket, &Socket::StateChanged, &loop, &QEventLoop::quit);
    while (!done(socket.State()) && clock.elapsed() < limit.count()) {
        alarm.start(sliceOf(limit, clock));
        loop.exec();
    }
    return done(socket.State());
}

} // namespace orbelan
