#pragma once

#include <QImage>
#include <QString>

namespace orbelan {

// Writes a map picture to a file, by the file's extension: ".png" a PNG
// picture that records its dots per inch, ".pdf" one PDF page of the
// picture's size at those dots per inch, the picture filling it.
// std::invalid_argument for another extension or a size or resolution out of
// range, std::runtime_error when the file cannot be written.
class MapExport {
public:
    static constexpr int kMaximumSide = 20000;
    static constexpr int kMaximumDpi = 2400;

    // Refuses what write would refuse, before anything is drawn.
    static void check(const QString& fileName, int width, int height, int dpi);
    static void write(const QImage& picture, const QString& fileName, int dpi);
};

} // namespace orbelan
