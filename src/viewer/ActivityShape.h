#pragma once

#include <QColor>
#include <QWidget>

namespace orbelan {

// The small filled square that shows data arriving from the server. Its
// colour alternates between green and red with every further chunk of a
// message, so a long transfer visibly flickers.
class ActivityShape : public QWidget {
    Q_OBJECT

public:
    static constexpr QColor kRed{255, 0, 0};
    static constexpr QColor kGreen{0, 192, 0};

    explicit ActivityShape(QWidget* parent = nullptr);

    QColor fillColor() const { return fill_; }
    // Green becomes red; any other colour becomes green.
    void toggleColor();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor fill_ = kGreen;
};

} // namespace orbelan
