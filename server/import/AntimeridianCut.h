#pragma once

#include "protocol/messages/CellElement.h"

#include <vector>

namespace orbelan::server {

using Ring = std::vector<messages::WirePoint>;

// Cuts a polygon ring in longitude/latitude that crosses ±180° into rings
// that each lie within [-180°, 180°], so that no edge spans the whole map.
// The ring is followed along its shortest steps in longitude; one that then
// runs once around a pole (Antarctica) is first closed through that pole
// along the map edge, so that its pieces fill the polar cap.
class AntimeridianCut {
public:
    // The ring's closed pieces, or the ring itself when it needs no cut (or
    // winds around the globe more than once, or has a non-finite vertex).
    static std::vector<Ring> pieces(const Ring& ring);
    // The ring, followed along its shortest steps in longitude, ends a whole
    // turn away from where it started: it runs once around a pole.
    static bool aroundPole(const Ring& ring);
};

} // namespace orbelan::server
