#include "configuration/MapSetup.h"

#include "configuration/LayerSetupRecords.h"
#include "configuration/dlgMapSetup.h"
#include "model/MapDocument.h"
#include "ui/UiServices.h"
#include "view/Viewport.h"

namespace orbelan {

MapSetup::MapSetup(MapDocument& document, const Viewport& view, UiServices& ui, QWidget* dialogParent)
    : document_(document), view_(view), ui_(ui), dialogParent_(dialogParent)
{
}

bool MapSetup::run()
{
    if (document_.busy || document_.Layers().count() == 0) {
        return false;
    }
    dlgMapSetup dialog({.layers = layerSetupRecords(document_.Layers()),
                        .currentHeight = view_.CurrentZoom(),
                        .initialHeight = view_.heightOf(document_.mapExtent),
                        .backgroundColor = document_.BackgroundColor,
                        .projection = document_.Projection},
                       ui_, dialogParent_);
    ui_.execDialog(dialog);
    if (dialog.cancelled()) {
        return false;
    }
    applyLayerSetup(document_.Layers(), dialog.settings().layers);
    document_.BackgroundColor = dialog.settings().backgroundColor;
    // Zoom to Extents returns to it, and a saved map opens on it.
    if (dialog.settings().initialViewIsCurrent) {
        document_.mapExtent = view_.viewBox();
    }
    return true;
}

} // namespace orbelan
