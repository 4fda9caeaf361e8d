#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QTransform>

namespace orbelan {

// Writes turned labels the fast way. Text written through a turned painter
// has every glyph's outline filled anew, some 65 µs a label; here the text
// is written level into a scratch picture, where the font engine's cached
// glyphs serve, and the scratch is then drawn turned and smoothed.
class TurnedLabels {
public:
    TurnedLabels() = default;
    TurnedLabels(const TurnedLabels&) = delete;
    TurnedLabels& operator=(const TurnedLabels&) = delete;

    // Draws the text onto target with its cell's top-left corner at the
    // origin of place, which turns it.
    void draw(QPainter& target, const QTransform& place, const QString& text, const QFont& font, qreal ascent,
              qreal advance, qreal height, const QColor& color);

private:
    void reserve(int width, int height);

    QImage scratch_;
    QPainter painter_;
};

} // namespace orbelan
