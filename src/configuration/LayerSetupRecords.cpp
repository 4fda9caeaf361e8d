#include "configuration/LayerSetupRecords.h"

#include "model/Layers.h"
#include "protocol/FieldValueText.h"

#include <ranges>

namespace orbelan {

namespace {

QString singleText(float value) { return QString::fromStdString(numberText(value, WireType::Single)); }

QString accessText(CONSTACCESSLEVEL level)
{
    switch (level) {
    case ALNoAccess: return QStringLiteral(" No Accesss, ");
    case ALViewer: return QStringLiteral(" Viewer, ");
    case ALEditor: return QStringLiteral(" Editor, ");
    case ALDraw: return QStringLiteral(" Draw, ");
    default: return {};
    }
}

} // namespace

std::vector<CLayerSetupDef> layerSetupRecords(const Layers& layers)
{
    std::vector<CLayerSetupDef> records;
    for (std::int32_t position = layers.count(); position >= 1; --position) {
        const layer& mapLayer = *layers.Item(position);
        records.push_back({.Nombre = mapLayer.Nombre,
                           .IDLayer = mapLayer.IDLayer,
                           .ZoomMin = mapLayer.ZoomMin,
                           .ZoomMax = mapLayer.ZoomMax,
                           .Order = static_cast<std::int16_t>(position),
                           .Dropped = false,
                           .UserVisibility = mapLayer.UserVisibility(),
                           .AccessLevel = mapLayer.AccessLevel});
    }
    return records;
}

void applyLayerSetup(Layers& layers, std::span<const CLayerSetupDef> records)
{
    // The list shows the top layer first, and the top layer is drawn last.
    std::int32_t position = 0;
    for (const CLayerSetupDef& record : records | std::views::reverse) {
        layer* mapLayer = layers.Find(record.IDLayer);
        if (mapLayer == nullptr) {
            continue;
        }
        layers.MoveLayer(record.IDLayer, ++position);
        mapLayer->ZoomMin = record.ZoomMin;
        mapLayer->ZoomMax = record.ZoomMax;
        mapLayer->setUserVisibility(record.UserVisibility);
    }
    for (const CLayerSetupDef& record : records) {
        if (record.Dropped) {
            layers.RemoveKey(record.IDLayer);
        }
    }
}

QString layerSetupLine(const CLayerSetupDef& record)
{
    QString line = QString::fromStdString(record.Nombre) + QStringLiteral(" ( ") + singleText(record.ZoomMin) +
                   QStringLiteral(" - ") + singleText(record.ZoomMax) + QStringLiteral(") ") +
                   accessText(record.AccessLevel);
    if (record.Dropped) {
        line += QStringLiteral("Dropped");
    }
    return line;
}

} // namespace orbelan
