#pragma once

#include <QObject>

class QLineEdit;

namespace orbelan {

// In a box for a number with decimals, a typed comma becomes the decimal
// point, which the box's key filter then lets in or refuses.
class CommaAsPoint : public QObject {
public:
    // Watches the box, which owns the filter from then on.
    explicit CommaAsPoint(QLineEdit& box);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit& box_;
};

} // namespace orbelan
