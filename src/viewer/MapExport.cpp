#include "viewer/MapExport.h"

#include <QFileInfo>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <stdexcept>

namespace orbelan {

namespace {

QString extensionOf(const QString& fileName) { return QFileInfo(fileName).suffix().toLower(); }

[[noreturn]] void cannotWrite(const QString& fileName)
{
    throw std::runtime_error("cannot write " + fileName.toStdString());
}

void writePdf(const QImage& picture, const QString& fileName, int dpi)
{
    QPdfWriter pdf(fileName);
    pdf.setResolution(dpi);
    pdf.setCreator(QStringLiteral("Orbelan Viewer"));
    const QSizeF points(picture.width() * 72.0 / dpi, picture.height() * 72.0 / dpi);
    pdf.setPageSize(QPageSize(points, QPageSize::Point));
    pdf.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&pdf)) {
        cannotWrite(fileName);
    }
    painter.drawImage(QRect(QPoint(0, 0), picture.size()), picture);
    if (!painter.end()) {
        cannotWrite(fileName);
    }
}

} // namespace

void MapExport::check(const QString& fileName, int width, int height, int dpi)
{
    const QString extension = extensionOf(fileName);
    if (extension != QLatin1String("png") && extension != QLatin1String("pdf")) {
        throw std::invalid_argument("the file name must end in .png or .pdf: " + fileName.toStdString());
    }
    if (width < 1 || height < 1 || width > kMaximumSide || height > kMaximumSide) {
        throw std::invalid_argument("the size must be 1 to " + std::to_string(kMaximumSide) + " pixels a side");
    }
    if (dpi < 1 || dpi > kMaximumDpi) {
        throw std::invalid_argument("the resolution must be 1 to " + std::to_string(kMaximumDpi) + " dots per inch");
    }
}

void MapExport::write(const QImage& picture, const QString& fileName, int dpi)
{
    check(fileName, picture.width(), picture.height(), dpi);
    if (extensionOf(fileName) == QLatin1String("pdf")) {
        writePdf(picture, fileName, dpi);
        return;
    }
    QImage stamped = picture;
    const int dotsPerMetre = qRound(dpi / 0.0254);
    stamped.setDotsPerMeterX(dotsPerMetre);
    stamped.setDotsPerMeterY(dotsPerMetre);
    if (!stamped.save(fileName, "PNG")) {
        cannotWrite(fileName);
    }
}

} // namespace orbelan
