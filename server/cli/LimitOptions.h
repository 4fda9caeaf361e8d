#pragma once

#include "serving/ServingLimits.h"

#include <QCommandLineParser>

namespace orbelan::server {

// The serve command's options for what the server gives its clients at most.
class LimitOptions {
public:
    static void add(QCommandLineParser& parser);
    // The limits given, the defaults for the others; throws
    // std::invalid_argument naming an option whose value is out of range.
    static ServingLimits read(const QCommandLineParser& parser);
};

} // namespace orbelan::server
