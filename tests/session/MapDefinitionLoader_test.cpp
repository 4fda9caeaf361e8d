#include "protocol/messages/LayerAccessLevels.h"
#include "render/MapRenderer.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "SessionHarness.h"
#include "protocol/WireReadError.h"

#include <QImage>

#include <limits>

using namespace orbelan;
using messages::FieldRecord;
using messages::LayerRecord;
using messages::MapDefinition;
using messages::ThematicClassRecord;

namespace {

LayerRecord parcels()
{
    LayerRecord parcels;
    parcels.name = "Predios";
    parcels.id = 30;
    parcels.type = polygonlayer;
    parcels.minCol = 112;
    parcels.minRow = 2180;
    parcels.maxCol = 115;
    parcels.maxRow = 2190;
    parcels.gridDeltaX = 0.05f;
    parcels.gridDeltaY = 0.5f;
    parcels.visibility = 2;
    parcels.zoomMin = 0.25f;
    parcels.zoomMax = 40.0f;
    parcels.drawColor = 0x102030;
    parcels.drawStyle = 2;
    parcels.drawWidth = 3;
    parcels.fillColor = 0x405060;
    parcels.fillStyle = 4;
    parcels.labelField = "ROL";
    parcels.labelZoomMin = 0.5f;
    parcels.labelZoomMax = 2.0f;
    parcels.labelVisibility = 1;
    parcels.labelBold = 1;
    parcels.labelColor = 0x0000FF;
    parcels.thematicField = "uso";
    parcels.thematicType = 1;
    // "dir" in a polygon layer: its direction field.
    parcels.fields = {{"ROL", 200}, {"USO", 202}, {"dir", 2}};
    parcels.classes = {{"Comercial", "", 0xFF, 0, 1, 0xFF00, 6}, {"10", "20", 1, 2, 3, 4, 5}};
    return parcels;
}

LayerRecord streets()
{
    LayerRecord streets;
    streets.name = "Calles";
    streets.id = 7;
    streets.type = polylinelayer;
    // Any value but 1 leaves the labels plain.
    streets.labelBold = 2;
    streets.thematicField = "NIVEL";
    streets.fields = {{"DIR", 2}, {"Nivel", 3}};
    return streets;
}

LayerRecord places()
{
    LayerRecord places;
    places.name = "Lugares";
    places.id = 12;
    places.type = pointlayer;
    places.labelBold = -1;
    places.fields = {{"Dir", 2}};
    return places;
}

MapDefinition santiago()
{
    MapDefinition map;
    map.name = "Santiago Ñuñoa";
    map.minX = -70.75f;
    map.minY = -33.5f;
    map.maxX = -70.5f;
    map.maxY = -33.25f;
    map.background = 0x00E0F0FF;
    map.projection = 81;
    map.layers = {parcels(), streets(), places()};
    return map;
}

using MapDefinitionLoader = SessionHarness;

TEST_F(MapDefinitionLoader, TheMapTakesItsNameExtentColourAndProjection)
{
    events.changeStatus(0, StatusList::RequestingMap, {});
    reply(santiago());
    EXPECT_EQ(document.Nombre, "Santiago Ñuñoa");
    EXPECT_EQ(document.mapExtent.MinX, -70.75);
    EXPECT_EQ(document.mapExtent.MinY, -33.5);
    EXPECT_EQ(document.mapExtent.MaxX, -70.5);
    EXPECT_EQ(document.mapExtent.MaxY, -33.25);
    EXPECT_EQ(document.BackgroundColor, 0x00E0F0FFu);
    EXPECT_EQ(document.Projection, 81);
    EXPECT_EQ(events.loaded, 1);
    // "Requesting Map." went when the map came, "Loading Map." once it was read.
    EXPECT_EQ(events.status.text(), "");
}

TEST_F(MapDefinitionLoader, EveryLayerRecordFieldFindsItsPlace)
{
    reply(santiago());
    ASSERT_EQ(document.Layers().count(), 3);
    EXPECT_EQ(document.Layers().Item(1)->IDLayer, 30);
    EXPECT_EQ(document.Layers().Item(2)->IDLayer, 7);
    EXPECT_EQ(document.Layers().Item(3)->IDLayer, 12);

    const layer& layer30 = *document.Layers().Find(30);
    EXPECT_EQ(layer30.Nombre, "Predios");
    EXPECT_EQ(layer30.Tipo, polygonlayer);
    EXPECT_EQ(layer30.minCol, 112);
    EXPECT_EQ(layer30.minRow, 2180);
    EXPECT_EQ(layer30.maxCol, 115);
    EXPECT_EQ(layer30.maxRow, 2190);
    EXPECT_EQ(layer30.GridDeltaX, 0.05f);
    EXPECT_EQ(layer30.GridDeltaY, 0.5f);
    EXPECT_EQ(layer30.UserVisibility(), 2);
    EXPECT_EQ(layer30.ZoomMin, 0.25f);
    EXPECT_EQ(layer30.ZoomMax, 40.0f);
    EXPECT_EQ(layer30.lblField, "ROL");
    EXPECT_EQ(layer30.lblZoomMin, 0.5f);
    EXPECT_EQ(layer30.lblZoomMax, 2.0f);
    EXPECT_EQ(layer30.UserLabelVisibility(), 1);
    EXPECT_EQ(layer30.lblColor, 0x0000FF);
    EXPECT_EQ(layer30.ThematicField, "uso");
    EXPECT_EQ(layer30.ThematicType, 1);
    EXPECT_EQ(layer30.AccessLevel, ALNoAccess);

    ASSERT_EQ(layer30.Campos().count(), 3);
    EXPECT_EQ(layer30.Campos().Item(1)->Nombre, "ROL");
    EXPECT_EQ(layer30.Campos().Item(3)->Nombre, "dir");
    EXPECT_EQ(layer30.Campos().Find("dir")->Tipo, 2);
}

TEST_F(MapDefinitionLoader, TheDefaultClassComesFirstWithTheLayersStyle)
{
    reply(santiago());
    const ThematicMap& classes = document.Layers().Find(30)->ThematicMap();
    ASSERT_EQ(classes.count(), 3);
    const Theme& any = *classes.Item(1);
    EXPECT_EQ(any.min, "MICanyMIC");
    EXPECT_EQ(any.max, "");
    EXPECT_EQ(any.DrawColor, 0x102030);
    EXPECT_EQ(any.DrawStyle, 2);
    EXPECT_EQ(any.DrawWidth, 3);
    EXPECT_EQ(any.FillColor, 0x405060);
    EXPECT_EQ(any.FillStyle, 4);
    // The classes follow in record order, each read as a thematic class reply's.
    EXPECT_EQ(classes.Item(2)->min, "Comercial");
    EXPECT_EQ(classes.Item(3)->max, "20");

    const ThematicMap& plain = document.Layers().Find(12)->ThematicMap();
    ASSERT_EQ(plain.count(), 1);
    EXPECT_EQ(plain.Item(1)->min, "MICanyMIC");
}

// Bold only for a value of 1; the thematic field's type found whatever its
// case; a "dir" field gives lines and polygons directions, hidden, but not points.
TEST_F(MapDefinitionLoader, BoldThematicTypeAndDirectionsFollowEachLayersRecord)
{
    reply(santiago());
    struct Expected {
        std::int32_t id;
        bool bold;
        int thematicType;
        const char* direction;
    };
    for (const Expected& want :
         {Expected{30, true, 202, "DIR"}, Expected{7, false, 3, "DIR"}, Expected{12, false, 0, ""}}) {
        const layer& mapLayer = *document.Layers().Find(want.id);
        EXPECT_EQ(mapLayer.lblBold, want.bold) << want.id;
        EXPECT_EQ(mapLayer.ThematicFieldType, want.thematicType) << want.id;
        EXPECT_EQ(mapLayer.DirectionField, want.direction) << want.id;
    }
    EXPECT_EQ(document.Layers().Find(7)->UserDirectionVisibility(), 0);
    EXPECT_NE(document.Layers().Find(12)->Campos().Find("Dir"), nullptr);
}

TEST_F(MapDefinitionLoader, TheLayersAccessIsAskedForInRecordOrder)
{
    document.IDUser = 77;
    reply(santiago());
    std::vector<DWBUffer> sent = requests.take();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(codeOf(sent[0]), CommandCode::LayerAccessLevelsRequest);
    EXPECT_EQ(messages::LayerAccessLevelsRequest::decode(sent[0]),
              (messages::LayerAccessLevelsRequest{77, {30, 7, 12}}));
    // The definition was counted off, the access levels counted on.
    EXPECT_EQ(requests.pending, 0);
}

TEST_F(MapDefinitionLoader, AMapWithoutLayersIsLoaded)
{
    MapDefinition empty = santiago();
    empty.layers.clear();
    reply(empty);
    std::vector<DWBUffer> sent = requests.take();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(codeOf(sent[0]), CommandCode::LayerAccessLevelsRequest);
    EXPECT_EQ(messages::LayerAccessLevelsRequest::decode(sent[0]), (messages::LayerAccessLevelsRequest{0, {}}));
    EXPECT_EQ(events.loaded, 1);
}

// A definition cut anywhere keeps what was read before the cut, each field
// of the map as it was read, adds no layer half read, asks for nothing and
// raises no MapLoaded.
TEST_F(MapDefinitionLoader, EveryCutKeepsWhatWasReadBeforeIt)
{
    const DWBUffer whole = messages::buildMessage(santiago());
    int layersBefore = 0;
    for (std::int64_t length = 10; length < whole.TamanoBuffer(); ++length) {
        MapDocument cutDocument(view);
        CommandDispatcher cutDispatch(LoadContext{cutDocument, requests, cells, ui, events});
        DWBUffer cut = cutShort(whole, length);
        EXPECT_THROW(cutDispatch(cut), WireReadError) << length;
        EXPECT_EQ(events.loaded, 0);
        EXPECT_TRUE(requests.sent.empty());
        EXPECT_GE(cutDocument.Layers().count(), layersBefore) << length;
        EXPECT_LT(cutDocument.Layers().count(), 3);
        layersBefore = cutDocument.Layers().count();
        // Reading the name takes 16 bytes, the four corners 4 bytes each.
        EXPECT_EQ(cutDocument.Nombre.empty(), length < 10 + 16) << length;
        EXPECT_EQ(cutDocument.mapExtent.MinY == -33.5, length >= 10 + 16 + 8) << length;
        if (cutDocument.Layers().count() > 0) {
            EXPECT_EQ(cutDocument.Projection, 81);
            EXPECT_EQ(cutDocument.Layers().Item(1)->ThematicMap().count(), 3);
        }
    }
    EXPECT_EQ(layersBefore, 2);
}

TEST_F(MapDefinitionLoader, ALayerIdGivenTwiceStopsTheDefinitionThere)
{
    MapDefinition twice = santiago();
    twice.layers[2].id = 30;
    reply(twice);
    EXPECT_EQ(abandoned, 1);
    EXPECT_EQ(document.Layers().count(), 2);
    EXPECT_EQ(document.Layers().Find(30)->Nombre, "Predios");
    EXPECT_EQ(events.loaded, 0);
    EXPECT_TRUE(requests.sent.empty());
}

// Extents and grids no map could have still leave a map that can be shown.
TEST_F(MapDefinitionLoader, NonsenseExtentsAndGridsAreSurvived)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    view.setSize(400, 300);
    for (const float value : {nan, infinity, -infinity, 3.4e38f}) {
        MapDefinition map = santiago();
        map.minX = value;
        map.maxY = -value;
        for (LayerRecord& record : map.layers) {
            record.gridDeltaX = value;
            record.gridDeltaY = 0;
            record.zoomMax = value;
        }
        document.Layers().Clear();
        reply(map);
        view.setProjection(document.Projection);
        view.SetView(document.mapExtent.MinX, document.mapExtent.MinY, document.mapExtent.MaxX,
                     document.mapExtent.MaxY);
        cells.requestCellsOfView();
        QImage picture(400, 300, QImage::Format_ARGB32_Premultiplied);
        MapRenderer(QPalette(), QFont(), 96).render(picture, view, document);
        EXPECT_EQ(document.Layers().count(), 3);
    }
    EXPECT_EQ(abandoned, 0);
}

} // namespace
