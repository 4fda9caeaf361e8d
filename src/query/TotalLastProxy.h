#pragma once

#include <QSortFilterProxyModel>

namespace orbelan {

// Sorts the information grid by a column, numbers by value, while its total
// row stays at the bottom in either order.
class TotalLastProxy : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};

} // namespace orbelan
