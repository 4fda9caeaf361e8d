#include "orbelan-viewer/CoordinateText.h"

#include <QLocale>

#include <cmath>

namespace orbelan::coordinatetext {

namespace {

constexpr int kDegreeDecimals = 5;

QString degrees(double value, QChar positive, QChar negative)
{
    return QStringLiteral("%1° %2").arg(std::abs(value), 0, 'f', kDegreeDecimals).arg(value < 0 ? negative : positive);
}

QLocale thousands() { return QLocale(QLocale::English, QLocale::UnitedStates); }

} // namespace

QString geographic(double lon, double lat)
{
    return degrees(lat, u'N', u'S') + u' ' + degrees(lon, u'E', u'W');
}

QString plane(double x, double y)
{
    const QLocale locale = thousands();
    return QStringLiteral("X %1  Y %2").arg(locale.toString(x, 'f', 1), locale.toString(y, 'f', 1));
}

QString scale(double denominator)
{
    return QStringLiteral("1:") + thousands().toString(static_cast<qlonglong>(std::llround(denominator)));
}

} // namespace orbelan::coordinatetext
