#include "configuration/LayerSetupLoop.h"

#include "configuration/dlgLayerSetup.h"
#include "model/layer.h"
#include "ui/UiServices.h"

#include <utility>

namespace orbelan {

LayerSetupLoop::LayerSetupLoop() = default;
LayerSetupLoop::~LayerSetupLoop() = default;

LayerSetupLoop::Outcome LayerSetupLoop::run(const layer& target, float currentHeight, UiServices& ui, QWidget* parent)
{
    if (!dialog_ || dialog_->layerId() != target.IDLayer) {
        dialog_ = std::make_unique<dlgLayerSetup>(target, currentHeight, ui, parent);
    }
    if (ui.execDialog(*dialog_) == dlgLayerSetup::kQueryServer) {
        return StatisticsQuery{target.IDLayer, dialog_->themeField().toStdString(),
                               static_cast<std::int16_t>(dialog_->method())};
    }
    const std::unique_ptr<dlgLayerSetup> closed = std::move(dialog_);
    if (closed->cancelled()) {
        return std::monostate{};
    }
    return closed->takeStyle();
}

bool LayerSetupLoop::statisticsArrived(std::int32_t layerId, std::vector<std::string> values)
{
    if (!dialog_ || dialog_->layerId() != layerId) {
        return false;
    }
    dialog_->Stats(std::move(values));
    return true;
}

} // namespace orbelan
