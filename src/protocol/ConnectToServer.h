#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace orbelan {

class Socket;

// Opens the connection if the socket is closed, closing or failed, and waits
// for it with the event loop running (so other events of the control, reply
// handling included, may run meanwhile). True when the socket is connected or
// open within the limit; false on the limit or at once on a socket error.
// A socket that is resolving, connecting or connected is not touched: the
// routine only waits, and the host and port given are then not used.
bool ConnectToServer(Socket& socket, const QString& host, quint16 port,
                     std::chrono::milliseconds limit = std::chrono::seconds(60));

// Lets the event loop run until done(socket.State()) holds or the limit has
// passed (on a monotonic clock), waking on every state change; returns the
// final done(State()).
bool waitForSocketState(Socket& socket, const std::function<bool(int state)>& done,
                        std::chrono::milliseconds limit);

} // namespace orbelan
