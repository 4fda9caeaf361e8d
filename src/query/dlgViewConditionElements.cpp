#include "query/dlgViewConditionElements.h"

#include "model/layer.h"
#include "query/OperatorTexts.h"
#include "query/QueryMap.h"
#include "query/QueryWidgets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace orbelan {

using namespace querywidgets;

dlgViewConditionElements::dlgViewConditionElements(ElementList list, const layer* target, QueryMap& map,
                                                   QWidget* parent)
    : QDialog(parent),
      list_(std::move(list)),
      target_(target),
      map_(map),
      elements_(new QListWidget(this)),
      serverLabel_(label("lblServer", QStringLiteral("Not loaded: the element is on the server"), this)),
      highlightButton_(button("cmdResaltarElemento", QStringLiteral("Resaltar Elemento"), this)),
      infoButton_(button("cmdViewInfo", QStringLiteral("View Info"), this))
{
    setObjectName(QStringLiteral("dlgViewConditionElements"));
    setWindowTitle(QStringLiteral("Elements"));
    setSizeGripEnabled(true);
    elements_->setObjectName(QStringLiteral("lstElements"));
    elements_->addItems(list_.texts);
    if (!finding())
        highlightButton_->setText(QStringLiteral("Editar Info"));
    highlightButton_->setEnabled(false);
    infoButton_->setEnabled(false);
    serverLabel_->hide();
    buildLayout();
    connect(elements_, &QListWidget::currentRowChanged, this, &dlgViewConditionElements::choose);
    connect(highlightButton_, &QPushButton::clicked, this, &dlgViewConditionElements::highlightOrEdit);
    connect(infoButton_, &QPushButton::clicked, this,
            [this] { map_.showElementInformation(list_.layerId, chosenId_); });
}

void dlgViewConditionElements::buildLayout()
{
    const QString caption =
        finding() ? QStringLiteral("Condition:") : QStringLiteral("Seleccionar Elemento para Editar/Ver");
    const QString condition =
        finding() ? operatortexts::conditionCaption(list_.field, list_.fieldType, list_.op, list_.value1, list_.value2)
                  : list_.field;
    auto* header = new QHBoxLayout;
    header->addWidget(label("lbl1", caption, this));
    header->addWidget(label("lblCondition", condition, this), 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(highlightButton_);
    buttons->addWidget(infoButton_);
    buttons->addStretch();
    QPushButton* cancel = button("cmdCancel", QStringLiteral("Close"), this);
    connect(cancel, &QPushButton::clicked, this, &dlgViewConditionElements::reject);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(header);
    layout->addWidget(elements_, 1);
    layout->addWidget(label("lblElements",
                                 QString::number(list_.ids.size()) + QStringLiteral(" elementos encontrados."), this));
    layout->addWidget(serverLabel_);
    layout->addLayout(buttons);
}

bool dlgViewConditionElements::editable() const
{
    return target_ && (target_->AccessLevel == ALEditor || target_->AccessLevel == ALDraw);
}

void dlgViewConditionElements::choose(int row)
{
    if (row < 0 || static_cast<std::size_t>(row) >= list_.ids.size())
        return;
    chosenId_ = list_.ids[static_cast<std::size_t>(row)];
    map_.clearHighlight();
    const bool loaded = target_ && target_->Entidades.Find(chosenId_);
    if (loaded)
        map_.highlightElement(list_.layerId, chosenId_);
    serverLabel_->setHidden(loaded);
    highlightButton_->setEnabled(true);
    infoButton_->setEnabled(finding() || editable());
}

void dlgViewConditionElements::highlightOrEdit()
{
    if (finding()) {
        map_.zoomToElements(list_.layerId, {chosenId_});
        map_.highlightElement(list_.layerId, chosenId_);
        return;
    }
    list_.mode = QStringLiteral("EDIT");
    accept();
}

void dlgViewConditionElements::reject()
{
    list_.mode = QStringLiteral("CLOSE");
    QDialog::reject();
}

} // namespace orbelan
