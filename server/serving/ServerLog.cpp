#include "serving/ServerLog.h"

#include <QDateTime>

namespace orbelan::server {

ServerLog::ServerLog(std::ostream& out, bool verbose)
    : out_(out),
      verbose_(verbose)
{
}

void ServerLog::line(const std::string& text)
{
    out_ << QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toStdString() << ' ' << text
         << std::endl;
}

void ServerLog::detail(const std::string& text)
{
    if (verbose_) {
        line(text);
    }
}

} // namespace orbelan::server
