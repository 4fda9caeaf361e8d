#include "query/InfoGridEdits.h"

#include "model/Campos.h"
#include "query/InfoGridModel.h"

namespace orbelan {

InfoGridEdits::InfoGridEdits(InfoGridModel& grid)
    : grid_(grid),
      unchanged_(static_cast<std::size_t>(grid.columnCount()), true)
{
}

void InfoGridEdits::choose(int column)
{
    grid_.setShade(column, InfoGridModel::Shade::Red);
}

void InfoGridEdits::apply(int column, const QString& value)
{
    undoTexts_ = grid_.columnTexts(column);
    undoColumn_ = column;
    undoUnchanged_ = unchanged(column);
    unchanged_[static_cast<std::size_t>(column)] = false;
    grid_.fillColumn(column, value);
    grid_.setShade(column, InfoGridModel::Shade::Yellow);
}

void InfoGridEdits::abandon(int column)
{
    shadeByFlag(column, unchanged(column));
}

void InfoGridEdits::undo()
{
    if (!canUndo())
        return;
    grid_.setColumnTexts(undoColumn_, undoTexts_);
    unchanged_[static_cast<std::size_t>(undoColumn_)] = undoUnchanged_;
    shadeByFlag(undoColumn_, undoUnchanged_);
    undoColumn_ = -1;
    undoTexts_.clear();
}

GridChanges InfoGridEdits::changes(const Campos& fields) const
{
    GridChanges changes;
    for (int column = 1; column < grid_.columnCount(); ++column) {
        if (unchanged(column) || grid_.dataRows() == 0)
            continue;
        const std::string name = grid_.column(column).heading.toStdString();
        const Campo* field = fields.Find(name);
        changes.fields.push_back({name, field ? field->Tipo : std::int16_t{0}, grid_.text(0, column).toStdString()});
    }
    changes.ids = grid_.ids();
    return changes;
}

void InfoGridEdits::shadeByFlag(int column, bool unchanged)
{
    grid_.setShade(column, unchanged ? InfoGridModel::Shade::White : InfoGridModel::Shade::Yellow);
}

} // namespace orbelan
