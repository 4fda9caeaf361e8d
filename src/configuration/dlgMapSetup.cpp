#include "configuration/dlgMapSetup.h"

#include "configuration/ColourChoice.h"
#include "configuration/CommaAsPoint.h"
#include "configuration/LayerSetupRecords.h"
#include "model/LeadingNumber.h"
#include "protocol/FieldValueText.h"
#include "render/OleColor.h"
#include "ui/DecimalBox.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>
#include <limits>
#include <utility>

namespace orbelan {

namespace {

constexpr float kAlwaysMinimum = 0;
constexpr float kAlwaysMaximum = 99999;

QString heightText(float kilometres)
{
    return QString::fromStdString(numberText(kilometres, WireType::Single)) + QStringLiteral(" km");
}

QString projectionName(std::int32_t code)
{
    switch (code) {
    case 0: return QStringLiteral("Latitude/Longitude");
    case 1: return QStringLiteral("Albers");
    default: return QStringLiteral("UTM %1").arg(code);
    }
}

QPushButton* namedButton(const QString& name, const QString& text, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

// The box's number as a Single; one beyond a Single's range is held to it.
float typedNumber(const QLineEdit& box)
{
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(Val(box.text().toStdString()), -kLargest, kLargest));
}

} // namespace

dlgMapSetup::dlgMapSetup(MapSetupSettings settings, UiServices& ui, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgMapSetup"), QStringLiteral("Map Setup"), parent),
      settings_(std::move(settings)),
      ui_(ui),
      lstLayers_(new QListWidget(this)),
      txtZoomMin_(decimalBox(QStringLiteral("txtZoomMin"), this)),
      txtZoomMax_(decimalBox(QStringLiteral("txtZoomMax"), this)),
      cboUserVisibility_(new QComboBox(this)),
      cmdMoveUpLayer_(namedButton(QStringLiteral("cmdMoveUpLayer"), QStringLiteral("Up"), this)),
      cmdMoveDownLayer_(namedButton(QStringLiteral("cmdMoveDownLayer"), QStringLiteral("Down"), this)),
      cmdDropLayer_(namedButton(QStringLiteral("cmdDropLayer"), QStringLiteral("Drop"), this)),
      cmdModifyLayer_(namedButton(QStringLiteral("cmdModifyLayer"), QStringLiteral("Asignar"), this)),
      setZoomAlways_(namedButton(QStringLiteral("SetZoomAlways"), QStringLiteral("Siempre"), this)),
      lblInitialHeight_(new QLabel(heightText(settings_.initialHeight), this)),
      lblCurrentHeight_(new QLabel(heightText(settings_.currentHeight), this)),
      shpBGColor_(new QFrame(this)),
      cbProjection_(new QComboBox(this))
{
    lstLayers_->setObjectName(QStringLiteral("lstLayers"));
    new CommaAsPoint(*txtZoomMin_);
    new CommaAsPoint(*txtZoomMax_);
    cboUserVisibility_->setObjectName(QStringLiteral("cboUserVisibility"));
    cboUserVisibility_->addItems({QStringLiteral("Off"), QStringLiteral("Auto"), QStringLiteral("On")});
    lblInitialHeight_->setObjectName(QStringLiteral("lblInitialHeight"));
    lblCurrentHeight_->setObjectName(QStringLiteral("lblCurrentHeight"));
    shpBGColor_->setObjectName(QStringLiteral("shpBGColor"));
    shpBGColor_->setFrameShape(QFrame::Box);
    shpBGColor_->setAutoFillBackground(true);
    shpBGColor_->setMinimumSize(48, 20);
    cbProjection_->setObjectName(QStringLiteral("cbProjection"));
    cbProjection_->addItem(projectionName(settings_.projection), settings_.projection);

    connect(lstLayers_, &QListWidget::currentRowChanged, this, &dlgMapSetup::showRecord);
    connect(cmdMoveUpLayer_, &QPushButton::clicked, this, [this] { moveCurrent(-1); });
    connect(cmdMoveDownLayer_, &QPushButton::clicked, this, [this] { moveCurrent(1); });
    connect(cmdDropLayer_, &QPushButton::clicked, this, &dlgMapSetup::toggleDropped);
    connect(cmdModifyLayer_, &QPushButton::clicked, this, &dlgMapSetup::assignZoom);
    connect(setZoomAlways_, &QPushButton::clicked, this, &dlgMapSetup::zoomAlways);
    connect(cboUserVisibility_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (CLayerSetupDef* record = currentRecord()) {
            record->UserVisibility = static_cast<std::int16_t>(index);
        }
    });

    auto* columns = new QHBoxLayout;
    columns->addWidget(lstLayers_, 1);
    columns->addWidget(buildLayerControls());
    fields().addLayout(columns);
    fields().addWidget(buildMapControls());
    showBackColor();
    showLayers();
    showRecord(-1);
}

QWidget* dlgMapSetup::buildLayerControls()
{
    auto* panel = new QWidget(this);
    auto* form = new QFormLayout(panel);
    form->addRow(cmdMoveUpLayer_, cmdMoveDownLayer_);
    form->addRow(QStringLiteral("Zoom Min"), txtZoomMin_);
    form->addRow(QStringLiteral("Zoom Max"), txtZoomMax_);
    form->addRow(cmdModifyLayer_, setZoomAlways_);
    form->addRow(QStringLiteral("Visibility"), cboUserVisibility_);
    form->addRow(cmdDropLayer_);
    return panel;
}

QWidget* dlgMapSetup::buildMapControls()
{
    auto* panel = new QWidget(this);
    auto* form = new QFormLayout(panel);
    auto* cmdSetInitialHeight =
        namedButton(QStringLiteral("cmdSetInitialHeight"), QStringLiteral("Set Initial Height"), panel);
    auto* cmdBackColor = namedButton(QStringLiteral("cmdBackColor"), QStringLiteral("Background Color"), panel);
    connect(cmdSetInitialHeight, &QPushButton::clicked, this, &dlgMapSetup::setInitialHeight);
    connect(cmdBackColor, &QPushButton::clicked, this, &dlgMapSetup::chooseBackColor);
    form->addRow(QStringLiteral("Current height"), lblCurrentHeight_);
    form->addRow(QStringLiteral("Initial height"), lblInitialHeight_);
    form->addRow(cmdSetInitialHeight);
    form->addRow(shpBGColor_, cmdBackColor);
    form->addRow(QStringLiteral("Projection"), cbProjection_);
    return panel;
}

void dlgMapSetup::showLayers()
{
    const int row = lstLayers_->currentRow();
    const QSignalBlocker quiet(lstLayers_);
    lstLayers_->clear();
    for (const CLayerSetupDef& record : settings_.layers) {
        lstLayers_->addItem(layerSetupLine(record));
    }
    lstLayers_->setCurrentRow(row);
}

void dlgMapSetup::showRecord(int row)
{
    const CLayerSetupDef* record = currentRecord();
    const int last = static_cast<int>(settings_.layers.size()) - 1;
    cmdMoveUpLayer_->setEnabled(record != nullptr && row > 0);
    cmdMoveDownLayer_->setEnabled(record != nullptr && row < last);
    for (QWidget* control : {static_cast<QWidget*>(cmdDropLayer_), static_cast<QWidget*>(cmdModifyLayer_),
                             static_cast<QWidget*>(setZoomAlways_), static_cast<QWidget*>(cboUserVisibility_)}) {
        control->setEnabled(record != nullptr);
    }
    if (record == nullptr) {
        return;
    }
    txtZoomMin_->setText(QString::fromStdString(numberText(record->ZoomMin, WireType::Single)));
    txtZoomMax_->setText(QString::fromStdString(numberText(record->ZoomMax, WireType::Single)));
    const QSignalBlocker quiet(cboUserVisibility_);
    cboUserVisibility_->setCurrentIndex(record->UserVisibility);
    cmdDropLayer_->setText(record->Dropped ? QStringLiteral("Undrop") : QStringLiteral("Drop"));
}

CLayerSetupDef* dlgMapSetup::currentRecord()
{
    const int row = lstLayers_->currentRow();
    if (row < 0 || row >= static_cast<int>(settings_.layers.size())) {
        return nullptr;
    }
    return &settings_.layers[static_cast<std::size_t>(row)];
}

void dlgMapSetup::moveCurrent(int by)
{
    const int row = lstLayers_->currentRow();
    const int target = row + by;
    if (currentRecord() == nullptr || target < 0 || target >= static_cast<int>(settings_.layers.size())) {
        return;
    }
    std::swap(settings_.layers[static_cast<std::size_t>(row)], settings_.layers[static_cast<std::size_t>(target)]);
    showLayers();
    lstLayers_->setCurrentRow(target);
}

void dlgMapSetup::toggleDropped()
{
    if (CLayerSetupDef* record = currentRecord()) {
        record->Dropped = !record->Dropped;
        showLayers();
        showRecord(lstLayers_->currentRow());
    }
}

void dlgMapSetup::assignZoom()
{
    if (CLayerSetupDef* record = currentRecord()) {
        record->ZoomMin = typedNumber(*txtZoomMin_);
        record->ZoomMax = typedNumber(*txtZoomMax_);
        showLayers();
    }
}

void dlgMapSetup::zoomAlways()
{
    if (CLayerSetupDef* record = currentRecord()) {
        record->ZoomMin = kAlwaysMinimum;
        record->ZoomMax = kAlwaysMaximum;
        showLayers();
        showRecord(lstLayers_->currentRow());
    }
}

void dlgMapSetup::setInitialHeight()
{
    settings_.initialHeight = settings_.currentHeight;
    settings_.initialViewIsCurrent = true;
    lblInitialHeight_->setText(heightText(settings_.initialHeight));
}

void dlgMapSetup::chooseBackColor()
{
    const auto current = static_cast<std::int32_t>(settings_.backgroundColor);
    if (const auto chosen = chooseColour(ui_, this, current)) {
        settings_.backgroundColor = static_cast<decltype(settings_.backgroundColor)>(*chosen);
        showBackColor();
    }
}

void dlgMapSetup::showBackColor()
{
    QPalette colours = shpBGColor_->palette();
    colours.setColor(QPalette::Window, olecolor::toQColor(settings_.backgroundColor, palette()));
    shpBGColor_->setPalette(colours);
}

} // namespace orbelan
