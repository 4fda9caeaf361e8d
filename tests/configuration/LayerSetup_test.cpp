#include "configuration/ThemeClasses.h"
#include "configuration/dlgLayerSetup.h"
#include "model/layer.h"
#include "ui/ScriptedUiServices.h"
#include "FakeViewer.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace orbelan;

namespace {

constexpr std::int32_t kBlack = 0x000000;
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kBorder = 0x0000FF;
constexpr std::int32_t kFill = 0x00FF00;

std::vector<std::string> bounds(const ThematicMap& themes)
{
    std::vector<std::string> texts;
    for (const Theme& theme : themes) {
        texts.push_back(theme.min + "-" + theme.max);
    }
    return texts;
}

Classification ranges(int count, TipoLayer kind)
{
    return {.method = ThemeMethod::Ranges,
            .statistics = {"0", "100"},
            .ranges = count,
            .style = Theme{.FillColor = kFill, .DrawColor = kBorder, .DrawWidth = 3},
            .firstColour = kBlack,
            .lastColour = kWhite,
            .kind = kind};
}

// Equal ranges from the minimum to the maximum after the default class,
// which keeps its style; the ramp colours the fill of polygons (127.5 is
// rounded to the even 128), the line of lines and points, nothing else.
TEST(ThemeClasses, RangesAndTheirRampColours)
{
    ThematicMap themes;
    themes.Add(0, 1, 0x123456, 0x654321, 1, kDefaultClassMarker, "");
    buildClasses(themes, ranges(4, polygonlayer));
    EXPECT_EQ(bounds(themes),
              (std::vector<std::string>{"MICanyMIC-", "0-25", "25-50", "50-75", "75-100"}));
    EXPECT_EQ(themes.Item(1)->FillColor, 0x654321);

    buildClasses(themes, ranges(3, polygonlayer));
    ASSERT_EQ(themes.count(), 4);
    EXPECT_EQ(themes.Item(2)->FillColor, kBlack);
    EXPECT_EQ(themes.Item(3)->FillColor, 0x808080);
    EXPECT_EQ(themes.Item(4)->FillColor, kWhite);
    EXPECT_EQ(themes.Item(3)->DrawColor, kBorder);
    EXPECT_EQ(themes.Item(3)->DrawWidth, 3);

    buildClasses(themes, ranges(3, polylinelayer));
    EXPECT_EQ(themes.Item(3)->DrawColor, 0x808080);
    EXPECT_EQ(themes.Item(3)->FillColor, kFill);
    buildClasses(themes, ranges(3, ImageLayer));
    EXPECT_EQ(themes.Item(4)->DrawColor, kBorder);

    // One class besides the default gets the first colour.
    buildClasses(themes, ranges(1, pointlayer));
    EXPECT_EQ(bounds(themes), (std::vector<std::string>{"MICanyMIC-", "0-100"}));
    EXPECT_EQ(themes.Item(2)->DrawColor, kBlack);
    buildClasses(themes, ranges(0, pointlayer));
    EXPECT_EQ(themes.count(), 1);
}

// The parcels: a text field and a real one, the land use as label.
class LayerSetupDialog : public ::testing::Test {
protected:
    LayerSetupDialog()
    {
        parcels.IDLayer = 102;
        parcels.Nombre = "Predios";
        parcels.Tipo = polygonlayer;
        parcels.Campos().Add("USO", 202);
        parcels.Campos().Add("AREA", 5);
        parcels.ThematicMap().Add(0, 1, kBorder, kFill, 0, kDefaultClassMarker, "");
        parcels.lblField = "USO";
        dialog = std::make_unique<dlgLayerSetup>(parcels, 12.345f, ui, nullptr);
    }

    template <typename Widget>
    Widget& child(const char* name)
    {
        auto* found = dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    QStringList lines()
    {
        QStringList texts;
        auto& list = child<QListWidget>("lstThemeClasses");
        for (int row = 0; row < list.count(); ++row) {
            texts << list.item(row)->text();
        }
        return texts;
    }

    layer parcels{anyView()};
    ScriptedUiServices ui;
    std::unique_ptr<dlgLayerSetup> dialog;
};

TEST_F(LayerSetupDialog, MethodsFollowTheFieldTypeAndTheLabelField)
{
    EXPECT_EQ(dialog->windowTitle().toStdString(), "Configuración del Layer: Predios");
    EXPECT_EQ(child<QLabel>("lblCurrHeight").text().toStdString(), "12.35 km");
    auto& field = child<QComboBox>("cbThemeField");
    auto& method = child<QComboBox>("cbThemeMethod");
    EXPECT_FALSE(child<QPushButton>("cmdQrySvr").isEnabled());

    // The label's field cannot be the theme's.
    field.setCurrentText("USO");
    EXPECT_EQ(field.currentText().toStdString(), "<None>");
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(ui.messages().back().text.toStdString(), "El campo del Tema debe ser distinto al campo de la Etiqueta");

    field.setCurrentText("AREA");
    method.setCurrentIndex(1);
    EXPECT_EQ(ui.messages().back().text.toStdString(), "Invalid");
    EXPECT_EQ(method.currentText().toStdString(), "Rangos");
    EXPECT_TRUE(child<QComboBox>("cbQtyClasses").isEnabled());
    EXPECT_TRUE(child<QPushButton>("cmdQrySvr").isEnabled());
    EXPECT_EQ(dialog->method(), ThemeMethod::Ranges);

    child<QComboBox>("cbLblField").setCurrentText("<None>");
    field.setCurrentText("USO");
    method.setCurrentIndex(0);
    EXPECT_FALSE(child<QPushButton>("cmdNewClass").isEnabled());
    method.setCurrentIndex(2);
    EXPECT_EQ(method.currentText().toStdString(), "Lista de Valores");
    EXPECT_FALSE(child<QComboBox>("cbQtyClasses").isEnabled());
    EXPECT_EQ(ui.messages().size(), 3u);
}

// Statistics give the classes; a class deleted from the middle and a new
// one added keep every class, and all of them reach the style.
TEST_F(LayerSetupDialog, ClassesFromStatisticsCanBeDeletedAndAdded)
{
    child<QComboBox>("cbThemeField").setCurrentText("AREA");
    child<QComboBox>("cbThemeMethod").setCurrentIndex(2);
    child<QComboBox>("cbQtyClasses").setCurrentText("4");
    dialog->Stats({"0", "100"});
    EXPECT_EQ(lines(), (QStringList{"<Default>", "0 to 25", "25 to 50", "50 to 75", "75 to 100"}));

    auto& list = child<QListWidget>("lstThemeClasses");
    list.setCurrentRow(2);
    EXPECT_EQ(child<QLineEdit>("txtMin").text().toStdString(), "25");
    child<QPushButton>("cmdDeleteClass").click();
    EXPECT_EQ(child<QComboBox>("cbQtyClasses").currentText().toStdString(), "3");
    EXPECT_EQ(list.currentRow(), 2);
    child<QPushButton>("cmdNewClass").click();
    child<QLineEdit>("txtMin").setText("100");
    child<QLineEdit>("txtMax").setText("200");
    child<QPushButton>("cmdChangeValues").click();
    EXPECT_EQ(lines(), (QStringList{"<Default>", "0 to 25", "50 to 75", "75 to 100", "100 to 200"}));

    list.setCurrentRow(0);
    child<QPushButton>("cmdDeleteClass").click();
    EXPECT_EQ(lines().size(), 5);

    // The colour dialog gives the selected class its fill, red in the low byte.
    list.setCurrentRow(4);
    ui.queueDialog({"dlgColor", {{"txtColor", "#102030"}}, "OKButton"});
    child<QPushButton>("cmdFillColor").click();
    ui.queueDialog({"dlgColor", {{"txtColor", "#ffffff"}}, "CancelButton"});
    child<QPushButton>("cmdBorderColor").click();

    const LayerStyle style = dialog->takeStyle();
    EXPECT_EQ(style.thematicField, "AREA");
    EXPECT_EQ(style.thematicFieldType, 5);
    EXPECT_EQ(style.classes.count(), 5);
    EXPECT_EQ(style.classes.Item(5)->max, "200");
    EXPECT_EQ(style.classes.Item(5)->FillColor, 0x302010);
    EXPECT_EQ(style.classes.Item(5)->DrawColor, style.classes.Item(4)->DrawColor);
    EXPECT_EQ(style.labelField, "USO");
}

} // namespace
