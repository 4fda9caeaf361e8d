#include "ClientSession.h"

#include <QByteArray>

namespace orbelan::server {

ClientSession::ClientSession(QTcpSocket* socket, std::uint64_t number, RequestHandler& handler,
                             ServerLog& log, QObject* parent)
    : QObject(parent), socket_(socket), number_(number), handler_(handler), log_(log)
{
    socket_->setParent(this);
    log_.line(prefix() + "opened from " + socket_->peerAddress().toString().toStdString() + ":" +
              std::to_string(socket_->peerPort()));
    connect(socket_, &QTcpSocket::readyRead, this, &ClientSession::readArrived);
    connect(socket_, &QTcpSocket::disconnected, this, &ClientSession::closed);
}

void ClientSession::readArrived()
{
    if (closing_) {
        socket_->readAll();
        return;
    }
    const QByteArray bytes = socket_->readAll();
    const Arrival arrival = framer_.feed(
        {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
    for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
        if (!answer(arrival.messages[i])) {
            return;
        }
    }
    if (arrival.droppedBytes > 0) {
        log_.line(prefix() + "dropped " + std::to_string(arrival.droppedBytes) +
                  " bytes that are not a request (bad signature or length); closing");
        closeConnection();
    }
}

bool ClientSession::answer(std::span<const std::uint8_t> request)
{
    DWBUffer message(request);
    const HandlerOutcome outcome = handler_.handle(state_, message);
    if (outcome.notable) {
        log_.line(prefix() + outcome.note);
    } else {
        log_.detail(prefix() + outcome.note);
    }
    switch (outcome.action) {
    case HandlerOutcome::Action::Reply: {
        const auto bytes = outcome.reply.bytes();
        socket_->write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
        return true;
    }
    case HandlerOutcome::Action::Drop:
        return true;
    case HandlerOutcome::Action::Close:
        closeConnection();
        return false;
    }
    return true;
}

void ClientSession::closeConnection()
{
    closing_ = true;
    socket_->disconnectFromHost();
}

void ClientSession::closed()
{
    log_.line(prefix() + "closed");
    deleteLater();
}

std::string ClientSession::prefix() const
{
    return "connection " + std::to_string(number_) + ": ";
}

} // namespace orbelan::server
