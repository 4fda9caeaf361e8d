#pragma once

#include <QObject>

class QLineEdit;

namespace orbelan {

// For the label height boxes: a typed comma becomes a decimal point, then
// the key passes only when a Double may take it.
class HeightKeyFilter : public QObject {
public:
    // Watches the box, which owns the filter from then on.
    explicit HeightKeyFilter(QLineEdit& box);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit& box_;
};

} // namespace orbelan
