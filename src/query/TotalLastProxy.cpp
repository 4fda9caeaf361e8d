#include "query/TotalLastProxy.h"

namespace orbelan {

namespace {

bool isTotalRow(const QModelIndex& index)
{
    return index.row() == index.model()->rowCount() - 1;
}

} // namespace

bool TotalLastProxy::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (isTotalRow(left))
        return sortOrder() == Qt::DescendingOrder;
    if (isTotalRow(right))
        return sortOrder() == Qt::AscendingOrder;
    const QString leftText = left.data().toString();
    const QString rightText = right.data().toString();
    bool leftIsNumber = false;
    bool rightIsNumber = false;
    const double leftNumber = leftText.toDouble(&leftIsNumber);
    const double rightNumber = rightText.toDouble(&rightIsNumber);
    if (leftIsNumber && rightIsNumber)
        return leftNumber < rightNumber;
    return leftText < rightText;
}

} // namespace orbelan
