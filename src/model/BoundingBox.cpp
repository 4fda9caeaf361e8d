#include "model/BoundingBox.h"

namespace orbelan {

namespace {

// One axis of InterseccionCon. The interval that starts first (this box's on
// a tie) must reach the start of the other. Only the later start is compared
// with the earlier end, so an empty interval (start +1E37) never overlaps.
bool axisOverlaps(double ownMin, double ownMax, double otherMin, double otherMax)
{
    if (otherMin < ownMin) {
        return ownMin <= otherMax;
    }
    return otherMin <= ownMax;
}

} // namespace

bool BoundingBox::ContieneA(const BoundingBox& bb) const
{
    return bb.MinX >= MinX && bb.MinY >= MinY && bb.MaxX <= MaxX && bb.MaxY <= MaxY;
}

bool BoundingBox::ContenidoPor(const BoundingBox& bb) const
{
    return bb.MinX <= MinX && bb.MinY <= MinY && bb.MaxX >= MaxX && bb.MaxY >= MaxY;
}

bool BoundingBox::InterseccionCon(const BoundingBox& bb) const
{
    return axisOverlaps(MinX, MaxX, bb.MinX, bb.MaxX) && axisOverlaps(MinY, MaxY, bb.MinY, bb.MaxY);
}

void BoundingBox::Union(double minimox, double minimoy, double maximox, double maximoy)
{
    if (minimox < MinX) {
        MinX = minimox;
    }
    if (minimoy < MinY) {
        MinY = minimoy;
    }
    if (maximox > MaxX) {
        MaxX = maximox;
    }
    if (maximoy > MaxY) {
        MaxY = maximoy;
    }
}

bool BoundingBox::PointInBoundingBox(double X, double Y) const
{
    return MinX <= X && X <= MaxX && MinY <= Y && Y <= MaxY;
}

} // namespace orbelan
