#pragma once

#include "load/PipelineAttack.h"

#include <netinet/in.h>

#include <memory>

namespace orbelan::load {

// About 1.3 M distinct cells, most far outside every grid, from one
// pipelined client per demo map the store has.
std::unique_ptr<PipelineAttack> emptyCellsAttack(const sockaddr_in& server);

// 1.5 M distinct layer ids that no map has, on one connection.
std::unique_ptr<PipelineAttack> layerIdsAttack(const sockaddr_in& server);

} // namespace orbelan::load
