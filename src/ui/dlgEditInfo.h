#pragma once

#include "ui/OkCancelDialog.h"

#include <QList>
#include <QString>
#include <QStringList>

class QLineEdit;

namespace orbelan {

// One field of an element as the user edits it.
struct EditableField {
    QString name;
    // The data type code: it decides which keys the value's box takes.
    int type = 0;
    QString typeName;
    QString value;
    // A field whose type holds no value is shown, not changed.
    bool editable = true;
};

// Lets the user change the values of one element: one row per field with
// its name, its type and its value in a box named after the field, which
// takes only the keys the field's type can hold. OKButton confirms,
// CancelButton and Escape give up.
class dlgEditInfo : public OkCancelDialog {
    Q_OBJECT

public:
    explicit dlgEditInfo(const QList<EditableField>& shown, QWidget* parent = nullptr);

    // The values in the boxes, in the order of the fields.
    QStringList values() const;

private:
    QList<QLineEdit*> boxes_;
};

} // namespace orbelan
