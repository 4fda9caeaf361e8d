#include "session/ElementBoxLoader.h"

#include "model/BoundingBox.h"
#include "protocol/messages/ElementBoundingBox.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"

#include <cmath>

namespace orbelan {

namespace {

constexpr double kMargin = 0.001;

bool showable(const messages::ElementBoundingBox& box)
{
    return std::isfinite(box.x1) && std::isfinite(box.y1) && std::isfinite(box.x2) && std::isfinite(box.y2) &&
           !box.empty();
}

} // namespace

void loadElementBoundingBox(DWBUffer& message, LoadContext& context)
{
    const messages::ElementBoundingBox box = messages::ElementBoundingBox::decode(message);
    if (!context.state.zoomToElementBox || !showable(box)) {
        return;
    }
    BoundingBox window;
    window.MinX = box.x1 - kMargin;
    window.MinY = box.y1 - kMargin;
    window.MaxX = box.x2 + kMargin;
    window.MaxY = box.y2 + kMargin;
    context.events.showBox(window);
}

} // namespace orbelan
