#include "projection/CAlbers.h"

#include "projection/ProjectionMath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orbelan {

using namespace ProjectionMath;

namespace {

// 4·atan 1, the package's π here, is the closest double to π.
constexpr double kPi = std::numbers::pi;
constexpr double kHalfPi = kPi / 2.0;
constexpr double kEqualParallels = 1E-10;
constexpr double kSphereEccentricity = 1E-10;
constexpr double kQsfnzEccentricity = 1E-7;
constexpr double kPhi1zTolerance = 1E-7;
constexpr int kPhi1zIterations = 25;
// Below this |ns0| the cone's radii exceed 6E12 m and the conic formulas lose
// so many digits to cancellation that a round trip no longer returns within
// 1E-7°; the cylinder replaces the cone there. Near the limit the two differ
// by some 30 m across a map as wide as the globe, far less than a pixel of
// such a view, and by nothing measurable across a country.
constexpr double kCylinderLimit = 1E-6;

double msfnz(double e, double sinPhi, double cosPhi)
{
    const double con = e * sinPhi;
    return cosPhi / std::sqrt(1.0 - con * con);
}

// q of the authalic latitude: the area between the equator and the latitude,
// in units of the axis squared per radian of longitude, times 2.
double qsfnz(double e, double sinPhi)
{
    if (e <= kQsfnzEccentricity) {
        return 2.0 * sinPhi;
    }
    const double con = e * sinPhi;
    return (1.0 - e * e) * (sinPhi / (1.0 - con * con) - (0.5 / e) * std::log((1.0 - con) / (1.0 + con)));
}

// The latitude whose q is qs, by Newton's iteration from the spherical
// answer; empty when it has not settled after 25 steps.
std::optional<double> phi1z(double e, double qs)
{
    double phi = asinz(0.5 * qs);
    if (e < kSphereEccentricity) {
        return phi;
    }
    for (int i = 0; i < kPhi1zIterations; ++i) {
        const double sinPhi = std::sin(phi);
        const double con = e * sinPhi;
        const double com = 1.0 - con * con;
        const double deltaPhi = 0.5 * com * com / std::cos(phi)
                              * (qs / (1.0 - e * e) - sinPhi / com + 0.5 / e * std::log((1.0 - con) / (1.0 + con)));
        phi += deltaPhi;
        if (std::abs(deltaPhi) <= kPhi1zTolerance) {
            return phi;
        }
    }
    return std::nullopt;
}

// Folds a longitude difference beyond ±π back by its cosine. Unlike a whole
// turn this mirrors the result's sign, but differences within one view box
// never exceed π, since the central meridian is the middle of the box.
double adjust_lon(double x)
{
    if (std::abs(x) <= kPi) {
        return x;
    }
    return Sign(x) * ArcCos(std::cos(x), kHalfPi);
}

} // namespace

bool CAlbers::Init(double r_maj, double r_min, std::span<const double> params)
{
    const auto isLatitude = [](double degrees) { return std::abs(degrees) <= 90.0; };
    if (params.size() < 6 || !AreAxes(r_maj, r_min)
        || !std::all_of(params.begin(), params.begin() + 6, [](double p) { return std::isfinite(p); })
        || !isLatitude(params[0]) || !isLatitude(params[1]) || !isLatitude(params[3])) {
        return false;
    }
    const double lat1 = ToRadians(params[0]);
    const double lat2 = ToRadians(params[1]);
    const double lat0 = ToRadians(params[3]);
    const double ratio = r_min / r_maj;
    const double es = 1.0 - ratio * ratio;
    const double e3 = std::sqrt(es);

    const double ms1 = msfnz(e3, std::sin(lat1), std::cos(lat1));
    const double qs1 = qsfnz(e3, std::sin(lat1));
    const double ms2 = msfnz(e3, std::sin(lat2), std::cos(lat2));
    const double qs2 = qsfnz(e3, std::sin(lat2));
    const double qs0 = qsfnz(e3, std::sin(lat0));
    const double ns0 = std::abs(lat1 - lat2) > kEqualParallels ? (ms1 * ms1 - ms2 * ms2) / (qs2 - qs1)
                                                                  : std::sin(lat1);
    const double c = ms1 * ms1 + ns0 * qs1;
    const bool cylinder = std::abs(ns0) < kCylinderLimit;
    // On the cylinder c is the square of the scale along the standard
    // parallels (ms1² = ms2² when ns0 is 0); rounding never takes the conic
    // radius below 0, where the root would be no number.
    const double k0 = std::sqrt(c);
    const double rh = cylinder ? 0.0 : r_maj * std::sqrt(std::max(0.0, c - ns0 * qs0)) / ns0;
    if (!(k0 > 0.0) || !std::isfinite(rh)) {
        return false;
    }

    r_major_ = r_maj;
    lon_center_ = ToRadians(params[2]);
    false_easting_ = params[4];
    false_northing_ = params[5];
    es_ = es;
    e3_ = e3;
    ns0_ = ns0;
    c_ = c;
    rh_ = rh;
    qs0_ = qs0;
    k0_ = k0;
    cylinder_ = cylinder;
    initialised_ = true;
    return true;
}

bool CAlbers::Project(double lon, double lat, double& x, double& y) const
{
    if (!initialised_ || !IsGeographic(lon, lat)) {
        return false;
    }
    const double qs = qsfnz(e3_, std::sin(ToRadians(lat)));
    const double deltaLon = adjust_lon(ToRadians(lon) - lon_center_);
    if (cylinder_) {
        return StoreIfFinite(r_major_ * k0_ * deltaLon + false_easting_,
                             r_major_ * (qs - qs0_) / (2.0 * k0_) + false_northing_, x, y);
    }
    const double rh1 = r_major_ * std::sqrt(std::max(0.0, c_ - ns0_ * qs)) / ns0_;
    const double theta = ns0_ * deltaLon;
    return StoreIfFinite(rh1 * std::sin(theta) + false_easting_, rh_ - rh1 * std::cos(theta) + false_northing_, x, y);
}

bool CAlbers::Unproject(double x, double y, double& lon, double& lat) const
{
    if (!initialised_ || !std::isfinite(x) || !std::isfinite(y)) {
        return false;
    }
    double qs = 0.0;
    double lambda = 0.0;
    if (cylinder_) {
        lambda = (x - false_easting_) / (r_major_ * k0_);
        qs = qs0_ + 2.0 * k0_ * (y - false_northing_) / r_major_;
    } else {
        const double px = x - false_easting_;
        const double py = rh_ - y + false_northing_;
        const double sign = ns0_ >= 0.0 ? 1.0 : -1.0;
        const double rh1 = sign * std::sqrt(px * px + py * py);
        const double theta = rh1 != 0.0 ? std::atan2(sign * px, sign * py) : 0.0;
        const double con = rh1 * ns0_ / r_major_;
        qs = (c_ - con * con) / ns0_;
        lambda = theta / ns0_;
    }
    const std::optional<double> phi = latitudeOf(qs);
    if (!phi) {
        return false;
    }
    return StoreIfFinite(ToDegrees(adjust_lon(lambda + lon_center_)), ToDegrees(*phi), lon, lat);
}

// The latitude of q, the poles being exact: q of a pole is the largest q of
// the ellipsoid. A q further out belongs to a point beyond the pole; the
// iteration then finds no latitude or one past ±90°, and the point is refused.
std::optional<double> CAlbers::latitudeOf(double qs) const
{
    if (e3_ < kSphereEccentricity) {
        return phi1z(e3_, qs);
    }
    const double poleQ = 1.0 - 0.5 * (1.0 - es_) * std::log((1.0 - e3_) / (1.0 + e3_)) / e3_;
    if (std::abs(std::abs(poleQ) - std::abs(qs)) <= kEqualParallels) {
        return qs >= 0.0 ? kHalfPi : -kHalfPi;
    }
    const std::optional<double> phi = phi1z(e3_, qs);
    if (!phi || std::abs(*phi) > kHalfPi) {
        return std::nullopt;
    }
    return phi;
}

} // namespace orbelan
