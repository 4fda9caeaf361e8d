#include "protocol/Socket.h"

namespace orbelan {

namespace {

int stateNumber(QAbstractSocket::SocketState state)
{
    switch (state) {
    case QAbstractSocket::UnconnectedState:
        return kSocketClosed;
    case QAbstractSocket::HostLookupState:
        return kSocketResolvingHost;
    case QAbstractSocket::ConnectingState:
        return kSocketConnecting;
    case QAbstractSocket::ConnectedState:
        return kSocketConnected;
    // A bound socket is what the old socket control called open.
    case QAbstractSocket::BoundState:
        return kSocketOpen;
    case QAbstractSocket::ListeningState:
        return kSocketListening;
    case QAbstractSocket::ClosingState:
        return kSocketClosing;
    }
    return kSocketError;
}

} // namespace

Socket::Socket(QObject* parent)
    : QObject(parent),
      socket_(this)
{
    connect(&socket_, &QAbstractSocket::stateChanged, this, &Socket::reportState);
    connect(&socket_, &QAbstractSocket::errorOccurred, this, &Socket::onErrorOccurred);
    // readyRead is not emitted again while one of its slots runs a nested
    // event loop; channelReadyRead is, which keeps every arrival visible to
    // the receive side even while a reply handler waits for a connection.
    connect(&socket_, &QIODevice::channelReadyRead, this, &Socket::onChannelReadyRead);
}

// A connected QTcpSocket aborts as it is destroyed, after this object's other
// members are gone; its last state changes must not reach them.
Socket::~Socket()
{
    socket_.disconnect(this);
}

int Socket::State() const
{
    return failed_ ? kSocketError : stateNumber(socket_.state());
}

void Socket::Connect()
{
    setFailed(false);
    socket_.connectToHost(remoteHost_, remotePort_);
}

void Socket::Close()
{
    setFailed(false);
    if (socket_.state() == QAbstractSocket::ConnectedState && socket_.bytesToWrite() > 0) {
        socket_.disconnectFromHost();
    } else {
        socket_.abort();
    }
}

void Socket::SendData(std::span<const std::uint8_t> bytes)
{
    // The open check comes first: QIODevice warns on a write to a closed device.
    if (!socket_.isOpen() ||
        socket_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size())) < 0) {
        setFailed(true);
    }
}

std::vector<std::uint8_t> Socket::GetData()
{
    const QByteArray data = socket_.readAll();
    return {data.begin(), data.end()};
}

qint64 Socket::BytesAvailable() const
{
    return socket_.bytesAvailable();
}

void Socket::onErrorOccurred(QAbstractSocket::SocketError error)
{
    if (error != QAbstractSocket::RemoteHostClosedError) {
        setFailed(true);
    }
}

void Socket::onChannelReadyRead()
{
    const qint64 available = socket_.bytesAvailable();
    if (available > 0) {
        emit DataArrival(available);
    }
}

void Socket::setFailed(bool failed)
{
    failed_ = failed;
    reportState();
}

void Socket::reportState()
{
    const int state = State();
    if (state != reportedState_) {
        reportedState_ = state;
        emit StateChanged(state);
    }
}

} // namespace orbelan
