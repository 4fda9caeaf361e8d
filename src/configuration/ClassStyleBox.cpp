#include "configuration/ClassStyleBox.h"

#include "configuration/ClassPreview.h"
#include "configuration/ColourChoice.h"

#include <QComboBox>
#include <QFormLayout>
#include <QPushButton>

#include <utility>

namespace orbelan {

namespace {

QComboBox* listBox(const char* name, const QStringList& entries, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->addItems(entries);
    return box;
}

QStringList widths()
{
    QStringList entries;
    for (int width = 1; width <= 10; ++width) {
        entries << QString::number(width);
    }
    return entries;
}

} // namespace

ClassStyleBox::ClassStyleBox(TipoLayer kind, UiServices& ui, std::function<void()> changed, QWidget* parent)
    : QWidget(parent),
      ui_(ui),
      changed_(std::move(changed)),
      borderStyle_(listBox("cbBStyle", {"Solid", "Dash", "Dot", "Dash-Dot", "Dash-Dot-Dot", "Transparent"}, this)),
      borderWidth_(listBox("cbBWidth", widths(), this)),
      fillMode_(listBox("cbFillMode",
                        {"Solid", "Transparent", "Horizontal Line", "Vertical Line", "Upward Diagonal",
                         "Downward Diagonal", "Cross", "Diagonal Cross"},
                        this)),
      preview_(new ClassPreview(kind, this))
{
    auto* borderColour = new QPushButton(QStringLiteral("Border Color..."), this);
    borderColour->setObjectName(QStringLiteral("cmdBorderColor"));
    auto* fillColour = new QPushButton(QStringLiteral("Fill Color..."), this);
    fillColour->setObjectName(QStringLiteral("cmdFillColor"));
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(QStringLiteral("Border style:"), borderStyle_);
    form->addRow(QStringLiteral("Border width:"), borderWidth_);
    form->addRow(QStringLiteral("Fill mode:"), fillMode_);
    form->addRow(borderColour, fillColour);
    form->addRow(preview_);
    for (QComboBox* box : {borderStyle_, borderWidth_, fillMode_}) {
        connect(box, &QComboBox::currentIndexChanged, this, &ClassStyleBox::readControls);
    }
    connect(borderColour, &QPushButton::clicked, this, [this] { chooseColour(&Theme::DrawColor); });
    connect(fillColour, &QPushButton::clicked, this, [this] { chooseColour(&Theme::FillColor); });
    showStyle(style_);
}

void ClassStyleBox::showStyle(const Theme& style)
{
    style_ = style;
    showing_ = true;
    borderStyle_->setCurrentIndex(style.DrawStyle);
    borderWidth_->setCurrentIndex(style.DrawWidth - 1);
    fillMode_->setCurrentIndex(style.FillStyle);
    showing_ = false;
    preview_->showStyle(style_);
}

// An index outside a list (a style the lists lack) keeps the class's value.
void ClassStyleBox::readControls()
{
    if (showing_) {
        return;
    }
    if (borderStyle_->currentIndex() >= 0) {
        style_.DrawStyle = borderStyle_->currentIndex();
    }
    if (borderWidth_->currentIndex() >= 0) {
        style_.DrawWidth = borderWidth_->currentIndex() + 1;
    }
    if (fillMode_->currentIndex() >= 0) {
        style_.FillStyle = fillMode_->currentIndex();
    }
    preview_->showStyle(style_);
    changed_();
}

void ClassStyleBox::chooseColour(std::int32_t Theme::*colour)
{
    if (const auto chosen = orbelan::chooseColour(ui_, this, style_.*colour)) {
        style_.*colour = *chosen;
        preview_->showStyle(style_);
        changed_();
    }
}

} // namespace orbelan
