#pragma once

#include <QString>

// How the window's status bar writes a position and a scale for a reader.
namespace orbelan::coordinatetext {

// Latitude then longitude, five decimals of a degree with the hemisphere:
// "33.45960° S 70.65515° W"; the equator and the prime meridian are N and E.
QString geographic(double lon, double lat);

// A point of a projected plane in metres, to the decimetre: "X 346,512.3  Y 6,296,102.1".
QString plane(double x, double y);

// A representative fraction to the unit: "1:25,000".
QString scale(double denominator);

} // namespace orbelan::coordinatetext
