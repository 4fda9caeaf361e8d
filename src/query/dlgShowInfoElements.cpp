#include "query/dlgShowInfoElements.h"

#include "query/GridText.h"
#include "query/InfoGridModel.h"
#include "query/QueryMap.h"
#include "query/QueryWidgets.h"
#include "query/TotalLastProxy.h"
#include "ui/FieldKeyFilter.h"

#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace orbelan {

namespace {

// A quarter of an inch below the last control shown.
constexpr int kBottomMargin = 24;

} // namespace

dlgShowInfoElements::dlgShowInfoElements(std::unique_ptr<InfoGridModel> grid, std::int32_t layerId, bool editable,
                                         QueryMap& map, QWidget* parent)
    : QDialog(parent),
      grid_(grid.release()),
      edits_(*grid_),
      sorted_(new TotalLastProxy(this)),
      layerId_(layerId),
      editable_(editable),
      map_(map),
      table_(new QTableView(this)),
      body_(new QWidget(this)),
      selectedCount_(new QLabel(this)),
      updateFrame_(new QGroupBox(this)),
      newValueLabel_(new QLabel(QStringLiteral("New Value:"), updateFrame_)),
      valueBox_(new QLineEdit(updateFrame_)),
      okButton_(new QPushButton(QStringLiteral("OK"), updateFrame_)),
      clearButton_(new QPushButton(QStringLiteral("Clear"), updateFrame_))
{
    setObjectName(QStringLiteral("dlgShowInfoElements"));
    setWindowTitle(QStringLiteral("Information"));
    setSizeGripEnabled(true);
    grid_->setParent(this);
    sorted_->setSourceModel(grid_);
    table_->setObjectName(QStringLiteral("grdInfoElements"));
    table_->setModel(sorted_);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table_->setSortingEnabled(true);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    selectedCount_->setObjectName(QStringLiteral("lblSelectedElements"));
    selectedCount_->setText(QStringLiteral("Numero de Elementos Seleccionados: ") + QString::number(grid_->dataRows()));
    updateFrame_->setObjectName(QStringLiteral("frmUpdate"));
    newValueLabel_->setObjectName(QStringLiteral("lblNewValue"));
    valueBox_->setObjectName(QStringLiteral("txtValue"));
    okButton_->setObjectName(QStringLiteral("cmdOK"));
    clearButton_->setObjectName(QStringLiteral("cmdClear"));
    buildLayout();
    connectButtons();
    updateFrame_->setVisible(editable_);
    updateButton_->setEnabled(editable_);
    undoButton_->setEnabled(false);
    showWindowButton_->hide();
    setTyping(false);
}

dlgShowInfoElements::~dlgShowInfoElements() = default;

QPushButton* dlgShowInfoElements::addButton(const char* name, const QString& caption)
{
    return querywidgets::button(name, caption, this);
}

void dlgShowInfoElements::buildLayout()
{
    auto* top = new QHBoxLayout;
    for (auto [name, caption] : {std::pair{"cmdShow", "Show"}, std::pair{"cmdZoom2Objects", "Zoom"},
                                 std::pair{"cmdCopy", "Copy"}, std::pair{"UndoUpdate", "Undo"}}) {
        top->addWidget(addButton(name, QString::fromLatin1(caption)));
    }
    showWindowButton_ = addButton("cmdShowWindow", QStringLiteral("Show Window"));
    top->addWidget(showWindowButton_);
    top->addStretch();
    undoButton_ = findChild<QPushButton*>(QStringLiteral("UndoUpdate"));

    auto* frame = new QHBoxLayout(updateFrame_);
    frame->addWidget(newValueLabel_);
    frame->addWidget(valueBox_, 1);
    frame->addWidget(okButton_);
    frame->addWidget(clearButton_);

    updateButton_ = addButton("cmdUpdate", QStringLiteral("Update"));
    cancelButton_ = addButton("cmdCancel", QStringLiteral("Cancel"));
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(updateButton_);
    bottom->addWidget(cancelButton_);

    auto* body = new QVBoxLayout(body_);
    body->setContentsMargins(0, 0, 0, 0);
    body->addWidget(selectedCount_);
    body->addWidget(table_, 1);
    body->addWidget(updateFrame_);
    body->addLayout(bottom);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(body_, 1);
}

void dlgShowInfoElements::connectButtons()
{
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &dlgShowInfoElements::chooseRow);
    connect(table_, &QTableView::doubleClicked, this, &dlgShowInfoElements::chooseColumn);
    connect(okButton_, &QPushButton::clicked, this, &dlgShowInfoElements::applyValue);
    connect(clearButton_, &QPushButton::clicked, this, &dlgShowInfoElements::abandonValue);
    connect(undoButton_, &QPushButton::clicked, this, &dlgShowInfoElements::undo);
    connect(updateButton_, &QPushButton::clicked, this, &dlgShowInfoElements::update);
    connect(cancelButton_, &QPushButton::clicked, this, [this] { QDialog::reject(); });
    connect(findChild<QPushButton*>(QStringLiteral("cmdCopy")), &QPushButton::clicked, this,
            &dlgShowInfoElements::copy);
    connect(findChild<QPushButton*>(QStringLiteral("cmdShow")), &QPushButton::clicked, this,
            &dlgShowInfoElements::showElements);
    connect(findChild<QPushButton*>(QStringLiteral("cmdZoom2Objects")), &QPushButton::clicked, this,
            &dlgShowInfoElements::zoomToElements);
    connect(showWindowButton_, &QPushButton::clicked, this, &dlgShowInfoElements::fullLayout);
}

void dlgShowInfoElements::reject()
{
    escapeButton_->click();
}

int dlgShowInfoElements::sourceColumn(const QModelIndex& index) const
{
    return sorted_->mapToSource(index).column();
}

void dlgShowInfoElements::chooseRow(const QModelIndex& current)
{
    const int row = sorted_->mapToSource(current).row();
    if (!selectionEnabled_ || row < 0 || row >= grid_->dataRows())
        return;
    map_.clearHighlight();
    if (const std::int32_t id = grid_->id(row); id != 0)
        map_.highlightElement(layerId_, id);
}

void dlgShowInfoElements::chooseColumn(const QModelIndex& cell)
{
    const int column = sourceColumn(cell);
    if (!editable_ || !selectionEnabled_ || column < 1)
        return;
    editColumn_ = column;
    edits_.choose(column);
    delete valueFilter_;
    valueFilter_ = new FieldKeyFilter(grid_->column(column).fieldType, *valueBox_);
    setTyping(true);
}

void dlgShowInfoElements::applyValue()
{
    edits_.apply(editColumn_, valueBox_->text());
    undoButton_->setEnabled(true);
    setTyping(false);
}

void dlgShowInfoElements::abandonValue()
{
    edits_.abandon(editColumn_);
    setTyping(false);
}

void dlgShowInfoElements::undo()
{
    edits_.undo();
    undoButton_->setEnabled(false);
}

void dlgShowInfoElements::update()
{
    cancelled_ = false;
    accept();
}

void dlgShowInfoElements::copy()
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(gridText(*sorted_));
}

void dlgShowInfoElements::showElements()
{
    for (const std::int32_t id : grid_->ids())
        map_.highlightElement(layerId_, id);
    compactLayout();
}

void dlgShowInfoElements::zoomToElements()
{
    map_.zoomToElements(layerId_, grid_->ids());
    compactLayout();
}

void dlgShowInfoElements::compactLayout()
{
    if (body_->isHidden())
        return;
    fullHeight_ = height();
    body_->hide();
    showWindowButton_->show();
    resize(width(), showWindowButton_->geometry().bottom() + kBottomMargin);
}

void dlgShowInfoElements::fullLayout()
{
    showWindowButton_->hide();
    body_->show();
    resize(width(), std::max(fullHeight_, updateButton_->geometry().bottom() + kBottomMargin));
}

void dlgShowInfoElements::setTyping(bool typing)
{
    selectionEnabled_ = !typing;
    valueBox_->clear();
    for (QWidget* control : {static_cast<QWidget*>(newValueLabel_), static_cast<QWidget*>(valueBox_),
                             static_cast<QWidget*>(okButton_), static_cast<QWidget*>(clearButton_)}) {
        control->setEnabled(typing);
    }
    updateFrame_->setEnabled(editable_);
    okButton_->setDefault(typing);
    updateButton_->setDefault(!typing);
    escapeButton_ = typing ? clearButton_ : cancelButton_;
}

} // namespace orbelan
