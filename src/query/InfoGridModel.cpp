#include "query/InfoGridModel.h"

#include "protocol/FieldTypes.h"
#include "protocol/FieldValueText.h"
#include "protocol/messages/ResultTable.h"

#include <QColor>

#include <algorithm>
#include <string_view>

namespace orbelan {

namespace {

// OLE colours 255 (red), 65535 (yellow) and &HFFFFFF (white).
QColor colourOf(InfoGridModel::Shade shade)
{
    switch (shade) {
    case InfoGridModel::Shade::Red: return QColor(255, 0, 0);
    case InfoGridModel::Shade::Yellow: return QColor(255, 255, 0);
    case InfoGridModel::Shade::White: break;
    }
    return QColor(255, 255, 255);
}

// The number a cell spells; a text that is no number counts as 0.
double cellNumber(std::string_view text)
{
    return parseNumber(text).value_or(0);
}

} // namespace

InfoGridModel::InfoGridModel(std::vector<GridColumn> columns, const messages::ResultTable& table,
                             std::size_t shownRows, QObject* parent)
    : QAbstractTableModel(parent),
      columns_(std::move(columns))
{
    const std::size_t rows = std::min(shownRows, table.rowCount());
    const std::size_t perRow = table.valuesPerRow();
    columns_.resize(std::max(columns_.size(), perRow + 1));
    ids_.assign(table.ids.begin(), table.ids.begin() + static_cast<std::ptrdiff_t>(rows));
    const std::size_t valueColumns = columns_.size() - 1;
    values_.reserve(rows * valueColumns);
    numbers_.reserve(rows * valueColumns);
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t value = 0; value < valueColumns; ++value) {
            const std::string_view text = value < perRow ? std::string_view(table.value(row, value)) : std::string_view();
            values_.push_back(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
            numbers_.push_back(columns_[value + 1].totalled ? cellNumber(text) : 0);
        }
    }
    totals_.resize(columns_.size());
    shades_.assign(columns_.size(), Shade::White);
    computeTotals();
}

int InfoGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : dataRows() + 1;
}

int InfoGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant InfoGridModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const bool dataRow = index.row() < dataRows();
    if (role == Qt::DisplayRole)
        return text(index.row(), index.column());
    if (role == Qt::BackgroundRole && dataRow && index.column() > 0)
        return colourOf(shade(index.column()));
    return {};
}

QVariant InfoGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    return section >= 0 && section < columnCount() ? column(section).heading : QVariant();
}

QString InfoGridModel::text(int row, int column) const
{
    if (row < 0)
        return this->column(column).heading;
    if (row >= dataRows())
        return column == 0 ? QStringLiteral("Total") : totals_[static_cast<std::size_t>(column)];
    return column == 0 ? QString::number(id(row)) : values_[at(row, column)];
}

QStringList InfoGridModel::columnTexts(int column) const
{
    QStringList texts;
    texts.reserve(dataRows());
    for (int row = 0; row < dataRows(); ++row)
        texts << values_[at(row, column)];
    return texts;
}

void InfoGridModel::setColumnTexts(int column, const QStringList& texts)
{
    for (int row = 0; row < dataRows() && row < texts.size(); ++row)
        setCell(at(row, column), texts[row]);
    columnChanged(column);
}

void InfoGridModel::fillColumn(int column, const QString& text)
{
    for (int row = 0; row < dataRows(); ++row)
        setCell(at(row, column), text);
    columnChanged(column);
}

void InfoGridModel::setShade(int column, Shade shade)
{
    shades_[static_cast<std::size_t>(column)] = shade;
    columnChanged(column);
}

void InfoGridModel::computeTotals()
{
    const std::size_t perRow = columns_.size() - 1;
    for (std::size_t column = 1; column < columns_.size(); ++column) {
        if (!columns_[column].totalled)
            continue;
        double sum = 0;
        for (std::size_t cell = column - 1; cell < numbers_.size(); cell += perRow)
            sum += numbers_[cell];
        totals_[column] = QString::fromStdString(numberText(sum, wireTypeOf(columns_[column].fieldType)));
    }
}

std::size_t InfoGridModel::at(int row, int column) const
{
    return static_cast<std::size_t>(row) * (columns_.size() - 1) + static_cast<std::size_t>(column - 1);
}

void InfoGridModel::setCell(std::size_t cell, QString text)
{
    const std::size_t column = cell % (columns_.size() - 1) + 1;
    numbers_[cell] = columns_[column].totalled ? cellNumber(text.toStdString()) : 0;
    values_[cell] = std::move(text);
}

void InfoGridModel::columnChanged(int column)
{
    if (dataRows() == 0)
        return;
    emit dataChanged(index(0, column), index(dataRows() - 1, column));
}

} // namespace orbelan
