#pragma once

#include "load/ClientFigures.h"
#include "load/MapSurvey.h"
#include "load/WireConnection.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

namespace orbelan::load {

// A viewer's connection to the Santiago map: it asks for the cells of every
// layer one at a time, awaiting each reply, and cycles over them.
class WellBehavedClient {
public:
    static constexpr std::int32_t kUser = 1;
    static constexpr std::int32_t kMap = 1;

    // Connects, opens the map and asks for each cell once; throws when the
    // server refuses the map or fails a request.
    explicit WellBehavedClient(const sockaddr_in& server);

    // Asks for cells for the given time; after a failure every run fails.
    ClientFigures run(std::chrono::duration<double> length);

private:
    double askNextCell();

    WireConnection connection_;
    std::vector<messages::CellGeometryRequest> cells_;
    std::size_t next_ = 0;
    std::string failure_;
};

} // namespace orbelan::load
