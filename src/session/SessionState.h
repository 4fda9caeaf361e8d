#pragma once

#include <cstdint>
#include <vector>

namespace orbelan {

// What the replies of one session remember between them.
struct SessionState {
    // The map definition has arrived: a grant of access that answers a
    // re-connection does not ask for it again.
    bool mapDefined = false;
    // Set with the last element box request: its reply shows the box only
    // when this is set. A later request overwrites it.
    bool zoomToElementBox = false;
    // Set with the last query of elements: -1 shows the answer in the
    // information grid, 0 as a list of elements.
    std::int32_t resultTableMode = 0;
    // Set with an information request made to edit the element's values:
    // the grid cells an update of them lists.
    bool editInformation = false;
    std::vector<std::int32_t> editCellI;
    std::vector<std::int32_t> editCellJ;
};

} // namespace orbelan
