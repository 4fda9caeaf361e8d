#pragma once

#include <QCommandLineParser>
#include <QString>

#include <cstdint>

namespace orbelan::server {

// Reading checked values from a parsed command line.
class OptionValues {
public:
    // The option's value as a whole number within [minimum, maximum]; throws
    // std::invalid_argument naming the option otherwise.
    static std::int64_t integer(const QCommandLineParser& parser, const QString& name,
                                std::int64_t minimum, std::int64_t maximum);
    // The option's value as a number greater than 0; throws
    // std::invalid_argument naming the option otherwise.
    static double positive(const QCommandLineParser& parser, const QString& name);
    // The option's value, or its default; throws std::invalid_argument when
    // it was not given and has no default.
    static QString required(const QCommandLineParser& parser, const QString& name);
};

} // namespace orbelan::server
