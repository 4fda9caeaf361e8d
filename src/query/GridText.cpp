#include "query/GridText.h"

#include <QAbstractItemModel>

namespace orbelan {

QString gridText(const QAbstractItemModel& table)
{
    const int columns = table.columnCount();
    QString text;
    for (int row = -1; row < table.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column) {
            if (column > 0)
                text += QLatin1Char('\t');
            text += row < 0 ? table.headerData(column, Qt::Horizontal).toString()
                            : table.index(row, column).data().toString();
        }
        text += QStringLiteral("\r\n");
    }
    return text;
}

} // namespace orbelan
