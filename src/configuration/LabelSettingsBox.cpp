#include "configuration/LabelSettingsBox.h"

#include "configuration/ColourChoice.h"
#include "configuration/CommaAsPoint.h"
#include "ui/DecimalBox.h"
#include "model/layer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace orbelan {

namespace {

const QString kNone = QStringLiteral("<None>");

QLineEdit* heightBox(const char* name, float height, QWidget* parent)
{
    QLineEdit* box = decimalBox(QString::fromLatin1(name), parent);
    box->setText(QString::number(height));
    new CommaAsPoint(*box);
    return box;
}

QCheckBox* checkBox(const char* name, const QString& text, bool checked, QWidget* parent)
{
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setChecked(checked);
    return box;
}

} // namespace

LabelSettingsBox::LabelSettingsBox(const layer& source, float currentHeight, UiServices& ui,
                                   std::function<void()> fieldChosen, QWidget* parent)
    : QWidget(parent),
      ui_(ui),
      field_(new QComboBox(this)),
      colourButton_(new QPushButton(QStringLiteral("Label Color..."), this)),
      bold_(checkBox("chklblBold", QStringLiteral("Bold"), source.lblBold, this)),
      visibility_(new QComboBox(this)),
      minHeight_(heightBox("txtMinHeight", source.lblZoomMin, this)),
      maxHeight_(heightBox("txtMaxHeight", source.lblZoomMax, this)),
      allowDuplicates_(checkBox("chkAllowDuplicates", QStringLiteral("Allow duplicates"),
                                source.lblAllowDuplicates, this)),
      directions_(checkBox("chkDirections", QStringLiteral("Show directions"), source.UserDirectionVisibility() != 0, this)),
      colour_(source.lblColor)
{
    field_->setObjectName(QStringLiteral("cbLblField"));
    field_->addItem(kNone);
    for (const Campo& campo : source.Campos()) {
        field_->addItem(QString::fromStdString(campo.Nombre));
    }
    const int current = field_->findText(QString::fromStdString(source.lblField), Qt::MatchFixedString);
    field_->setCurrentIndex(source.lblField.empty() || current < 0 ? 0 : current);
    colourButton_->setObjectName(QStringLiteral("cmdlblColor"));
    paintSwatch(*colourButton_, colour_);
    visibility_->setObjectName(QStringLiteral("cbLblVisible"));
    visibility_->addItems({QStringLiteral("Off"), QStringLiteral("Auto"), QStringLiteral("On")});
    visibility_->setCurrentIndex(source.UserLabelVisibility());
    auto* height = new QLabel(QString::number(currentHeight, 'f', 2) + QStringLiteral(" km"), this);
    height->setObjectName(QStringLiteral("lblCurrHeight"));

    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(QStringLiteral("Label field:"), field_);
    form->addRow(colourButton_, bold_);
    form->addRow(QStringLiteral("Labels:"), visibility_);
    form->addRow(QStringLiteral("From height:"), minHeight_);
    form->addRow(QStringLiteral("To height:"), maxHeight_);
    form->addRow(QStringLiteral("Current height:"), height);
    form->addRow(allowDuplicates_);
    form->addRow(directions_);

    followField();
    followVisibility();
    connect(field_, &QComboBox::currentIndexChanged, this, [this, chosen = std::move(fieldChosen)] {
        followField();
        chosen();
    });
    connect(visibility_, &QComboBox::currentIndexChanged, this, &LabelSettingsBox::followVisibility);
    connect(colourButton_, &QPushButton::clicked, this, [this] {
        if (const auto chosen = chooseColour(ui_, this, colour_)) {
            colour_ = *chosen;
            paintSwatch(*colourButton_, colour_);
        }
    });
}

QString LabelSettingsBox::field() const
{
    return field_->currentText();
}

void LabelSettingsBox::clearField()
{
    const QSignalBlocker quiet(field_);
    field_->setCurrentIndex(0);
    followField();
}

void LabelSettingsBox::writeTo(LayerStyle& style) const
{
    style.labelField = field_->currentIndex() <= 0 ? std::string() : field_->currentText().toStdString();
    style.labelBold = bold_->isChecked();
    style.labelColour = colour_;
    style.labelZoomMin = minHeight_->text().toFloat();
    style.labelZoomMax = maxHeight_->text().toFloat();
    style.allowDuplicates = allowDuplicates_->isChecked();
    style.labelVisibility = static_cast<std::int16_t>(std::max(visibility_->currentIndex(), 0));
    style.directions = directions_->isChecked();
}

void LabelSettingsBox::followField()
{
    const bool labelled = field_->currentIndex() > 0;
    for (QWidget* control : std::initializer_list<QWidget*>{colourButton_, visibility_, bold_}) {
        control->setEnabled(labelled);
    }
}

void LabelSettingsBox::followVisibility()
{
    const bool byHeight = visibility_->currentIndex() == 1;
    minHeight_->setEnabled(byHeight);
    maxHeight_->setEnabled(byHeight);
}

} // namespace orbelan
