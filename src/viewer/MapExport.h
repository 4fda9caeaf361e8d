#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <functional>

class QPaintDevice;

namespace orbelan {

// Writes a map to a file, by the file's extension: ".png" a PNG picture that
// records its dots per inch, ".pdf" one PDF page of the picture's size at
// those dots per inch, drawn on the page itself so that its lines stay
// vectors. std::invalid_argument for another extension or a size or
// resolution out of range, std::runtime_error when the file cannot be written.
class MapExport {
public:
    static constexpr int kMaximumSide = 10000;
    static constexpr int kMaximumDpi = 2400;

    // Refuses what the writers would refuse, before anything is drawn.
    static void check(const QString& fileName, int width, int height, int dpi);
    static bool isPdf(const QString& fileName);
    static void writePng(const QImage& picture, const QString& fileName, int dpi);
    // draw paints the page, whose device pixels are size at dpi.
    static void writePdf(const QString& fileName, QSize size, int dpi, const std::function<void(QPaintDevice&)>& draw);
};

} // namespace orbelan
