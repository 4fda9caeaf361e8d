#include "model/Campos.h"
#include "protocol/messages/ResultTable.h"
#include "query/GridText.h"
#include "query/InfoGridEdits.h"
#include "query/InfoGridModel.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace orbelan;

namespace {

// NAME (text), COUNT (long), AREA (double), RATE (single); three elements.
const std::vector<GridColumn> kColumns = {{"# Element", 0, false},
                                          {"NAME", 202, false},
                                          {"COUNT", 3, true},
                                          {"AREA", 5, true},
                                          {"RATE", 4, true}};

messages::ResultTable table()
{
    return {7, 5, {11, 12, 13}, {"AB", "1", "0.25", "0.1", "CD", "2", "1.5", "", "EF", "3", "x", "0.2"}};
}

TEST(InfoGrid, TotalsSumNumericColumnsOnlyAndCountNoTextAsZero)
{
    const InfoGridModel grid(kColumns, table(), 3);
    ASSERT_EQ(grid.rowCount(), 4);
    const int total = 3;
    EXPECT_EQ(std::tuple(grid.text(total, 0), grid.text(total, 1), grid.text(total, 2), grid.text(total, 3),
                         grid.text(total, 4)),
              std::tuple("Total", "", "6", "1.75", "0.3"));
}

// Columns the layer does not name still show, with no heading and no total.
TEST(InfoGrid, ShowsOnlyTheRowsAskedForAndCopiesEveryLineEndedByCrLf)
{
    const InfoGridModel grid(std::vector<GridColumn>(kColumns.begin(), kColumns.begin() + 3), table(), 2);
    EXPECT_EQ(grid.dataRows(), 2);
    EXPECT_EQ(gridText(grid).toStdString(), "# Element\tNAME\tCOUNT\t\t\r\n"
                                            "11\tAB\t1\t0.25\t0.1\r\n"
                                            "12\tCD\t2\t1.5\t\r\n"
                                            "Total\t\t3\t\t\r\n");
}

TEST(InfoGrid, UndoAfterTwoAppliesBringsBackTheFirstAndTheColumnStaysChanged)
{
    InfoGridModel grid(kColumns, table(), 3);
    InfoGridEdits edits(grid);
    edits.choose(2);
    EXPECT_EQ(grid.shade(2), InfoGridModel::Shade::Red);
    edits.apply(2, "5");
    edits.choose(2);
    edits.apply(2, "9");
    edits.undo();
    EXPECT_EQ(grid.columnTexts(2), QStringList({"5", "5", "5"}));
    EXPECT_FALSE(edits.unchanged(2));
    EXPECT_EQ(grid.shade(2), InfoGridModel::Shade::Yellow);
    EXPECT_FALSE(edits.canUndo());

    // The first apply undone gives the column back white and unchanged.
    edits.choose(1);
    edits.abandon(1);
    EXPECT_EQ(grid.shade(1), InfoGridModel::Shade::White);
    edits.apply(1, "Z");
    edits.undo();
    EXPECT_EQ(std::tuple(grid.columnTexts(1), edits.unchanged(1), grid.shade(1)),
              std::tuple(QStringList({"AB", "CD", "EF"}), true, InfoGridModel::Shade::White));
}

TEST(InfoGrid, ChangesGiveOneValuePerReplacedFieldWithItsLayerTypeAndEveryId)
{
    InfoGridModel grid(kColumns, table(), 3);
    InfoGridEdits edits(grid);
    edits.apply(4, "0.5");
    edits.apply(1, "NEW");
    Campos fields;
    fields.Add("NAME", 200);
    fields.Add("RATE", 4);
    const GridChanges changes = edits.changes(fields);
    using Field = messages::MultipleAttributeUpdate::FieldValue;
    EXPECT_EQ(changes.fields, (std::vector<Field>{{"NAME", 200, "NEW"}, {"RATE", 4, "0.5"}}));
    EXPECT_EQ(changes.ids, (std::vector<std::int32_t>{11, 12, 13}));
}

} // namespace
