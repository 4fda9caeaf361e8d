#include "cli/LoginOptions.h"

#include "cli/OptionValues.h"

#include <QRegularExpression>

#include <limits>
#include <stdexcept>

namespace orbelan::server {

namespace {

const QString kValidHours = QStringLiteral("login-valid-hours");
const QString kTrust = QStringLiteral("trust-user-ids");
const QString kClientVersion = QStringLiteral("client-version");

// A year at most.
constexpr std::int64_t kLongestValidity = 24 * 366;

messages::LoginAnswer::Version versionFrom(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,5})\\.(\\d{1,5})\\.(\\d{1,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    const auto part = [&](int index) { return match.captured(index).toInt(); };
    constexpr int kLargest = std::numeric_limits<std::int16_t>::max();
    if (!match.hasMatch() || part(1) > kLargest || part(2) > kLargest || part(3) > kLargest) {
        throw std::invalid_argument("--client-version needs MAJOR.MINOR.REVISION, each a whole "
                                    "number from 0 to 32767 (got \"" +
                                    text.toStdString() + "\")");
    }
    return {static_cast<std::int16_t>(part(1)), static_cast<std::int16_t>(part(2)),
            static_cast<std::int16_t>(part(3))};
}

QString builtVersionText()
{
    const auto version = LoginPolicy::builtVersion();
    return QStringLiteral("%1.%2.%3").arg(version.major).arg(version.minor).arg(version.revision);
}

} // namespace

void LoginOptions::add(QCommandLineParser& parser)
{
    parser.addOptions({
        {kValidHours,
         QStringLiteral("Hours a login lets its address open maps as its user (default %1).")
             .arg(LoginPolicy::kDefaultValidity.count()),
         QStringLiteral("N"), QString::number(LoginPolicy::kDefaultValidity.count())},
        {kTrust, QStringLiteral("Believe the user id of every access request without a login "
                                "(behind a gateway that authenticates users).")},
        {kClientVersion,
         QStringLiteral("The current client version a login announces (default %1).")
             .arg(builtVersionText()),
         QStringLiteral("X.Y.Z"), builtVersionText()},
    });
}

LoginPolicy LoginOptions::read(const QCommandLineParser& parser)
{
    LoginPolicy policy;
    policy.validity = std::chrono::hours(OptionValues::integer(parser, kValidHours, 1, kLongestValidity));
    policy.trustUserIds = parser.isSet(kTrust);
    policy.clientVersion = versionFrom(parser.value(kClientVersion));
    return policy;
}

} // namespace orbelan::server
