#include "protocol/messages/ElementInformationRequest.h"
#include "protocol/messages/MultipleAttributeUpdate.h"
#include "protocol/messages/ResultTable.h"
#include "SessionHarness.h"

#include <tuple>

using namespace orbelan;

namespace {

// An editable parcel layer with a name and an area, 1-degree grid cells,
// and two loaded elements, 41 and 42, whose boxes span three rows and
// three columns of cells.
class ResultTables : public SessionHarness {
protected:
    ResultTables()
    {
        parcels.AccessLevel = ALEditor;
        parcels.GridDeltaX = parcels.GridDeltaY = 1;
        parcels.Campos().Add("NAME", 202);
        parcels.Campos().Add("AREA", 5);
        parcels.Entidades.AddEntity(41, std::vector<Vertex>{{-70, -33}, {-70.1, -33.1}}, parcels);
        parcels.Entidades.AddEntity(42, std::vector<Vertex>{{-68, -31}}, parcels);
        state.resultTableMode = -1;
    }

    static messages::ResultTable rows(std::size_t count)
    {
        messages::ResultTable table{9, 3, {}, {}};
        for (std::size_t row = 0; row < count; ++row) {
            table.ids.push_back(static_cast<std::int32_t>(row) + 41);
            table.values.insert(table.values.end(), {"P" + std::to_string(row), "2.5"});
        }
        return table;
    }

    // Replaces a column of the grid with a value and updates.
    void replaceAndUpdate(std::vector<std::pair<QString, QString>> columnsAndValues)
    {
        for (const auto& [column, value] : columnsAndValues) {
            ui.queueDialog({"dlgShowInfoElements",
                            {{"grdInfoElements", "0," + column + ",dblclick"}, {"txtValue", value}},
                            "cmdOK"});
        }
        ui.queueDialog({"dlgShowInfoElements", {}, "cmdUpdate"});
    }

    messages::MultipleAttributeUpdate sentUpdate()
    {
        std::vector<DWBUffer> sent = requests.take();
        EXPECT_EQ(sent.size(), 1u);
        if (sent.size() != 1u || codeOf(sent.front()) != CommandCode::MultipleAttributeUpdate)
            return {};
        return messages::MultipleAttributeUpdate::decode(sent.front());
    }

    layer& parcels = document.addLayer("parcels", 9, polygonlayer);
};

TEST_F(ResultTables, OneRowWithIdZeroIsNothingFoundAndAnyOtherIdShowsTheGrid)
{
    reply(messages::ResultTable{9, 3, {0}, {"", ""}});
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(std::tuple(ui.messages()[0].text, ui.messages()[0].caption, ui.messages()[0].icon),
              std::tuple("No elements found.", "Orbelan", MessageIcon::Information));
    EXPECT_TRUE(ui.dialogs().empty());

    reply(messages::ResultTable{9, 3, {5}, {"", ""}});
    ASSERT_EQ(ui.dialogs().size(), 1u);
    EXPECT_EQ(ui.dialogs()[0].objectName, "dlgShowInfoElements");
    EXPECT_EQ(ui.messages().size(), 1u);
    EXPECT_TRUE(requests.take().empty());
}

TEST_F(ResultTables, MoreThanTenThousandRowsAreToldAndCutTo9997)
{
    for (const auto& [count, shown, told] :
         {std::tuple(10000u, 10000u, false), std::tuple(10001u, 9997u, true)}) {
        replaceAndUpdate({{"2", "3"}});
        reply(rows(count));
        EXPECT_EQ(sentUpdate().elements.size(), shown) << count;
        EXPECT_EQ(ui.messages().size(), told ? 1u : 0u) << count;
    }
    EXPECT_EQ(ui.messages().back().text,
              "Demasiados elementos más de 10000, solamente 9997 aparecen en esta ventana!!!");
}

TEST_F(ResultTables, AnUpdateListsEveryElementEveryCellOfTheirBoxAndOneValuePerChangedField)
{
    replaceAndUpdate({{"2", "7"}, {"1", "X"}, {"2", "8.5"}});
    reply(rows(3));
    const messages::MultipleAttributeUpdate update = sentUpdate();
    EXPECT_EQ(update.layer, 9);
    EXPECT_EQ(update.elements, (std::vector<std::int32_t>{41, 42, 43}));
    // Rows 57 to 59 (latitudes -33.1 to -31), columns 110 to 112.
    EXPECT_EQ(update.cellI, (std::vector<std::int32_t>{57, 57, 57, 58, 58, 58, 59, 59, 59}));
    EXPECT_EQ(update.cellJ, (std::vector<std::int32_t>{110, 111, 112, 110, 111, 112, 110, 111, 112}));
    using Field = messages::MultipleAttributeUpdate::FieldValue;
    EXPECT_EQ(update.fields, (std::vector<Field>{{"NAME", 202, "X"}, {"AREA", 5, "8.5"}}));
}

TEST_F(ResultTables, NothingIsSentWithoutAReplacedColumnOrOnCancel)
{
    ui.queueDialog({"dlgShowInfoElements", {}, "cmdUpdate"});
    reply(rows(2));
    ui.queueDialog({"dlgShowInfoElements", {{"grdInfoElements", "0,2,dblclick"}, {"txtValue", "1"}}, "cmdOK"});
    ui.queueDialog({"dlgShowInfoElements", {}, "cmdCancel"});
    reply(rows(2));
    EXPECT_TRUE(requests.take().empty());
}

TEST_F(ResultTables, TheListModeOpensTheChosenElementForEditingUntilClosed)
{
    state.resultTableMode = 0;
    ui.queueDialog({"dlgViewConditionElements", {{"lstElements", "1"}}, "cmdResaltarElemento"});
    reply(rows(2));
    ASSERT_EQ(ui.dialogs().size(), 2u);
    EXPECT_EQ(events.highlighted, std::vector<std::int32_t>{42});
    std::vector<DWBUffer> sent = requests.take();
    ASSERT_EQ(sent.size(), 1u);
    ASSERT_EQ(codeOf(sent.front()), CommandCode::ElementInformationRequest);
    EXPECT_EQ(messages::ElementInformationRequest::decode(sent.front()), (messages::ElementInformationRequest{9, 42}));
    EXPECT_TRUE(state.editInformation);
    EXPECT_EQ(state.editCellI.size(), 9u);
    EXPECT_EQ(state.editCellJ.size(), 9u);
}

} // namespace
