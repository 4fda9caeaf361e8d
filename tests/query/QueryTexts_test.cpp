#include "model/Layers.h"
#include "protocol/messages/Condition.h"
#include "query/ConstrainedQuery.h"
#include "query/ConstraintCheck.h"
#include "query/OperatorTexts.h"
#include "query/dlgFindByCondition.h"
#include "query/dlgSelect.h"

#include <QComboBox>

#include <tuple>
#include "ui/ScriptedUiServices.h"

#include <gtest/gtest.h>

using namespace orbelan;
using namespace orbelan::messages::conditionop;

namespace {

TEST(QueryTexts, CaptionsQuoteAndUpperCaseTextValuesOnly)
{
    EXPECT_EQ(operatortexts::conditionCaption("NAME", 202, kStartingWith, "ab", "zz"), "NAME Starting with 'AB'");
    EXPECT_EQ(operatortexts::conditionCaption("AREA", 5, kBetween, "1", "5"), "AREA Between 1 And 5");
    EXPECT_EQ(operatortexts::constraintLine("AREA", kBetween, "1", "5"), "AREA between '1' And '5'");
}

TEST(QueryTexts, TextFieldsOfferFiveOperatorsOthersSevenEachWithItsCode)
{
    for (const int text : {8, 129, 130, 200, 202, 203}) {
        EXPECT_EQ(operatortexts::findChoices(static_cast<std::int16_t>(text)).size(), 5) << text;
        EXPECT_EQ(operatortexts::constraintChoices(static_cast<std::int16_t>(text)).size(), 5) << text;
    }
    for (const int number : {2, 3, 4, 5, 131}) {
        EXPECT_EQ(operatortexts::findChoices(static_cast<std::int16_t>(number)).size(), 7) << number;
        EXPECT_EQ(operatortexts::constraintChoices(static_cast<std::int16_t>(number)).size(), 7) << number;
    }
    EXPECT_EQ(operatortexts::codeOf("Distinct"), kDifferent);
    EXPECT_EQ(operatortexts::codeOf("Different"), kDifferent);
    EXPECT_EQ(operatortexts::codeOf("Containing"), kContaining);
    EXPECT_EQ(operatortexts::codeOf("Between"), kBetween);
    EXPECT_EQ(operatortexts::codeOf("Like"), 0);
}

// A view at which every layer shows.
struct AnyView : ParentMap {
    std::int32_t Height() const override { return 1000; }
    float DrawScale() const override { return 1; }
    std::int32_t ImageNumberOf(std::string_view) const override { return -1; }
};

class QueryDialogs : public ::testing::Test {
protected:
    QueryDialogs()
    {
        layer& parcels = layers.AddLayer("parcels", 5, polygonlayer, view);
        parcels.Visible = true;
        parcels.Campos().Add("LOTS", 3);
        parcels.Campos().Add("NAME", 202);
    }

    AnyView view;
    Layers layers;
    ScriptedUiServices ui;
};

TEST_F(QueryDialogs, AValueThatDoesNotReadBackThroughItsFieldTypeClearsEveryConstraint)
{
    const layer& parcels = *layers.Find(5);
    EXPECT_TRUE(constraintsFit({{"LOTS", kEqual, "15", ""}}, parcels));
    EXPECT_FALSE(constraintsFit({{"LOTS", kEqual, "1.50", ""}}, parcels));
    EXPECT_FALSE(constraintsFit({{"ROAD", kEqual, "1", ""}}, parcels));
    // A field of a type past 131 ends the check.
    EXPECT_TRUE(constraintsFit({{"NAME", kEqual, "x", ""}, {"LOTS", kEqual, "1.50", ""}}, parcels));
}

TEST_F(QueryDialogs, NoPolygonWithTwoConstraintsAsksForTheWholeLayerUnderBoth)
{
    dlgSelect dialog(layers, {0, 5, 0, false, {{"LOTS", kGreater, "15", ""}, {"NAME", kContaining, "AB", ""}}}, ui);
    ui.queueDialog({"dlgSelect", {{"optNoPol", "1"}}, "OKButton"});
    ui.execDialog(dialog);
    ASSERT_FALSE(dialog.cancelled());
    ASSERT_EQ(dialog.polygonSource(), dlgSelect::NoPolygon);
    using Sent = messages::ConstrainedElementQuery;
    EXPECT_EQ(constrainedQuery(*layers.Find(5), {}, dialog.constraints()),
              (Sent{5, {}, {{"LOTS", 3, kGreater, "15", ""}, {"NAME", 202, kContaining, "AB", ""}}}));
}

// An unknown field leaves the layer locked and the field to choose; the
// operators follow the field chosen.
TEST_F(QueryDialogs, FindDialogLocksThePresetLayerAndCompletesTheCondition)
{
    dlgFindByCondition dialog(layers, {5, "ROAD", 0, kEqual, "", ""});
    const auto* layerBox = dialog.findChild<QComboBox*>("cboLayer");
    const auto* fieldBox = dialog.findChild<QComboBox*>("cboFieldName");
    const auto* operatorBox = dialog.findChild<QComboBox*>("cboOperator");
    EXPECT_FALSE(layerBox->isEnabled());
    EXPECT_TRUE(fieldBox->isEnabled() && operatorBox->isEnabled());
    EXPECT_EQ(std::tuple(fieldBox->currentText(), operatorBox->count()), std::tuple("LOTS", 7));
    ui.queueDialog({"dlgFindByCondition",
                    {{"cboFieldName", "NAME"}, {"cboOperator", "Starting with"}, {"txtValue1", "ab"}},
                    "OKButton"});
    ui.execDialog(dialog);
    EXPECT_EQ(dialog.condition(), (messages::Condition{5, "NAME", 202, kStartingWith, "ab", ""}));
}

} // namespace
