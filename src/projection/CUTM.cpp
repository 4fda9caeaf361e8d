#include "projection/CUTM.h"

#include "projection/ProjectionMath.h"

#include <cmath>
#include <optional>

namespace orbelan {

using namespace ProjectionMath;

namespace {

// The package's own values of π and its multiples. They differ from the
// closest doubles in the last digits, and these digits are the ones the map
// data carry.
constexpr double kPi = 3.14159265358979;
constexpr double kTwoPi = 6.28318530717958;
constexpr double kHalfPi = 1.570796326794895;
// Radians per degree of the central meridian: the zone's meridian is computed
// with this finer factor, the points with the interface's degree factor.
constexpr double kCentralMeridianFactor = 0.0174532925199433;
constexpr double kConvergence = 1E-10;
constexpr int kMaxIterations = 6;
constexpr double kSphereLimit = 0.00001;
constexpr double kFalseEasting = 500000.0;
constexpr double kSouthernFalseNorthing = 10000000.0;
// adjust_lon removes whole turns counted in the first of these units whose
// count stays below the largest 32-bit integer.
constexpr double kMaxLong = 2147483647.0;
constexpr double kTurnUnits[] = {1.0, kMaxLong, 4.61168601E18};
constexpr int kAdjustSteps = 5;

double e0fn(double x)
{
    return 1.0 - 0.25 * x * (1.0 + x / 16.0 * (3.0 + 1.25 * x));
}

double e1fn(double x)
{
    return 0.375 * x * (1.0 + 0.25 * x * (1.0 + 0.46875 * x));
}

double e2fn(double x)
{
    return 0.05859375 * x * x * (1.0 + 0.75 * x);
}

double e3fn(double x)
{
    return x * x * x * (35.0 / 3072.0);
}

// e1·sin 2φ - e2·sin 4φ + e3·sin 6φ, the periodic part of the meridian
// distance, from s = sin 2φ and c = cos 2φ: sin 4φ and sin 6φ follow by the
// double and triple angle rules, the same values to within rounding.
double periodicTerms(double e1, double e2, double e3, double s, double c)
{
    return s * (e1 - 2.0 * e2 * c + e3 * (3.0 - 4.0 * s * s));
}

// Meridian distance from the equator to phi on an ellipsoid of axis 1.
double mlfn(double e0, double e1, double e2, double e3, double phi)
{
    return e0 * phi - periodicTerms(e1, e2, e3, std::sin(2.0 * phi), std::cos(2.0 * phi));
}

// Turns (s, c) = (sin a, cos a) into (sin(a + t), cos(a + t)) for |t| up to
// kSmallTurn, with as many terms of the Taylor series of sin t and cos t as
// keep the rest below rounding: fewer once the steps have become tiny.
constexpr double kSmallTurn = 0.01;
constexpr double kTinyTurn = 1E-4;

void turnBy(double t, double& s, double& c)
{
    const double t2 = t * t;
    double sinT = 0.0;
    double cosT = 0.0;
    if (std::abs(t) <= kTinyTurn) {
        sinT = t * (1.0 - t2 * (1.0 / 6.0));
        cosT = 1.0 - t2 * 0.5;
    } else {
        sinT = t * (1.0 - t2 * (1.0 / 6.0 - t2 * (1.0 / 120.0 - t2 * (1.0 / 5040.0))));
        cosT = 1.0 - t2 * (0.5 - t2 * (1.0 / 24.0 - t2 * (1.0 / 720.0 - t2 * (1.0 / 40320.0))));
    }
    const double turned = s * cosT + c * sinT;
    c = c * cosT - s * sinT;
    s = turned;
}

// The footpoint latitude, whose meridian distance is con: the fixed point of
// φ = (con + e1·sin 2φ - e2·sin 4φ + e3·sin 6φ)/e0, iterated from φ = con
// until a step is at most 1E-10, at most six times.
//
// Each step waits for the one before, so its latency is the inverse's cost.
// After the first step φ moves by thousandths of a radian or less, so sin 2φ
// and cos 2φ are turned along instead of computed afresh, and e0 divides by
// its reciprocal; both agree with the plain formula to within rounding and
// save a third of the time.
//
// The iteration settles within four or five steps for every point of a map.
// When it has not after six, the point is so far out (or the ellipsoid so
// flat) that no latitude belongs to it, and the answer is empty rather than a
// half-finished guess.
std::optional<double> footpointLatitude(double con, double e0, double e1, double e2, double e3)
{
    const double reciprocalE0 = 1.0 / e0;
    double phi = con;
    double s = std::sin(2.0 * phi);
    double c = std::cos(2.0 * phi);
    for (int i = 0; i < kMaxIterations; ++i) {
        const double deltaPhi = (con + periodicTerms(e1, e2, e3, s, c)) * reciprocalE0 - phi;
        phi += deltaPhi;
        if (std::abs(deltaPhi) <= kConvergence) {
            return phi;
        }
        if (std::abs(2.0 * deltaPhi) <= kSmallTurn) {
            turnBy(2.0 * deltaPhi, s, c);
        } else {
            s = std::sin(2.0 * phi);
            c = std::cos(2.0 * phi);
        }
    }
    return std::nullopt;
}

// One reduction of a longitude towards [-π, π]: a single turn when one is
// enough, else as many whole turns as fit, counted in the first unit whose
// count stays below kMaxLong; beyond every unit a single turn again.
double reduceOnce(double x)
{
    if (std::abs(x) / kPi < 2.0) {
        return x - Sign(x) * kTwoPi;
    }
    for (const double unit : kTurnUnits) {
        const double turn = unit * kTwoPi;
        if (std::abs(x) / turn < kMaxLong) {
            return x - std::trunc(x / turn) * turn;
        }
    }
    return x - Sign(x) * kTwoPi;
}

// A longitude brought into [-π, π] in at most five reductions. Every
// longitude a map can hold gets there; a larger value stays large and the
// point is refused further on because its result is not finite.
double adjust_lon(double x)
{
    for (int step = 0; step < kAdjustSteps && std::abs(x) > kPi; ++step) {
        x = reduceOnce(x);
    }
    return x;
}

} // namespace

bool CUTM::Init(double r_maj, double r_min, std::span<const double> params)
{
    if (params.size() < 2 || !AreAxes(r_maj, r_min) || !std::isfinite(params[0])
        || !std::isfinite(params[1]) || params[1] == 0.0) {
        return false;
    }
    // The zone is a whole number; rounding to nearest, ties to even.
    const double zone = std::nearbyint(params[0]);
    if (std::abs(zone) < 1.0 || std::abs(zone) > 60.0) {
        return false;
    }
    r_major_ = r_maj;
    scale_factor_ = params[1];
    lat_origin_ = 0.0;
    lon_center_ = (6.0 * std::abs(zone) - 183.0) * kCentralMeridianFactor;
    false_easting_ = kFalseEasting;
    false_northing_ = zone < 0.0 ? kSouthernFalseNorthing : 0.0;

    const double ratio = r_min / r_maj;
    es_ = 1.0 - ratio * ratio;
    e0_ = e0fn(es_);
    e1_ = e1fn(es_);
    e2_ = e2fn(es_);
    e3_ = e3fn(es_);
    ml0_ = r_major_ * mlfn(e0_, e1_, e2_, e3_, lat_origin_);
    esp_ = es_ / (1.0 - es_);
    ind_ = es_ < kSphereLimit;
    initialised_ = true;
    return true;
}

bool CUTM::Project(double lon, double lat, double& x, double& y) const
{
    if (!initialised_ || !IsGeographic(lon, lat)) {
        return false;
    }
    const double phi = ToRadians(lat);
    const double deltaLon = adjust_lon(ToRadians(lon) - lon_center_);
    double px = 0.0;
    double py = 0.0;
    if (ind_) {
        if (!forwardSphere(deltaLon, phi, px, py)) {
            return false;
        }
    } else {
        forwardEllipsoid(deltaLon, phi, px, py);
    }
    return StoreIfFinite(px, py, x, y);
}

// The closed spherical formulas, with the false easting and northing added as
// on the ellipsoid, so that the inverse (which removes them) undoes them.
bool CUTM::forwardSphere(double deltaLon, double phi, double& x, double& y) const
{
    const double cosPhi = std::cos(phi);
    const double b = cosPhi * std::sin(deltaLon);
    // 90° from the central meridian on the equator lies at infinity.
    if (std::abs(std::abs(b) - 1.0) < kConvergence) {
        return false;
    }
    x = 0.5 * r_major_ * scale_factor_ * std::log((1.0 + b) / (1.0 - b)) + false_easting_;
    double con = ArcCos(cosPhi * std::cos(deltaLon) / std::sqrt(1.0 - b * b), kHalfPi);
    if (phi < 0.0) {
        con = -con;
    }
    y = r_major_ * scale_factor_ * (con - lat_origin_) + false_northing_;
    return true;
}

void CUTM::forwardEllipsoid(double deltaLon, double phi, double& x, double& y) const
{
    const double sinPhi = std::sin(phi);
    const double cosPhi = std::cos(phi);
    const double al = cosPhi * deltaLon;
    const double als = al * al;
    const double c = esp_ * cosPhi * cosPhi;
    const double tq = std::tan(phi);
    const double t = tq * tq;
    const double con = 1.0 - es_ * sinPhi * sinPhi;
    const double n = r_major_ / std::sqrt(con);
    const double ml = r_major_ * mlfn(e0_, e1_, e2_, e3_, phi);

    x = scale_factor_ * n * al
            * (1.0 + als / 6.0 * (1.0 - t + c + als / 20.0 * (5.0 - 18.0 * t + t * t + 72.0 * c - 58.0 * esp_)))
        + false_easting_;
    y = scale_factor_
            * (ml - ml0_
               + n * tq
                   * (als
                      * (0.5
                         + als / 24.0
                             * (5.0 - t + 9.0 * c + 4.0 * c * c
                                + als / 30.0 * (61.0 - 58.0 * t + t * t + 600.0 * c - 330.0 * esp_)))))
        + false_northing_;
}

bool CUTM::Unproject(double x, double y, double& lon, double& lat) const
{
    if (!initialised_ || !std::isfinite(x) || !std::isfinite(y)) {
        return false;
    }
    double phi = 0.0;
    double lambda = 0.0;
    if (ind_) {
        inverseSphere(x - false_easting_, y - false_northing_, lambda, phi);
    } else if (!inverseEllipsoid(x - false_easting_, y - false_northing_, lambda, phi)) {
        return false;
    }
    return StoreIfFinite(ToDegrees(lambda), ToDegrees(phi), lon, lat);
}

void CUTM::inverseSphere(double x, double y, double& lon, double& lat) const
{
    const double f = std::exp(x / (r_major_ * scale_factor_));
    const double g = 0.5 * (f - 1.0 / f);
    const double temp = lat_origin_ + y / (r_major_ * scale_factor_);
    const double h = std::cos(temp);
    const double con = std::sqrt((1.0 - h * h) / (1.0 + g * g));
    lat = temp < 0.0 ? -asinz(con) : asinz(con);
    // atan(g/h) tends to ±π/2 as h reaches 0; at g = h = 0 the point is the
    // central meridian itself.
    const double angle = h == 0.0 ? Sign(g) * kHalfPi : std::atan(g / h);
    lon = adjust_lon(angle + lon_center_);
}

bool CUTM::inverseEllipsoid(double x, double y, double& lon, double& lat) const
{
    const double con = (ml0_ + y / scale_factor_) / r_major_;
    const std::optional<double> footpoint = footpointLatitude(con, e0_, e1_, e2_, e3_);
    if (!footpoint) {
        return false;
    }
    const double phi = *footpoint;
    if (std::abs(phi) >= kHalfPi) {
        lat = kHalfPi * Sign(y);
        lon = lon_center_;
        return true;
    }
    const double sinPhi = std::sin(phi);
    const double cosPhi = std::cos(phi);
    const double tanPhi = sinPhi / cosPhi;
    const double c = esp_ * cosPhi * cosPhi;
    const double cs = c * c;
    const double t = tanPhi * tanPhi;
    const double ts = t * t;
    const double conPhi = 1.0 - es_ * sinPhi * sinPhi;
    // n = r_major/√conPhi and r = n·(1 - es)/conPhi, written so that no
    // division waits for another: d = x/(n·scale_factor), n/r below.
    const double d = x * std::sqrt(conPhi) / (r_major_ * scale_factor_);
    const double ds = d * d;
    const double nOverR = conPhi / (1.0 - es_);

    lat = phi
        - (nOverR * tanPhi * ds)
            * (0.5
               - ds / 24.0
                   * (5.0 + 3.0 * t + 10.0 * c - 4.0 * cs - 9.0 * esp_
                      - ds / 30.0 * (61.0 + 90.0 * t + 298.0 * c + 45.0 * ts - 252.0 * esp_ - 3.0 * cs)));
    lon = adjust_lon(lon_center_
                     + d * (1.0 - ds / 6.0 * (1.0 + 2.0 * t + c - ds / 20.0 * (5.0 - 2.0 * c + 28.0 * t - 3.0 * cs + 8.0 * esp_ + 24.0 * ts)))
                         / cosPhi);
    return true;
}

} // namespace orbelan
