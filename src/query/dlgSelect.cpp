#include "query/dlgSelect.h"

#include "model/Layers.h"
#include "query/ConstraintCheck.h"
#include "query/LayerByName.h"
#include "query/OperatorTexts.h"
#include "query/QueryWidgets.h"
#include "query/dlgConstraintBuilder.h"
#include "ui/UiServices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace orbelan {

namespace {

using namespace querywidgets;

const QString kCaption = QStringLiteral("Selección Múltiple");
const QString kSameLayer = QStringLiteral(
    "Error: No se puede usar el mismo layer para dibujar o seleccionar el polígono y consultar elementos");

template <typename Control>
Control* named(const char* name, const QString& text, QWidget* parent)
{
    auto* control = new Control(text, parent);
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

} // namespace

dlgSelect::dlgSelect(const Layers& layers, const SelectionPreset& preset, UiServices& ui, QWidget* parent)
    : QDialog(parent),
      layers_(layers),
      ui_(ui),
      sourceLayer_(preset.sourceLayer),
      targetLayer_(preset.targetLayer),
      sourceBox_(comboBox("cboSourceLayer", this)),
      targetBox_(comboBox("cboTargetLayer", this)),
      noPolygon_(named<QRadioButton>("optNoPol", QStringLiteral("No polygon"), this)),
      elementPolygon_(named<QRadioButton>("optSelPol", QStringLiteral("Polygon of a layer"), this)),
      drawnPolygon_(named<QRadioButton>("optDrawPol", QStringLiteral("Draw a polygon"), this)),
      pickButton_(named<QPushButton>("cmdSelPol", QStringLiteral("Select Polygon"), this)),
      drawButton_(named<QPushButton>("cmdDrawPol", QStringLiteral("Draw Polygon"), this)),
      elementLabel_(label("lblSelectedElement", {}, this)),
      restrictions_(named<QCheckBox>("chkRestrictions", QStringLiteral("Constraints"), this)),
      constraintList_(new QListWidget(this)),
      addButton_(named<QPushButton>("cmdAddConstraint", QStringLiteral("Add"), this)),
      removeButton_(named<QPushButton>("cmdRemConstraint", QStringLiteral("Remove"), this))
{
    setObjectName(QStringLiteral("dlgSelect"));
    setWindowTitle(kCaption);
    constraintList_->setObjectName(QStringLiteral("lstConstraints"));
    buildLayout();
    const layer* source = layers.Find(sourceLayer_);
    if (preset.polygonElement != 0 && source && source->Entidades.Find(preset.polygonElement))
        setPolygonElement(preset.polygonElement);
    else
        setPolygonElement(0);
    fillLayerLists(preset);
    (preset.fromPolygon ? elementPolygon_ : drawnPolygon_)->setChecked(true);
    setConstraints(preset.constraints);
    restrictions_->setChecked(!constraints_.empty());
    connectControls();
    choosePolygonSource();
    restrict(restrictions_->isChecked());
}

void dlgSelect::buildLayout()
{
    auto* layersForm = new QFormLayout;
    layersForm->addRow(QStringLiteral("Polygon layer:"), sourceBox_);
    layersForm->addRow(QStringLiteral("Query layer:"), targetBox_);
    auto* polygon = new QVBoxLayout;
    polygon->addWidget(noPolygon_);
    for (auto [option, button] : {std::pair{elementPolygon_, pickButton_}, std::pair{drawnPolygon_, drawButton_}}) {
        auto* row = new QHBoxLayout;
        row->addWidget(option);
        row->addWidget(button);
        polygon->addLayout(row);
    }
    polygon->addWidget(elementLabel_);
    auto* constraintButtons = new QHBoxLayout;
    constraintButtons->addWidget(restrictions_);
    constraintButtons->addStretch();
    constraintButtons->addWidget(addButton_);
    constraintButtons->addWidget(removeButton_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton* ok = named<QPushButton>("OKButton", QStringLiteral("OK"), this);
    QPushButton* cancel = named<QPushButton>("CancelButton", QStringLiteral("Cancel"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &dlgSelect::confirm);
    connect(cancel, &QPushButton::clicked, this, &dlgSelect::reject);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(layersForm);
    layout->addLayout(polygon);
    layout->addLayout(constraintButtons);
    layout->addWidget(constraintList_, 1);
    layout->addLayout(buttons);
}

void dlgSelect::connectControls()
{
    for (QRadioButton* option : {noPolygon_, elementPolygon_, drawnPolygon_})
        connect(option, &QRadioButton::toggled, this, &dlgSelect::choosePolygonSource);
    connect(pickButton_, &QPushButton::clicked, this, [this] { endFor(PickPolygon); });
    connect(drawButton_, &QPushButton::clicked, this, [this] { endFor(DrawPolygon); });
    connect(sourceBox_, &QComboBox::currentIndexChanged, this, &dlgSelect::chooseSourceLayer);
    connect(targetBox_, &QComboBox::currentIndexChanged, this, &dlgSelect::chooseTargetLayer);
    connect(restrictions_, &QCheckBox::toggled, this, &dlgSelect::restrict);
    connect(constraintList_, &QListWidget::currentRowChanged, this,
            [this] { removeButton_->setEnabled(restrictions_->isChecked() && !constraints_.empty()); });
    connect(addButton_, &QPushButton::clicked, this, &dlgSelect::addConstraint);
    connect(removeButton_, &QPushButton::clicked, this, &dlgSelect::removeConstraint);
}

void dlgSelect::fillLayerLists(const SelectionPreset& preset)
{
    for (const layer& mapLayer : layers_) {
        const QString name = QString::fromStdString(mapLayer.Nombre);
        if (mapLayer.Visible && mapLayer.Tipo == polygonlayer)
            sourceBox_->addItem(name);
        if (mapLayer.Visible)
            targetBox_->addItem(name);
    }
    sourceBox_->setCurrentIndex(-1);
    targetBox_->setCurrentIndex(-1);
    if (const layer* source = layers_.Find(preset.sourceLayer))
        sourceBox_->setCurrentText(QString::fromStdString(source->Nombre));
    if (const layer* target = layers_.Find(preset.targetLayer))
        targetBox_->setCurrentText(QString::fromStdString(target->Nombre));
    targetName_ = targetBox_->currentText();
}

dlgSelect::PolygonSource dlgSelect::polygonSource() const
{
    if (elementPolygon_->isChecked())
        return ElementPolygon;
    return drawnPolygon_->isChecked() ? DrawnPolygon : NoPolygon;
}

void dlgSelect::setPolygonElement(std::int32_t id)
{
    polygonElement_ = id;
    QString text;
    const layer* source = layers_.Find(sourceLayer_);
    if (id != 0) {
        text = QStringLiteral("Element #: ") + QString::number(id);
        const Entidad* element = source ? source->Entidades.Find(id) : nullptr;
        const Dictionary* label =
            element && element->IDLabel != 0 ? source->Labels().Item(element->IDLabel) : nullptr;
        if (label)
            text += QStringLiteral("  Etiqueta: ") + QString::fromStdString(label->word);
    }
    elementLabel_->setText(text);
}

std::vector<Constraint> dlgSelect::constraints() const
{
    return restrictions_->isChecked() ? constraints_ : std::vector<Constraint>{};
}

void dlgSelect::setConstraints(std::vector<Constraint> constraints)
{
    const layer* target = layers_.Find(targetLayer_);
    constraints_ = target && constraintsFit(constraints, *target) ? std::move(constraints) : std::vector<Constraint>{};
    drawConstraints();
}

void dlgSelect::reject()
{
    cancelled_ = true;
    QDialog::reject();
}

void dlgSelect::choosePolygonSource()
{
    pickButton_->setEnabled(elementPolygon_->isChecked());
    drawButton_->setEnabled(drawnPolygon_->isChecked());
}

void dlgSelect::chooseSourceLayer()
{
    if (const layer* chosen = layerByName(layers_, sourceBox_->currentText()))
        sourceLayer_ = chosen->IDLayer;
}

void dlgSelect::chooseTargetLayer()
{
    if (!constraints_.empty() &&
        ui_.messageBox(this, QStringLiteral("OK para continuar?"), MessageButtons::YesNo, MessageIcon::None,
                       kCaption) == MessageAnswer::No) {
        const QSignalBlocker quiet(targetBox_);
        targetBox_->setCurrentText(targetName_);
        return;
    }
    targetName_ = targetBox_->currentText();
    const layer* chosen = layerByName(layers_, targetName_);
    const std::int32_t previous = targetLayer_;
    targetLayer_ = chosen ? chosen->IDLayer : 0;
    if (targetLayer_ == sourceLayer_)
        ui_.messageBox(this, kSameLayer, MessageButtons::OK, MessageIcon::Exclamation, kCaption);
    else if (targetLayer_ != previous)
        setConstraints({});
}

void dlgSelect::restrict(bool restricted)
{
    addButton_->setEnabled(restricted);
    removeButton_->setEnabled(restricted && !constraints_.empty());
    constraintList_->setStyleSheet(restricted ? QString() : QStringLiteral("background: palette(window);"));
}

void dlgSelect::addConstraint()
{
    const layer* target = layers_.Find(targetLayer_);
    if (target == nullptr)
        return;
    dlgConstraintBuilder builder(*target, {}, this);
    ui_.execDialog(builder);
    if (!builder.cancelled()) {
        constraints_.push_back(builder.constraint());
        drawConstraints();
    }
}

void dlgSelect::removeConstraint()
{
    const int chosen = constraintList_->currentRow();
    if (chosen >= 0 && static_cast<std::size_t>(chosen) < constraints_.size()) {
        constraints_.erase(constraints_.begin() + chosen);
        drawConstraints();
    }
}

void dlgSelect::drawConstraints()
{
    constraintList_->clear();
    for (const Constraint& constraint : constraints_) {
        constraintList_->addItem(operatortexts::constraintLine(
            constraint.field, static_cast<std::uint8_t>(constraint.op), constraint.value1, constraint.value2));
    }
    if (constraints_.empty())
        constraintList_->addItem(QStringLiteral("No Constraints"));
    constraintList_->setEnabled(!constraints_.empty());
    removeButton_->setEnabled(restrictions_->isChecked() && !constraints_.empty());
}

void dlgSelect::endFor(PolygonAction action)
{
    action_ = action;
    cancelled_ = false;
    accept();
}

void dlgSelect::confirm()
{
    const QString refused = refusal();
    if (refused.isEmpty()) {
        endFor(Go);
        return;
    }
    ui_.messageBox(this, refused, MessageButtons::OK, MessageIcon::Exclamation, kCaption);
}

QString dlgSelect::refusal() const
{
    const PolygonSource source = polygonSource();
    if (sourceLayer_ == targetLayer_)
        return kSameLayer;
    if (source == ElementPolygon && polygonElement_ == 0)
        return QStringLiteral("Debe seleccionar al menos un poligono");
    if (source == NoPolygon && constraints().empty())
        return QStringLiteral("Seleccionar o dibujar un poligono o restringir la consulta");
    const bool layersShow = source == NoPolygon ? visible(targetLayer_) : visible(sourceLayer_) && visible(targetLayer_);
    return layersShow ? QString() : QStringLiteral("Los layers deben ser visibles");
}

bool dlgSelect::visible(std::int32_t layerId) const
{
    const layer* found = layers_.Find(layerId);
    return found && found->Visible;
}

} // namespace orbelan
