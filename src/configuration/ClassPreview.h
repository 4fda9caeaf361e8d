#pragma once

#include "model/Theme.h"
#include "model/TipoLayer.h"

#include <QWidget>

namespace orbelan {

// How a class looks on the map: a polygon's fill and border, or a line or
// point in its line colour, width and style.
class ClassPreview : public QWidget {
public:
    ClassPreview(TipoLayer kind, QWidget* parent);

    void showStyle(const Theme& style);
    QSize sizeHint() const override { return {96, 48}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TipoLayer kind_;
    Theme style_;
};

} // namespace orbelan
