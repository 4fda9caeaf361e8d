#pragma once

#include <QString>

#include <string_view>

namespace orbelan {

// Field names compare without regard to case.
inline bool sameText(std::string_view a, std::string_view b)
{
    return QString::fromUtf8(a.data(), static_cast<qsizetype>(a.size()))
               .compare(QString::fromUtf8(b.data(), static_cast<qsizetype>(b.size())), Qt::CaseInsensitive) == 0;
}

} // namespace orbelan
