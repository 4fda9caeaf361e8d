#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orbelan {

namespace messages {
struct ResultTable;
}

// One column of the information grid: its heading and the type code of the
// field it shows. Columns of a text type, and the id column, have no total.
struct GridColumn {
    QString heading;
    std::int16_t fieldType = 0;
    bool totalled = false;
};

// The information grid's table: one row per element (its id, then its
// values as text), and a last row "Total" with the sum of each totalled
// column. The headings are the header row. Each column's data cells share
// one background: white, red while a new value for the column is typed,
// yellow once its values were replaced.
class InfoGridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum class Shade { White, Red, Yellow };

    // The first shownRows rows of the table; columns past those given have
    // no heading and no total.
    InfoGridModel(std::vector<GridColumn> columns, const messages::ResultTable& table, std::size_t shownRows,
                  QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    int dataRows() const { return static_cast<int>(ids_.size()); }
    std::int32_t id(int row) const { return ids_[static_cast<std::size_t>(row)]; }
    const std::vector<std::int32_t>& ids() const { return ids_; }
    const GridColumn& column(int column) const { return columns_[static_cast<std::size_t>(column)]; }
    // The text of a cell of the data rows, the total row, or a heading (row -1).
    QString text(int row, int column) const;

    // The texts of a column's data rows, top to bottom.
    QStringList columnTexts(int column) const;
    void setColumnTexts(int column, const QStringList& texts);
    void fillColumn(int column, const QString& text);
    Shade shade(int column) const { return shades_[static_cast<std::size_t>(column)]; }
    void setShade(int column, Shade shade);

    // Sums every totalled column over the data rows: a cell that is empty
    // or not a number adds nothing.
    void computeTotals();

private:
    std::size_t at(int row, int column) const;
    // Keeps the number a cell of a totalled column spells, read once when
    // the cell changes.
    void setCell(std::size_t cell, QString text);
    void columnChanged(int column);

    std::vector<GridColumn> columns_;
    std::vector<std::int32_t> ids_;
    // Row after row, every column but the id.
    std::vector<QString> values_;
    // The same cells as numbers, 0 for text columns.
    std::vector<double> numbers_;
    std::vector<QString> totals_;
    std::vector<Shade> shades_;
};

} // namespace orbelan
