#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
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
    // Set with the last element information request: its reply lets the
    // user change the values instead of showing them.
    bool editInformation = false;
    // The cells where the element to edit is held, when the request that
    // asked for it knew them; the first one goes with its updates.
    std::vector<std::int32_t> editCellI, editCellJ;
    // The values of an element's information go to the host as an event
    // instead of into a dialog.
    bool releaseInformation = false;
    // New values for the next element to edit, by field number from 1,
    // applied without asking the user; used once.
    std::optional<std::map<std::int32_t, std::string>> presetEditValues;
    // Set with the last query of elements: -1 shows the answer in the
    // information grid, 0 as a list of elements.
    std::int32_t resultTableMode = 0;
};

} // namespace orbelan
