#pragma once

#include "protocol/MessageFramer.h"
#include "serving/RequestHandler.h"
#include "serving/ServerLog.h"
#include "serving/SessionState.h"

#include <QObject>
#include <QTcpSocket>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <vector>

namespace orbelan::server {

// One client connection: cuts its byte stream into requests, answers each in
// order and writes the replies back. It deletes itself once the connection
// has closed.
//
// Bytes that are not a message (a wrong signature, a length beyond the
// limit) mean the stream can no longer be trusted: they are logged and the
// connection is closed, after the whole requests before them were answered.
// A client that sends requests without reading the replies is held back.
class ClientSession : public QObject {
    Q_OBJECT

public:
    // The largest request the server reads; real requests are far smaller.
    static constexpr std::size_t kMaximumRequestLength = 1024 * 1024;
    // Bytes read from the socket at a time.
    static constexpr qint64 kReadChunk = 256 * 1024;
    // Replies waiting to be sent above which no further request is answered
    // until the client has taken some.
    static constexpr qint64 kMaximumUnsentBytes = 4 * 1024 * 1024;

    ClientSession(QTcpSocket* socket, std::uint64_t number, RequestHandler& handler, ServerLog& log,
                  QObject* parent = nullptr);

private:
    void readArrived();
    void answerWaiting();
    void answer(std::span<const std::uint8_t> request);
    void closeConnection();
    void closed();
    std::string prefix() const;

    QTcpSocket* socket_;
    std::uint64_t number_;
    RequestHandler& handler_;
    ServerLog& log_;
    MessageFramer framer_{kMaximumRequestLength};
    SessionState state_;
    // Whole requests read and not answered yet, in order.
    std::deque<std::vector<std::uint8_t>> waiting_;
    // The stream held bytes that are not a request: close once the requests
    // before them are answered.
    bool untrusted_ = false;
    bool closing_ = false;
};

} // namespace orbelan::server
