#pragma once

#include <QObject>
#include <QString>
#include <QTcpSocket>

#include <cstdint>
#include <span>
#include <vector>

namespace orbelan {

// The numbers State() reports. They are the ones the connection code and the
// host have always compared against, so they stay plain ints on the outside.
enum SocketState : int {
    kSocketClosed = 0,
    kSocketOpen = 1,
    kSocketListening = 2,
    kSocketConnectionPending = 3,
    kSocketResolvingHost = 4,
    kSocketHostResolved = 5,
    kSocketConnecting = 6,
    kSocketConnected = 7,
    kSocketClosing = 8,
    kSocketError = 9,
};

// The client's TCP socket: a QTcpSocket behind the small surface the viewer's
// connection code is written against (State, RemoteHost, Connect, SendData,
// GetData, DataArrival ...).
//
// An error (refused, timed out, host not found, network failure ...) leaves
// the state at 9 until the next Close() or Connect(). A peer that closes the
// connection is not an error: Qt reports an orderly close and a reset alike,
// and either way the socket reads 0 afterwards.
class Socket : public QObject {
    Q_OBJECT

public:
    explicit Socket(QObject* parent = nullptr);
    ~Socket() override;

    int State() const;

    // Stored for the next Connect(); an open connection is left alone.
    QString RemoteHost() const { return remoteHost_; }
    void setRemoteHost(const QString& host) { remoteHost_ = host; }
    quint16 RemotePort() const { return remotePort_; }
    void setRemotePort(quint16 port) { remotePort_ = port; }

    // Starts connecting to the stored host and port; the outcome arrives as
    // state changes.
    void Connect();
    // Ends the connection. Requests still waiting to leave are delivered first
    // (state 8 until they are out); anything else reaches state 0 at once, and
    // so does a Close() of a socket that is already closing.
    void Close();
    // Queues the bytes for sending (also while still connecting). On a socket
    // that is not open nothing is sent and the state becomes 9.
    void SendData(std::span<const std::uint8_t> bytes);
    // Everything received so far, removed from the socket.
    std::vector<std::uint8_t> GetData();
    qint64 BytesAvailable() const;

signals:
    // New bytes have arrived. Unlike QIODevice::readyRead this also fires
    // while a slot of an earlier arrival is still running a nested event loop.
    void DataArrival(qint64 bytesTotal);
    void StateChanged(int state);

private:
    void onErrorOccurred(QAbstractSocket::SocketError error);
    void onChannelReadyRead();
    void setFailed(bool failed);
    void reportState();

    QTcpSocket socket_;
    QString remoteHost_;
    quint16 remotePort_ = 0;
    bool failed_ = false;
    int reportedState_ = kSocketClosed;
};

} // namespace orbelan
