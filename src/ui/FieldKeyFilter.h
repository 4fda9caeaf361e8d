#pragma once

#include <QObject>
#include <QString>

class QLineEdit;

namespace orbelan {

// Refuses the keys that cannot be part of a value of a field type, as they
// are typed into a box: the box keeps only what the field can take.
class FieldKeyFilter : public QObject {
public:
    // Watches the box, which owns the filter from then on.
    FieldKeyFilter(int fieldType, QLineEdit& box);

    // Whether the character `key` (its 8-bit code) may follow `text` in a box
    // for a field of the type (a data type code): whole numbers take digits
    // and a leading "-" (types 17, 18, 19 and 21 no sign), decimals one "."
    // as well, texts every key except the two quotes, other types nothing.
    // Control keys (codes below 32) pass wherever anything may be typed.
    static bool accepts(const QString& text, int fieldType, int key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int fieldType_;
    QLineEdit& box_;
};

} // namespace orbelan
