#pragma once

// Helpers that the projections share: the angle unit of the interface, the
// guards every point passes, and the inverse trigonometry of the formulas.

namespace orbelan::ProjectionMath {

// Degrees per radian used for every angle that crosses the interface. It is
// the value the map data were made with, 1.3E-10 larger than 180/π, which
// shifts a point by at most a few millimetres; keeping it keeps our plane
// coordinates identical to theirs.
inline constexpr double kDegreesPerRadian = 57.295779505601;

inline double ToRadians(double degrees)
{
    return degrees / kDegreesPerRadian;
}

inline double ToDegrees(double radians)
{
    return radians * kDegreesPerRadian;
}

// -1, 0 or 1.
double Sign(double x);

// True for finite values with the latitude within ±90°.
bool IsGeographic(double lon, double lat);

// Usable axes: finite, positive, the minor not longer than the major.
bool AreAxes(double r_maj, double r_min);

// Stores a and b in outA and outB when both are finite. A result that is not
// finite counts as a point that cannot be projected: the outputs stay as they
// were and the answer is false.
bool StoreIfFinite(double a, double b, double& outA, double& outB);

// The arc cosine written with the arc tangent: for |x| < 1 the angle in
// [0, π], for any other x 0 (also at x = -1). halfPi is the projection's own
// value of π/2.
double ArcCos(double x, double halfPi);

// The arc sine of x clamped to [-1, 1], so that rounding just beyond ±1 gives
// ±π/2 instead of no number.
double asinz(double x);

} // namespace orbelan::ProjectionMath
