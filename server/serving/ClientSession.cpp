#include "serving/ClientSession.h"

#include <QByteArray>
#include <QMetaObject>

namespace orbelan::server {

ClientSession::ClientSession(QTcpSocket* socket, std::uint64_t number, RequestHandler& handler,
                             ServerLog& log, QObject* parent)
    : QObject(parent),
      socket_(socket),
      number_(number),
      handler_(handler),
      log_(log)
{
    socket_->setParent(this);
    socket_->setReadBufferSize(kReadChunk);
    log_.line(prefix() + "opened from " + socket_->peerAddress().toString().toStdString() + ":" +
              std::to_string(socket_->peerPort()));
    connect(socket_, &QTcpSocket::readyRead, this, &ClientSession::readArrived);
    connect(socket_, &QTcpSocket::bytesWritten, this, &ClientSession::answerWaiting);
    connect(socket_, &QTcpSocket::disconnected, this, &ClientSession::closed);
}

// Reads only when every request read before has been answered, so that the
// requests waiting here never exceed one chunk of bytes.
void ClientSession::readArrived()
{
    if (closing_) {
        socket_->readAll();
        return;
    }
    if (!waiting_.empty()) {
        return;
    }
    const QByteArray bytes = socket_->read(kReadChunk);
    const Arrival arrival = framer_.feed({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                          static_cast<std::size_t>(bytes.size())});
    for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
        waiting_.emplace_back(arrival.messages[i].begin(), arrival.messages[i].end());
    }
    if (arrival.droppedBytes > 0) {
        untrusted_ = true;
        log_.line(prefix() + "dropped " + std::to_string(arrival.droppedBytes) +
                  " bytes that are not a request (bad signature or length); closing");
    }
    answerWaiting();
}

// Answers the waiting requests while the replies not yet sent stay below the
// limit: a client that sends without reading is slowed down by TCP instead of
// filling the server's memory.
void ClientSession::answerWaiting()
{
    while (!waiting_.empty() && !closing_ && socket_->bytesToWrite() <= kMaximumUnsentBytes) {
        const std::vector<std::uint8_t> request = std::move(waiting_.front());
        waiting_.pop_front();
        answer(request);
    }
    if (waiting_.empty() && untrusted_ && !closing_) {
        closeConnection();
    }
    if (waiting_.empty() && !closing_ && socket_->bytesAvailable() > 0) {
        QMetaObject::invokeMethod(this, &ClientSession::readArrived, Qt::QueuedConnection);
    }
}

void ClientSession::answer(std::span<const std::uint8_t> request)
{
    DWBUffer message(request);
    // The framer trusts the length of a message that follows another in the
    // same read; the server also wants its signature.
    if (!message.IsHeaderCorrect()) {
        log_.line(prefix() + "a request without its signature; closing");
        closeConnection();
        return;
    }
    const HandlerOutcome outcome = handler_.handle(state_, message);
    if (outcome.notable) {
        log_.line(prefix() + outcome.note);
    } else {
        log_.detail(prefix() + outcome.note);
    }
    switch (outcome.action) {
    case HandlerOutcome::Action::Reply: {
        const auto& bytes = *outcome.reply;
        socket_->write(reinterpret_cast<const char*>(bytes.data()),
                       static_cast<qint64>(bytes.size()));
        break;
    }
    case HandlerOutcome::Action::Drop:
        break;
    case HandlerOutcome::Action::Close:
        closeConnection();
        break;
    }
}

void ClientSession::closeConnection()
{
    closing_ = true;
    waiting_.clear();
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
