#pragma once

#include <QString>

class QAbstractItemModel;

namespace orbelan {

// A table as the clipboard takes it: the headings, then each row, its
// cells separated by tabs and every line, the last included, ended by CR LF.
QString gridText(const QAbstractItemModel& table);

} // namespace orbelan
