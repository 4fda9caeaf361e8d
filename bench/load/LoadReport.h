#pragma once

#include "load/RowResult.h"

#include <ostream>
#include <vector>

namespace orbelan::load {

// The rows as one markdown table.
class LoadReport {
public:
    static void print(std::ostream& out, const std::vector<RowResult>& rows);

private:
    static std::string line(const RowResult& row);
};

} // namespace orbelan::load
