#include "viewer/MapExport.h"

#include <QFile>
#include <QFileInfo>
#include <QPageSize>
#include <QPdfWriter>

#include <stdexcept>

namespace orbelan {

namespace {

QString extensionOf(const QString& fileName) { return QFileInfo(fileName).suffix().toLower(); }

[[noreturn]] void cannotWrite(const QString& fileName)
{
    throw std::runtime_error("cannot write " + fileName.toStdString());
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

bool MapExport::isPdf(const QString& fileName) { return extensionOf(fileName) == QLatin1String("pdf"); }

void MapExport::writePng(const QImage& picture, const QString& fileName, int dpi)
{
    check(fileName, picture.width(), picture.height(), dpi);
    QImage stamped = picture;
    const int dotsPerMetre = qRound(dpi / 0.0254);
    stamped.setDotsPerMeterX(dotsPerMetre);
    stamped.setDotsPerMeterY(dotsPerMetre);
    if (!stamped.save(fileName, "PNG")) {
        cannotWrite(fileName);
    }
}

void MapExport::writePdf(const QString& fileName, QSize size, int dpi, const std::function<void(QPaintDevice&)>& draw)
{
    check(fileName, size.width(), size.height(), dpi);
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly)) {
        cannotWrite(fileName);
    }
    {
        QPdfWriter pdf(&file);
        pdf.setResolution(dpi);
        pdf.setCreator(QStringLiteral("Orbelan Viewer"));
        pdf.setPageSize(QPageSize(QSizeF(size.width() * 72.0 / dpi, size.height() * 72.0 / dpi), QPageSize::Point));
        pdf.setPageMargins(QMarginsF());
        draw(pdf);
    }
    if (file.error() != QFileDevice::NoError) {
        cannotWrite(fileName);
    }
}

} // namespace orbelan
