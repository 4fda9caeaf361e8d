#include "cli/OptionValues.h"

#include <stdexcept>

namespace orbelan::server {

std::int64_t OptionValues::integer(const QCommandLineParser& parser, const QString& name,
                                   std::int64_t minimum, std::int64_t maximum)
{
    bool ok = false;
    const std::int64_t value = required(parser, name).toLongLong(&ok);
    if (!ok || value < minimum || value > maximum) {
        throw std::invalid_argument("--" + name.toStdString() + " needs a whole number from " +
                                    std::to_string(minimum) + " to " + std::to_string(maximum));
    }
    return value;
}

double OptionValues::positive(const QCommandLineParser& parser, const QString& name)
{
    bool ok = false;
    const double value = required(parser, name).toDouble(&ok);
    if (!ok || !(value > 0)) {
        throw std::invalid_argument("--" + name.toStdString() + " needs a number greater than 0");
    }
    return value;
}

QString OptionValues::required(const QCommandLineParser& parser, const QString& name)
{
    if (!parser.isSet(name) && parser.value(name).isEmpty()) {
        throw std::invalid_argument("--" + name.toStdString() + " is required");
    }
    return parser.value(name);
}

} // namespace orbelan::server
