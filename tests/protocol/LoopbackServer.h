#pragma once

#include "Bytes.h"

#include <QObject>
#include <QTcpServer>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

class QTcpSocket;

namespace orbelan::nettest {

// Generous: a limit for waits on loopback, never a timing.
constexpr std::chrono::seconds kWaitLimit(20);

// Runs the event loop until the condition holds or kWaitLimit has passed.
bool waitUntil(const std::function<bool()>& condition);

// A port on 127.0.0.1 that nothing listens on (it was free a moment ago).
quint16 unusedPort();

// The test's end of the connection: a QTcpServer on 127.0.0.1 that accepts
// every connection, keeps what each one received and writes what it is told.
// Connections are numbered from 0 in the order they were accepted.
class LoopbackServer : public QObject {
public:
    // Listens on the given port, or on a free one when it is 0.
    explicit LoopbackServer(quint16 port = 0);

    quint16 port() const { return server_.serverPort(); }
    int connectionCount() const { return static_cast<int>(connections_.size()); }
    bool waitForConnections(int count);

    const Bytes& received(int connection) const;
    bool waitForReceived(int connection, std::size_t count);

    // Writes the bytes and pushes them to the kernel before returning.
    void write(int connection, const Bytes& bytes);
    // Closes the connection from the server's side once written out.
    void drop(int connection);
    // From now on, a connection that has received a whole message (as its
    // header's length says) is answered once: connection n with the nth
    // reply, later ones with the last. For callers that cannot turn the
    // event loop themselves while they wait.
    void answerEachRequest(std::vector<Bytes> replies) { answers_ = std::move(replies); }

private:
    void accept();
    void receive(std::size_t index);

    QTcpServer server_;
    std::vector<QTcpSocket*> connections_;
    std::vector<Bytes> received_;
    std::vector<bool> answered_;
    std::vector<Bytes> answers_;
};

} // namespace orbelan::nettest
