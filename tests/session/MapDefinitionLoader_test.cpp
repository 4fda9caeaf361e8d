#include "protocol/messages/LayerAccessLevels.h"
#include "render/MapRenderer.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "SessionHarness.h"
#include "protocol/WireReadError.h"

#include <QImage>

#include <limits>
#include <tuple>

using namespace orbelan;
using messages::FieldRecord;
using messages::LayerRecord;
using messages::MapDefinition;
using messages::ThematicClassRecord;

namespace {

// "dir" in a polygon layer: its direction field.
const LayerRecord kParcels{.name = "Predios", .id = 30, .type = polygonlayer,
                           .minCol = 112, .minRow = 2180, .maxCol = 115, .maxRow = 2190,
                           .gridDeltaX = 0.05f, .gridDeltaY = 0.5f, .visibility = 2, .zoomMin = 0.25f, .zoomMax = 40.0f,
                           .drawColor = 0x102030, .drawStyle = 2, .drawWidth = 3, .fillColor = 0x405060, .fillStyle = 4,
                           .labelField = "ROL", .labelZoomMin = 0.5f, .labelZoomMax = 2.0f, .labelVisibility = 1,
                           .labelBold = 1, .labelColor = 0x0000FF, .thematicField = "uso", .thematicType = 1,
                           .fields = {{"ROL", 200}, {"USO", 202}, {"dir", 2}},
                           .classes = {{"Comercial", "", 0xFF, 0, 1, 0xFF00, 6}, {"10", "20", 1, 2, 3, 4, 5}}};
// Any bold value but 1 leaves the labels plain.
const LayerRecord kStreets{.name = "Calles", .id = 7, .type = polylinelayer, .labelField = "", .labelBold = 2,
                           .thematicField = "NIVEL", .fields = {{"DIR", 2}, {"Nivel", 3}}, .classes = {}};
const LayerRecord kPlaces{.name = "Lugares", .id = 12, .type = pointlayer, .labelField = "", .labelBold = -1,
                          .thematicField = "", .fields = {{"Dir", 2}}, .classes = {}};

MapDefinition santiago()
{
    return {.name = "Santiago Ñuñoa", .minX = -70.75f, .minY = -33.5f, .maxX = -70.5f, .maxY = -33.25f,
            .background = 0x00E0F0FF, .projection = 81, .layers = {kParcels, kStreets, kPlaces}};
}

using MapDefinitionLoader = SessionHarness;

TEST_F(MapDefinitionLoader, TheMapTakesItsNameExtentColourAndProjection)
{
    events.changeStatus(0, StatusList::RequestingMap, {});
    reply(santiago());
    EXPECT_EQ(document.Nombre, "Santiago Ñuñoa");
    const BoundingBox& extent = document.mapExtent;
    EXPECT_EQ(std::tuple(extent.MinX, extent.MinY, extent.MaxX, extent.MaxY),
              std::tuple(-70.75, -33.5, -70.5, -33.25));
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
    const Layers& layers = document.Layers();
    EXPECT_EQ(std::tuple(layers.Item(1)->IDLayer, layers.Item(2)->IDLayer, layers.Item(3)->IDLayer),
              std::tuple(30, 7, 12));

    const layer& layer30 = *document.Layers().Find(30);
    EXPECT_EQ(layer30.Nombre, "Predios");
    EXPECT_EQ(layer30.Tipo, polygonlayer);
    EXPECT_EQ(std::tuple(layer30.minCol, layer30.minRow, layer30.maxCol, layer30.maxRow),
              std::tuple(112, 2180, 115, 2190));
    EXPECT_EQ(std::tuple(layer30.GridDeltaX, layer30.GridDeltaY), std::tuple(0.05f, 0.5f));
    EXPECT_EQ(std::tuple(layer30.UserVisibility(), layer30.ZoomMin, layer30.ZoomMax), std::tuple(2, 0.25f, 40.0f));
    EXPECT_EQ(std::tuple(layer30.lblField, layer30.lblZoomMin, layer30.lblZoomMax, layer30.UserLabelVisibility()),
              std::tuple("ROL", 0.5f, 2.0f, 1));
    EXPECT_EQ(std::tuple(layer30.lblColor, layer30.ThematicField, layer30.ThematicType),
              std::tuple(0x0000FF, "uso", 1));
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
    EXPECT_EQ(std::tuple(any.min, any.max), std::tuple("MICanyMIC", ""));
    EXPECT_EQ(std::tuple(any.DrawColor, any.DrawStyle, any.DrawWidth, any.FillColor, any.FillStyle),
              std::tuple(0x102030, 2, 3, 0x405060, 4));
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
        CommandDispatcher cutDispatch(LoadContext{cutDocument, requests, cells, ui, events, state});
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
