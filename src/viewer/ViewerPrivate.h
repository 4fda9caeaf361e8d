#pragma once

#include "configuration/LayerSetupLoop.h"
#include "model/MapDocument.h"
#include "render/MapRenderer.h"
#include "session/MapSession.h"
#include "viewer/EntryOverlay.h"
#include "viewer/ImageLayers.h"
#include "viewer/MapToolHost.h"
#include "viewer/MultipleSelection.h"
#include "viewer/PointEntry.h"
#include "session/SessionEvents.h"
#include "viewer/ToolController.h"
#include "viewer/ToolMenus.h"
#include "view/Viewport.h"

#include <QImage>
#include <QPoint>

#include <cstdint>
#include <memory>
#include <optional>

class QLabel;
class QMouseEvent;
class QRubberBand;
class QTimer;

namespace orbelan {

namespace messages {
struct Condition;
}

class ActivityShape;
class CToolTip;
class dlgMapReferences;
class UiServices;
class Viewer;

// Everything behind the Viewer's public face: the map and its view, the
// session with the server, the renderer and the mouse tools, and the child
// widgets that make up the control's surface. The Viewer forwards its
// methods and Qt events here; the session and the tools reach the widget
// only through the two interfaces this implements.
class ViewerPrivate : public SessionEvents, public MapToolHost {
public:
    explicit ViewerPrivate(Viewer& viewer);
    ~ViewerPrivate() override;

    ViewerPrivate(const ViewerPrivate&) = delete;
    ViewerPrivate& operator=(const ViewerPrivate&) = delete;

    // SessionEvents and MapToolHost
    void redrawMap() override { drawMap(std::nullopt); }
    void zoomToExtents() override;
    void changeStatus(std::int32_t layerId, std::uint8_t step, const QString& layerName = {}) override;
    void definitionLoaded() override;
    void informationArrived(std::int32_t layerId, std::int32_t elementId, const QStringList& fieldNames,
                            const QList<int>& fieldTypes, const QStringList& values) override;
    QWidget* dialogParent() override;
    void statisticsArrived(std::int32_t layerId, std::vector<std::string> values) override;

    // MapToolHost
    const Viewport& viewport() const override { return viewport_; }
    void showBox(const BoundingBox& box) override;
    void zoomAbout(float factor, MapPoint centre) override;
    bool dragView(MapPoint from, MapPoint to) override;
    void showRubberBand(const QRect& rectangle) override;
    void hideRubberBand() override;
    void setPanOffset(QPoint offset) override;
    void finishNavigation(int tool, bool completed) override;
    Layers& layers() override { return document_.Layers(); }
    void toolChanged(int number) override;
    bool resetTool() override;
    void selectToolCursor() override;
    std::optional<Vertex> resolveInputPoint(MapPoint click) override { return pointEntry_.resolve(click); }
    void showEnteredPoints() override;
    void followPointer(const std::optional<QPointF>& pointer, bool closing) override;
    void showToolStatus(const QString& text) override;
    ToolMenus& menus() override { return menus_; }
    void selectionSet(std::int32_t layerId, const std::vector<std::int32_t>& ids) override;
    void requestInformation(std::int32_t layerId, std::int32_t elementId, bool forEditing) override
    {
        session_.requestInformation(layerId, elementId, forEditing);
    }
    MessageAnswer messageBox(const QString& text, MessageButtons buttons, MessageIcon icon,
                             const QString& caption) override;
    void resumeMultipleSelection() override { multipleSelection_.resume(); }

    // QueryMap
    void clearHighlight() override;
    void highlightElement(std::int32_t layerId, std::int32_t elementId) override;
    void zoomToElements(std::int32_t layerId, const std::vector<std::int32_t>& elementIds) override;
    void showElementInformation(std::int32_t layerId, std::int32_t elementId) override;

    void setUiServices(UiServices& services);
    UiServices& ui() const { return *ui_; }

    void drawMap(std::optional<std::int32_t> onlyLayer);
    void zoomAboutCentre(float factor);
    // Moves the view's centre to the point of the projected plane; the scale stays.
    void centreView(MapPoint centre);
    void armTool(int number);
    // Arms the zoom-by-factor tool with a new factor.
    void armZoomFactor(float factor);
    // Starts a tool's operation on a layer, once the current one is given up.
    void selectTool(int number, std::int32_t targetLayer);
    // Asks for the direction field of a layer; confirmed, the directions tool
    // picks an element of it.
    void setDirections(std::int32_t layerId);
    // Starts collecting elements of a layer for the host.
    void selectObjects(std::int32_t layerId);
    // Shows, or tells the host, the values of an element of a layer; element
    // 0 lets the user pick it on the map.
    void getInfo(std::int32_t layerId, std::int32_t elementId, bool releaseEvent);
    // Lets the values of an element change, to those fieldInfo gives or to
    // those the user types; element 0 lets the user pick it on the map.
    void editInfo(std::int32_t layerId, std::int32_t elementId, const QVariant& fieldInfo);
    void showElements(std::int32_t layerId, const QList<int>& elements);
    void chooseToolTipLayer(int layerId, const QString& field);
    // Asks for the elements that meet the condition; an incomplete one is
    // completed in a dialog first, and the dialog's choices are written back.
    void findByCondition(messages::Condition& condition);
    MultipleSelection& multipleSelection() { return multipleSelection_; }
    // Styles a layer in the layer setup dialog, asking the server for the
    // statistics of a field when the dialog wants them.
    void layerSetup(std::int32_t layerId);
    // The tooltip goes with the pointer.
    void pointerLeft();
    void requestCellsOfView() { session_.cells().requestCellsOfView(); }
    // The map setup dialog, and the legend window's life.
    void mapSetup();
    void showMapReferences();
    void restoreMapReferences();
    void hideMapReferences();
    void terminateMapReferences();
    dlgMapReferences* mapReferences() const { return legend_.get(); }

    void firstShow();
    void hidden();
    void resized();
    void paint();
    void mousePress(const QMouseEvent& event);
    void mouseMove(const QMouseEvent& event);
    void mouseRelease(const QMouseEvent& event);
    void mouseDoubleClick(const QMouseEvent& event);
    void wheel(int steps, QPointF pixel);
    // The arrow keys move the view by a quarter of its size.
    void navigationKey(int key);
    void applyColors();
    void placeCompanyLabel();

    // Raster images of the image layers.
    ImageLayers& images() { return images_; }
    // A new folder for the raster files: the image layers are bound to it
    // and the map is drawn again. Nothing (false) when the folder is the same.
    bool setImagePath(const QString& path);
    // One of the renderer's drawing switches (scale bar, antialiasing, label
    // placement) set to value: when it is new, the map is drawn again and the
    // host told of the property key; the same value again does nothing.
    template <typename Value>
    void setDrawingSwitch(const char* key, Value (MapRenderer::*current)() const,
                          void (MapRenderer::*change)(Value), Value value);
    // The layers put in place of the map's: the image layers get their images.
    void replaceLayers(Layers layers);
    // Draws the image of image layer layerId over the picture.
    void drawImageLayer(std::int32_t layerId);
    // The map drawn last onto the clipboard; nothing while a load is under way.
    void snapShot();
    // The current view drawn anew at another size and resolution into a PNG
    // or PDF file (MapExport says which and what it refuses).
    void exportImage(const QString& fileName, int width, int height, int dpi);

    MapDocument& document() { return document_; }
    MapRenderer& renderer() { return renderer_; }
    MapSession& session() { return session_; }
    const MapSession& session() const { return session_; }
    ToolController& tools() { return tools_; }
    const ToolController& tools() const { return tools_; }
    // The steps in progress and the current tool's line, as the status label shows them.
    QString statusText() const;
    QWidget* toolTipBox() const { return toolTipBox_; }
    const QLabel* toolTipLabel() const { return toolTipLabel_; }

    // The persisted properties of the surface that the widget does not hold
    // itself: colours (OLE numbers), 3-D look, back style (0 transparent)
    // and border style (1 a frame).
    struct Surface {
        std::uint32_t back;
        std::uint32_t fore;
        std::int16_t look = 1;
        std::int16_t backMode = 1;
        std::int16_t border = 0;
    } surface;
    bool userMode = true;
    bool firstShowPending = true;

private:
    void createSurface();
    void connectReceiveSide();
    void refreshStatusLabel();
    // Draws the map into the control's picture, without the redraw's event.
    void renderPicture(std::optional<std::int32_t> onlyLayer);
    // After the view changed: the map is drawn anew and the cells it lacks
    // are asked for.
    void showChangedView(bool changed);
    // Changes the view relatively unless a load is under way; true when it changed.
    template <typename Change>
    bool navigate(const Change& change)
    {
        const bool changed = !document_.busy && change();
        showChangedView(changed);
        return changed;
    }
    // The layer with that ID; std::invalid_argument when the map has none.
    const layer& existingLayer(std::int32_t layerId);
    // The user may see (or change) the values of the layer's elements: at
    // least the access level needed, and not an image layer.
    bool informationAllowed(const layer& target, CONSTACCESSLEVEL needed);
    void startInformation(std::int32_t layerId, std::int32_t elementId, bool forEditing);
    void connectMenus();
    // A new polygon of the selection starts with no vertex.
    void startSelectionPolygon();
    void onMenuItem(const char* name, void (*handler)(ViewerPrivate&));
    void popupMenu(PopupMenu which, QPointF pixel);
    // A press and release of Escape, as if typed.
    void typeEscape();
    void markSegment(const Vertex& first, const Vertex& second, const Vertex& click);
    void panByQuarter(int east, int north);
    MapMouseEvent mapEvent(const QMouseEvent& event) const;

    Viewer& viewer_;
    std::unique_ptr<UiServices> ownUi_;
    UiServices* ui_;
    Viewport viewport_;
    MapDocument document_;
    MapSession session_;
    MapRenderer renderer_;
    ImageLayers images_;
    ToolController tools_;
    ToolMenus menus_;
    PointEntry pointEntry_;
    EntryOverlay entryOverlay_;
    QString toolStatus_;
    QImage picture_;
    QPoint panOffset_;

    ActivityShape* readingData_ = nullptr;
    QLabel* statusLabel_ = nullptr;
    bool statusRefreshPending_ = false;
    QLabel* companyLabel_ = nullptr;
    QRubberBand* rubberBand_ = nullptr;
    QTimer* toolTipTimer_ = nullptr;
    QWidget* toolTipBox_ = nullptr;
    QLabel* toolTipLabel_ = nullptr;
    // Made with the first SetToolTip.
    std::unique_ptr<CToolTip> toolTip_;
    MultipleSelection multipleSelection_{*this};
    // The elements the query dialogs highlighted, drawn over every redraw
    // until they clear them.
    std::int32_t highlightedLayer_ = 0;
    std::vector<std::int32_t> highlighted_;
    // The legend, while it exists.
    std::unique_ptr<dlgMapReferences> legend_;
    LayerSetupLoop layerSetup_;
};

} // namespace orbelan
