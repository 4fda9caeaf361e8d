#pragma once

#include "load/ClientFigures.h"

#include <optional>
#include <string>
#include <utility>

namespace orbelan::load {

// One line of the report. Rows that check a behaviour rather than load the
// server leave the figures empty.
struct RowResult {
    std::string name;
    std::optional<ClientFigures> control;
    std::optional<ClientFigures> attacked;
    // Server resident memory in kB: before the attack, its peak during the
    // attack, and a few seconds after the attackers left.
    std::optional<long> rssBefore;
    std::optional<long> rssDuring;
    std::optional<long> rssAfter;
    std::string observation;

    // A row that reports only what it observed.
    static RowResult observed(std::string name, std::string observation)
    {
        RowResult row;
        row.name = std::move(name);
        row.observation = std::move(observation);
        return row;
    }
};

} // namespace orbelan::load
