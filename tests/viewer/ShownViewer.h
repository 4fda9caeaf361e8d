#pragma once

// A designed Viewer on screen over a lat/lon view 400 x 200 pixels showing
// (-10, -5) to (10, 5): 20 pixels per degree, (0, 0) at pixel (200, 100).

#include "model/Layers.h"
#include "ui/ScriptedUiServices.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <gtest/gtest.h>

#include <vector>

class ShownViewer : public ::testing::Test {
protected:
    ShownViewer()
    {
        viewer.setUiServices(ui);
        viewer.setUserMode(false);
        viewer.resize(400, 200);
        viewer.show();
        viewer.SetView(-10, -5, 10, 5);
    }

    // A visible layer whose default class draws and fills in the colour.
    orbelan::layer& addLayer(std::int32_t id, orbelan::TipoLayer kind, std::int32_t color)
    {
        return addLayer(viewer.Layers(), viewer.viewport(), id, kind, color);
    }

    static orbelan::layer& addLayer(orbelan::Layers& to, const orbelan::ParentMap& view, std::int32_t id,
                                    orbelan::TipoLayer kind, std::int32_t color)
    {
        orbelan::layer& added = to.AddLayer("layer", id, kind, view);
        added.AccessLevel = orbelan::ALViewer;
        added.setUserVisibility(2);
        added.ThematicMap().Add(0, 1, color, color, 0, "MICanyMIC", "");
        return added;
    }

    static orbelan::Entidad& addRectangle(orbelan::layer& to, std::int32_t id, double west, double south, double east,
                                          double north)
    {
        const std::vector<orbelan::Vertex> ring = {{west, south}, {east, south}, {east, north}, {west, north}};
        return to.Entidades.AddEntity(id, ring, to);
    }

    orbelan::ScriptedUiServices ui;
    orbelan::Viewer viewer;
};
