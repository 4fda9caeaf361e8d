#pragma once

#include "storage/Database.h"

#include <QString>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>

// A small map store in a temporary folder:
// - map 1 "Ñuñoa" (projection 81) with layer 10 "Calles" (polylines, fields
//   STREET and DIR, labelled by STREET), layer 11 "Manzanas" (one large
//   polygon, field AREA, thematic field USO), layer 12 "Hitos" (points) and
//   layer 13 "Mundo" (cells of 60 degrees, one polygon of 240 by 80);
// - map 2 "Otro" with layer 20;
// - user 1 draws on every layer of both maps, user 2 views map 1 but has no
//   level on layer 12, user 3 may open map 2 only.
class SampleStore {
public:
    static constexpr std::int32_t kMap = 1;
    static constexpr std::int32_t kOtherMap = 2;
    static constexpr std::int32_t kStreets = 10;
    static constexpr std::int32_t kBlocks = 11;
    static constexpr std::int32_t kLandmarks = 12;
    static constexpr std::int32_t kWorld = 13;
    static constexpr std::int32_t kOtherLayer = 20;
    static constexpr float kDelta = 0.01f;

    SampleStore();

    QString path() const { return dir_.filePath(QStringLiteral("store.sqlite")); }
    orbelan::server::Database& database() { return *database_; }

private:
    void addMaps();
    void addElements();
    void addUsers();

    QTemporaryDir dir_;
    std::unique_ptr<orbelan::server::Database> database_;
};
