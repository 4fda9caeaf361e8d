#include "session/SaveMapRequestBuilder.h"

#include "model/MapDocument.h"
#include "protocol/RequestSender.h"

#include <limits>
#include <stdexcept>

namespace orbelan {

namespace {

// The thematic value that stands for any value: the default class's minimum.
constexpr const char* kAnyValue = "MICanyMIC";
// How the wire writes a true flag.
constexpr std::int16_t kTrue = -1;

// A style number the wire carries as an Integer; std::out_of_range past it.
std::int16_t integerField(std::int32_t value)
{
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
        throw std::out_of_range("the style number " + std::to_string(value) + " does not fit an Integer");
    }
    return static_cast<std::int16_t>(value);
}

messages::ThematicClassRecord classRecord(const Theme& theme)
{
    return {theme.min,           theme.max, theme.DrawColor, integerField(theme.DrawStyle),
            integerField(theme.DrawWidth), theme.FillColor, integerField(theme.FillStyle)};
}

void setDefaultStyle(messages::LayerRecord& record, const Theme& theme)
{
    const messages::ThematicClassRecord style = classRecord(theme);
    record.drawColor = style.drawColor;
    record.drawStyle = style.drawStyle;
    record.drawWidth = style.drawWidth;
    record.fillColor = style.fillColor;
    record.fillStyle = style.fillStyle;
}

void setClasses(messages::SavedLayerRecord& saved, const ThematicMap& themes)
{
    if (const Theme* defaultTheme = themes.Item(1)) {
        setDefaultStyle(saved.settings, *defaultTheme);
    }
    for (const Theme& theme : themes) {
        if (theme.min != kAnyValue) {
            saved.settings.classes.push_back(classRecord(theme));
        }
    }
    saved.classCount = themes.count() > 0 ? integerField(themes.count() - 1) : std::int16_t{0};
}

messages::SavedLayerRecord savedLayer(const layer& mapLayer)
{
    messages::SavedLayerRecord saved;
    messages::LayerRecord& record = saved.settings;
    record.name = mapLayer.Nombre;
    record.id = mapLayer.IDLayer;
    record.type = static_cast<std::int16_t>(mapLayer.Tipo);
    record.minCol = mapLayer.minCol;
    record.minRow = mapLayer.minRow;
    record.maxCol = mapLayer.maxCol;
    record.maxRow = mapLayer.maxRow;
    record.gridDeltaX = mapLayer.GridDeltaX;
    record.gridDeltaY = mapLayer.GridDeltaY;
    record.visibility = mapLayer.UserVisibility();
    record.zoomMin = mapLayer.ZoomMin;
    record.zoomMax = mapLayer.ZoomMax;
    record.labelField = mapLayer.lblField;
    record.labelZoomMin = mapLayer.lblZoomMin;
    record.labelZoomMax = mapLayer.lblZoomMax;
    record.labelVisibility = mapLayer.UserLabelVisibility();
    record.labelBold = mapLayer.lblBold ? kTrue : std::int16_t{0};
    record.labelColor = mapLayer.lblColor;
    record.thematicField = mapLayer.ThematicField;
    record.thematicType = mapLayer.ThematicType;
    setClasses(saved, mapLayer.ThematicMap());
    return saved;
}

} // namespace

messages::SaveMapRequest buildSaveMapRequest(const MapDocument& document, std::int32_t user,
                                             const std::string& name)
{
    messages::SaveMapRequest request;
    request.user = user;
    request.map = document.MapCode;
    messages::MapDefinition& definition = request.definition;
    definition.name = name;
    definition.minX = static_cast<float>(document.mapExtent.MinX);
    definition.minY = static_cast<float>(document.mapExtent.MinY);
    definition.maxX = static_cast<float>(document.mapExtent.MaxX);
    definition.maxY = static_cast<float>(document.mapExtent.MaxY);
    definition.background = static_cast<std::int32_t>(document.BackgroundColor);
    definition.projection = integerField(document.Projection);
    for (const layer& mapLayer : document.Layers()) {
        request.layers.push_back(savedLayer(mapLayer));
    }
    return request;
}

void requestSaveMap(RequestSender& requests, const MapDocument& document, std::int32_t user,
                    const std::string& name)
{
    if (requests.pendingRequests() == 0) {
        sendMessage(requests, buildSaveMapRequest(document, user, name));
    }
}

} // namespace orbelan
