#pragma once

// Readable failure messages for the Qt and message box values the tests compare.

#include "ui/UiServices.h"

#include <QString>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace orbelan {

inline void PrintTo(MessageAnswer answer, std::ostream* out)
{
    *out << answerName(answer).toStdString();
}

} // namespace orbelan
