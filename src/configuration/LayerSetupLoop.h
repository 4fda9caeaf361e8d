#pragma once

#include "configuration/LayerStyle.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

class QWidget;

namespace orbelan {

class UiServices;
class dlgLayerSetup;
class layer;

// The layer setup of one control: one dialog at a time, kept (hidden) while
// the server works out the statistics it asked for, shown again when they
// arrive, and forgotten once it is confirmed or cancelled.
class LayerSetupLoop {
public:
    // Request 6 to send: the layer, the theme field and the method.
    struct StatisticsQuery {
        std::int32_t layer = 0;
        std::string field;
        std::int16_t method = 0;
    };
    // Cancelled, waiting for statistics, or confirmed with the new style.
    using Outcome = std::variant<std::monostate, StatisticsQuery, LayerStyle>;

    LayerSetupLoop();
    ~LayerSetupLoop();

    // Shows the dialog for the layer modally: the kept one when it is for
    // this layer, else a new one.
    Outcome run(const layer& target, float currentHeight, UiServices& ui, QWidget* parent);
    // Hands the values to the kept dialog of that layer; false when there
    // is none.
    bool statisticsArrived(std::int32_t layerId, std::vector<std::string> values);

private:
    std::unique_ptr<dlgLayerSetup> dialog_;
};

} // namespace orbelan
