#include "ui/dlgEditInfo.h"

#include "ui/FieldKeyFilter.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

namespace orbelan {

dlgEditInfo::dlgEditInfo(const QList<EditableField>& shown, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgEditInfo"), QStringLiteral("Edit Information"), parent)
{
    auto* rows = new QWidget;
    auto* grid = new QGridLayout(rows);
    for (qsizetype row = 0; row < shown.size(); ++row) {
        const EditableField& field = shown[row];
        auto* box = new QLineEdit(field.value, rows);
        box->setObjectName(field.name);
        box->setReadOnly(!field.editable);
        new FieldKeyFilter(field.type, *box);
        const int at = static_cast<int>(row);
        grid->addWidget(new QLabel(field.name, rows), at, 0);
        grid->addWidget(new QLabel(field.typeName, rows), at, 1);
        grid->addWidget(box, at, 2);
        boxes_ << box;
    }
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setWidget(rows);
    fields().addWidget(scroll);
    resize(420, 360);
}

QStringList dlgEditInfo::values() const
{
    QStringList texts;
    for (const QLineEdit* box : boxes_) {
        texts << box->text();
    }
    return texts;
}

} // namespace orbelan
