#pragma once

namespace orbelan {

// What the replies of one session remember between them.
struct SessionState {
    // The map definition has arrived: a grant of access that answers a
    // re-connection does not ask for it again.
    bool mapDefined = false;
    // Set with the last element box request: its reply shows the box only
    // when this is set. A later request overwrites it.
    bool zoomToElementBox = false;
};

} // namespace orbelan
