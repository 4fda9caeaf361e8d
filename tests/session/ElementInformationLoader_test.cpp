#include "protocol/messages/AttributeUpdate.h"
#include "protocol/messages/ElementInformation.h"
#include "SessionHarness.h"
#include "session/InformationFields.h"

#include <QApplication>
#include <QPlainTextEdit>

#include <tuple>

using namespace orbelan;
using messages::AttributeUpdate;
using messages::ElementInformation;

namespace {

class ElementInformationLoader : public SessionHarness {
protected:
    void SetUp() override
    {
        streets.Campos().Add("NOMBRE", 202);
        streets.Campos().Add("LARGO", 5);
        streets.Campos().Add("CARRILES", 3);
        prepareStreets(streets);
        ui.setDialogObserver([this](const ShownDialog&) {
            for (const QWidget* window : QApplication::topLevelWidgets()) {
                if (const auto* box = window->findChild<QPlainTextEdit*>("txtInfoCampos")) {
                    shownText = box->toPlainText();
                }
            }
        });
    }

    // Element 41 as the server has it, once asked for.
    void answer()
    {
        events.changeStatus(7, StatusList::RequestingInformation, {});
        reply(ElementInformation{7, 41, true, {{202, "  Alameda "}, {5, "12.5"}, {3, "2"}}});
    }

    std::vector<AttributeUpdate> updates()
    {
        std::vector<AttributeUpdate> sent;
        for (DWBUffer& request : requests.take()) {
            EXPECT_EQ(codeOf(request), CommandCode::AttributeUpdate);
            sent.push_back(AttributeUpdate::decode(request));
        }
        return sent;
    }

    layer& streets = document.addLayer("Calles", 7, polylinelayer);
    QString shownText;
};

TEST_F(ElementInformationLoader, ValuesGoToTheDialogOrToTheHostAndNoInformationDoesNothing)
{
    answer();
    ASSERT_EQ(ui.dialogs().size(), 1u);
    EXPECT_EQ(ui.dialogs().back().objectName, "dlgVerInfo");
    EXPECT_EQ(shownText, "Layer: Calles\n\nNOMBRE: Alameda\n\nLARGO: 12.5\n\nCARRILES: 2\n\n");
    EXPECT_EQ(informationText("Calles", {{"NOMBRE", 202, " Alameda  "}}),
              "Layer: Calles\r\n\r\nNOMBRE: Alameda\r\n\r\n");
    EXPECT_TRUE(events.information.empty());
    EXPECT_EQ(events.redraws, 1);
    EXPECT_TRUE(events.status.empty());

    state.releaseInformation = true;
    answer();
    EXPECT_EQ(ui.dialogs().size(), 1u);
    ASSERT_EQ(events.information.size(), 1u);
    const RecordingEvents::Information& arrived = events.information.front();
    EXPECT_EQ(std::tuple(arrived.layer, arrived.element, arrived.names, arrived.types, arrived.values),
              std::tuple(7, 41, QStringList{"NOMBRE", "LARGO", "CARRILES"}, QList<int>{202, 5, 3},
                         QStringList{"  Alameda ", "12.5", "2"}));
    EXPECT_EQ(events.redraws, 2);

    events.changeStatus(7, StatusList::RequestingInformation, {});
    reply(ElementInformation::none(7, 41));
    EXPECT_EQ(std::tuple(ui.dialogs().size(), events.information.size(), events.redraws), std::tuple(1u, 1u, 2));
    EXPECT_TRUE(events.status.empty());
    EXPECT_EQ(abandoned, 0);
}

// The dialog's values, or those given in advance, replace the element's:
// one update per changed field, numbers as the field keeps them, at the
// cell of the element's box centre or at the first cell the request knew.
TEST_F(ElementInformationLoader, EditingSendsEachChangedFieldAndNothingOnCancelOrRefusal)
{
    state.editInformation = true;
    streets.GridDeltaX = streets.GridDeltaY = 0.5f;
    const GridCell cell = streets.GetPointCell(-70.05, -33.05);
    ui.queueDialog({"dlgEditInfo", {{"NOMBRE", "Bandera"}, {"LARGO", "12.50"}, {"CARRILES", "3"}}, "OKButton"});
    answer();
    EXPECT_EQ(updates(), (std::vector<AttributeUpdate>{{7, 41, cell.row, cell.column, 1, 202, "Bandera"},
                                                       {7, 41, cell.row, cell.column, 3, 3, "3"}}));
    EXPECT_EQ(events.redraws, 1);

    ui.queueDialog({"dlgEditInfo", {{"NOMBRE", "Bandera"}}, "CancelButton"});
    answer();
    EXPECT_TRUE(updates().empty());

    state.presetEditValues = {{{1, "Bandera"}, {3, "70000000000"}}};
    answer();
    EXPECT_TRUE(updates().empty());
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(ui.messages().back().text,
              "The value \"70000000000\" does not fit the field CARRILES (Long).\r\nNothing was updated.");

    state.presetEditValues = {{{2, "7.25"}}};
    state.editCellI = {3};
    state.editCellJ = {4};
    answer();
    EXPECT_EQ(updates(), (std::vector<AttributeUpdate>{{7, 41, 3, 4, 2, 5, "7.25"}}));
    EXPECT_EQ(ui.dialogs().size(), 2u) << "values given in advance need no dialog";
    EXPECT_FALSE(state.presetEditValues) << "they are used once";
}

} // namespace
