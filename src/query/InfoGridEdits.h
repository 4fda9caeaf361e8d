#pragma once

#include "protocol/messages/MultipleAttributeUpdate.h"

#include <QStringList>

#include <cstdint>
#include <vector>

namespace orbelan {

class Campos;
class InfoGridModel;

// What the user changed in the information grid: one new value per
// replaced column, for every element the grid lists.
struct GridChanges {
    std::vector<messages::MultipleAttributeUpdate::FieldValue> fields;
    std::vector<std::int32_t> ids;
};

// The replacing of whole columns of the information grid, with one level of
// undo. Each column is unchanged until a value replaces its texts; its data
// cells are red while a new value is typed for it, yellow once replaced,
// white otherwise.
class InfoGridEdits {
public:
    explicit InfoGridEdits(InfoGridModel& grid);

    bool unchanged(int column) const { return unchanged_[static_cast<std::size_t>(column)]; }
    // A new value for the column is about to be typed.
    void choose(int column);
    // Every data cell of the column takes the value; the texts it had can
    // be brought back by undo until the next apply.
    void apply(int column, const QString& value);
    // The value is not typed after all: the column shows as it was.
    void abandon(int column);
    bool canUndo() const { return undoColumn_ >= 0; }
    void undo();

    // The replaced columns, by their headings, with their layer fields'
    // type codes (0 for a heading that names no field) and the value of the
    // first row; and the ids of all rows.
    GridChanges changes(const Campos& fields) const;

private:
    void shadeByFlag(int column, bool unchanged);

    InfoGridModel& grid_;
    std::vector<bool> unchanged_;
    int undoColumn_ = -1;
    QStringList undoTexts_;
    bool undoUnchanged_ = true;
};

} // namespace orbelan
