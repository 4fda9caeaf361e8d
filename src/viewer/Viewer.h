#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <cstdint>
#include <memory>

class QLabel;

namespace orbelan {

class Layers;
class PropertyBag;
class UiServices;
class ViewerPrivate;
class Viewport;

// The map viewer control: one map of one map server, shown and edited in a
// widget that host applications embed.
//
// Properties that hosts persist are read from and written to a PropertyBag;
// every change of one is announced with propertyChanged(key) so that the host
// knows to save its bag. The first time the control is shown in user mode it
// connects to the server and asks for access to its map; in a designer (user
// mode off) it never connects.
//
// Every change of view ends in SetView, which fits a geographic box into the
// control, redraws and asks the server for the grid cells still missing.
class Viewer : public QWidget {
    Q_OBJECT
    Q_PROPERTY(uint BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(uint ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(QFont font READ font WRITE setFont)
    Q_PROPERTY(short Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(short BackStyle READ BackStyle WRITE setBackStyle)
    Q_PROPERTY(short BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(QString URL READ URL WRITE setURL)
    Q_PROPERTY(int port READ port WRITE setPort)
    Q_PROPERTY(int MapCode READ MapCode WRITE setMapCode)
    Q_PROPERTY(int IDUser READ IDUser WRITE setIDUser)
    Q_PROPERTY(int Width READ Width WRITE setWidth)
    Q_PROPERTY(int Height READ Height WRITE setHeight)
    Q_PROPERTY(int PendingRequests READ PendingRequests)
    Q_PROPERTY(int Projection READ Projection WRITE setProjection)
    Q_PROPERTY(uint BackgroundColor READ BackgroundColor WRITE setBackgroundColor)
    Q_PROPERTY(QString Nombre READ Nombre WRITE setNombre)
    Q_PROPERTY(bool layerscargados READ layerscargados WRITE setLayerscargados)
    Q_PROPERTY(float origenX READ origenX WRITE setOrigenX)
    Q_PROPERTY(float origenY READ origenY WRITE setOrigenY)
    Q_PROPERTY(int Tool READ currentTool NOTIFY toolChanged)
    Q_PROPERTY(QString ImagePath READ ImagePath WRITE setImagePath)
    Q_PROPERTY(bool ScaleBar READ ScaleBar WRITE setScaleBar)
    Q_PROPERTY(bool Antialiasing READ Antialiasing WRITE setAntialiasing)
    Q_PROPERTY(short LabelPlacement READ LabelPlacement WRITE setLabelPlacement)

public:
    // Keys of the persisted properties in the host's property bag.
    static constexpr const char* kBackColorKey = "BackColor";
    static constexpr const char* kForeColorKey = "ForeColor";
    static constexpr const char* kEnabledKey = "Enabled";
    static constexpr const char* kFontKey = "Font";
    static constexpr const char* kAppearanceKey = "Appearance";
    static constexpr const char* kBackStyleKey = "BackStyle";
    static constexpr const char* kBorderStyleKey = "BorderStyle";
    static constexpr const char* kUrlKey = "URL";
    static constexpr const char* kPortKey = "Port";
    static constexpr const char* kMapCodeKey = "MapCode";
    static constexpr const char* kIdUserKey = "IDUser";
    static constexpr const char* kImagePathKey = "ImagePath";
    static constexpr const char* kScaleBarKey = "ScaleBar";
    static constexpr const char* kAntialiasingKey = "Antialiasing";
    static constexpr const char* kLabelPlacementKey = "LabelPlacement";

    explicit Viewer(QWidget* parent = nullptr);
    ~Viewer() override;

    // Message boxes and modal dialogs go through these services (not owned);
    // by default real widgets are used.
    void setUiServices(UiServices& services);

    // True in applications; false in a designer, where the control never
    // connects.
    bool userMode() const;
    void setUserMode(bool userMode);

    // Persisted properties. Enabled and the font are the widget's own
    // (setEnabled, setFont); their changes are announced as well.
    std::uint32_t BackColor() const;
    void setBackColor(std::uint32_t color);
    std::uint32_t ForeColor() const;
    void setForeColor(std::uint32_t color);
    std::int16_t Appearance() const;
    void setAppearance(std::int16_t appearance);
    std::int16_t BackStyle() const;
    void setBackStyle(std::int16_t backStyle);
    std::int16_t BorderStyle() const;
    void setBorderStyle(std::int16_t borderStyle);
    // The server's host and port live in the connection: a change applies to
    // the next connection, never to an open one.
    QString URL() const;
    void setURL(const QString& url);
    std::int32_t port() const;
    // A number that is not a TCP port is refused and changes nothing.
    void setPort(std::int32_t port);
    std::int32_t MapCode() const;
    void setMapCode(std::int32_t mapCode);
    std::int32_t IDUser() const;
    void setIDUser(std::int32_t idUser);

    int Width() const { return width(); }
    void setWidth(int width);
    int Height() const { return height(); }
    void setHeight(int height);

    // The loaded map. The projection code (0 latitude/longitude, 1 Albers,
    // 40 to 160 UTM) takes effect at the next SetView.
    int Projection() const;
    void setProjection(int code);
    // The map's name, as its definition gives it.
    QString Nombre() const;
    void setNombre(const QString& name);
    // True once the geometry of a first cell has arrived.
    bool layerscargados() const;
    void setLayerscargados(bool loaded);
    // The colour the map is cleared with before each redraw.
    std::uint32_t BackgroundColor() const;
    void setBackgroundColor(std::uint32_t color);
    // The view's origin: the point of the map's plane at the middle of the
    // control. Setting one moves the view there at the same scale.
    float origenX() const;
    void setOrigenX(float x);
    float origenY() const;
    void setOrigenY(float y);
    orbelan::Layers& Layers();
    // Puts a collection in place of the map's layers, to be drawn at the next
    // redraw; its layers belong to this control from now on.
    void setLayers(orbelan::Layers layers);
    // The view: centre and scale in the map's plane, the visible box in degrees.
    const Viewport& viewport() const;

    // A new control on a host form: the ambient font, map 1, and the next
    // show is a first show again.
    void InitProperties();
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    // The control's commands for hosts; they are invokable by name. None of
    // them, nor a property setter or a Qt event, lets an exception out: an
    // error that stops one is reported with errorOccurred and the control
    // goes on.
    Q_INVOKABLE void About();
    // Fits the geographic box (corners in any order) into the control,
    // redraws and requests the cells the view still lacks.
    Q_INVOKABLE void SetView(double x1, double y1, double x2, double y2);
    // Clears the picture with BackgroundColor and draws every layer for the
    // current view: the geometry of all layers, then their labels, then the
    // direction marks over both.
    Q_INVOKABLE void Redraw();
    // The same after one layer's data or style changed: that layer is drawn
    // anew, the others as they were drawn last.
    void RedrawLayer(std::int32_t IDLayer);
    // Puts the picture drawn last on the screen at once, without drawing the
    // map again.
    Q_INVOKABLE void Refresh();
    Q_INVOKABLE void ZoomIn();
    Q_INVOKABLE void ZoomOut();
    Q_INVOKABLE void ZoomExtents();
    // Arms the zoom-window tool: the next drag zooms to its rectangle.
    Q_INVOKABLE void ZoomWindow();
    // Arms the zoom-by-factor tool: the next click zooms by Factor about the
    // clicked point. Ignored unless Factor is above 0 and not 1.
    Q_INVOKABLE void ZoomFactor(float Factor);
    // Arms the pan tool: a drag moves the map.
    Q_INVOKABLE void Pan();
    // Starts measuring: each click adds a point, "Resume" of the right
    // click's menu tells the length of the line in the map's plane.
    Q_INVOKABLE void MeasureDistance();
    // Asks for the field of layer IDLayer that gives its elements'
    // directions; confirmed, a click picks an element of the layer.
    Q_INVOKABLE void SetDirections(int IDLayer);
    // Starts collecting elements of layer IDLayer with the mouse, one at a
    // time or inside a drawn polygon, as the right click's menu chooses;
    // its "Resume" raises SelectionSet with them.
    Q_INVOKABLE void SelectObjects(int IDLayer);
    // Asks the server for the elements of layer IDLayer whose field
    // FieldName meets the condition (Operation 1 "=" to 10 "Between", on
    // Value1 and, for "Between", Value2) and lists them. A condition with
    // an unknown layer, field or operator, or no Value1, is completed in
    // the dialog dlgFindByCondition first; its choices are written back
    // into the arguments. ReleaseEvent is taken for hosts that pass it:
    // the list's information opens in its dialog.
    void FindByCondition(std::int32_t& IDLayer, QString& FieldName, std::uint8_t& Operation, QString& Value1,
                         QString& Value2, bool ReleaseEvent);
    Q_INVOKABLE void FindByCondition(int IDLayer, const QString& FieldName, int Operation, const QString& Value1,
                                     const QString& Value2, bool ReleaseEvent);
    // Selects the elements of layer TargetLayer that lie in a polygon and
    // meet the constraints (field, operator code, first and second value,
    // one of each per constraint; lists of different lengths are ignored),
    // in the dialog dlgSelect, and shows them in the information grid. The
    // polygon is element IDElement of layer SourceLayer (picked on the map
    // when FromPolygon and it is 0), one drawn on the map, or none.
    Q_INVOKABLE void MultipleSelect(bool FromPolygon, int SourceLayer, int IDElement, int TargetLayer,
                                    const QStringList& ConstraintsFields = {},
                                    const QList<int>& ConstraintsRestrictions = {},
                                    const QStringList& ConstraintsValue1 = {},
                                    const QStringList& ConstraintsValue2 = {});
    // Height of the view in kilometres.
    Q_INVOKABLE float CurrentZoom() const;
    // Shows the union of the boxes of the given elements of a layer. One
    // element that is not loaded has its box asked for from the server.
    Q_INVOKABLE void ZoomToSelected(int IDLayer, const QList<int>& IDElement);
    // Shows the values of element IDElement of layer IDLayer in a dialog,
    // or with ReleaseEvent hands them to the host with InfoArrival. Element
    // 0 arms a tool whose click picks the elements on the map.
    Q_INVOKABLE void GetInfo(int IDLayer, int IDElement, bool ReleaseEvent = false);
    // Lets the values of an element change, for users who may edit the
    // layer: FieldInfo maps field names to new values, or is empty to let
    // the user type them in a dialog. Each changed value is sent to the
    // server. Element 0 arms a tool whose click picks the element.
    Q_INVOKABLE void EditInfo(int IDLayer, int IDElement, const QVariant& FieldInfo = QVariant());
    // Shows the label of the entity of layer IDLayer under the resting
    // mouse; layer 0 switches the tooltip off. The field name is kept, but
    // the text shown is always the layer's label.
    Q_INVOKABLE void SetToolTip(int IDLayer, const QString& ToolTipField);
    // Asks the server to change the password of the user IDUser; the answer
    // is told in a message box.
    Q_INVOKABLE void ChangePassword(const QString& OldPassword, const QString& NewPassword);
    // The folder of the raster files of image layers, without a trailing
    // separator (persisted). A new folder re-binds every image layer to the
    // file of its ImageName there, or leaves it without image (ImageNumber
    // -1) when the folder lacks it, and the map is drawn again; setting the
    // same folder again does nothing.
    QString ImagePath() const;
    void setImagePath(const QString& path);
    // A metric scale bar in the bottom-right corner of the map (persisted, on by default).
    bool ScaleBar() const;
    void setScaleBar(bool shown);
    // Lines, polygons, points and direction marks drawn smoothly (persisted;
    // on by default). Off, they are drawn in whole pixels. Either way a solid
    // polygon's inside keeps its class's exact colour. A change redraws.
    bool Antialiasing() const;
    void setAntialiasing(bool on);
    // How labels are put on the map (persisted): 0 each on the first place
    // its element is drawn, overlaps and all; 1, the default, placed so that
    // none overlaps another and all lie inside the view, over a halo in the
    // background colour. Any other value is refused and changes nothing; a
    // change draws the map again.
    std::int16_t LabelPlacement() const;
    void setLabelPlacement(std::int16_t mode);
    // Opens ImagePath/FileName as a new raster image and returns its number,
    // or -1 when there is no such file (or it is no raster that can be placed).
    Q_INVOKABLE int LoadRasterFile(const QString& FileName);
    // True when a raster image with that number was loaded.
    Q_INVOKABLE bool RendererExists(int Index) const;
    // Draws the image of image layer IDLayer over the part of the control
    // that it covers, read for that part only.
    Q_INVOKABLE void DrawImageLayer(int IDLayer);
    // Puts the map drawn last (not a picture being dragged) on the clipboard;
    // nothing while a map is loading.
    Q_INVOKABLE void SnapShot();
    // Draws the current view anew, Width x Height pixels at Dpi dots per
    // inch, into FileName: a PNG picture (.png) or a PDF page of that size
    // (.pdf). True when written; another extension, a size or resolution out
    // of range, or a file that cannot be written is an error.
    Q_INVOKABLE bool ExportImage(const QString& FileName, int Width, int Height, int Dpi);
    // Lets the user reorder, drop and restore the layers, set their zoom
    // ranges and visibility and the background colour in the dialog
    // dlgMapSetup; confirmed, the map is drawn again. Nothing happens while
    // a map loads or when none is loaded.
    Q_INVOKABLE void MapSetup();
    // The floating legend of the visible layers' classes: shown (made when
    // there is none, and built), built again for the current map and view,
    // hidden, and destroyed.
    Q_INVOKABLE void ShowMapReferences();
    Q_INVOKABLE void RestoreMapReferences();
    Q_INVOKABLE void HideMapReferences();
    Q_INVOKABLE void TerminateMapReferences();
    // Asks the server to store the map as it looks now (layer settings and
    // classes) as a new map of the user IDUser named MapName; nothing while
    // the map is loading. The answer is told in a message box.
    Q_INVOKABLE void SaveMap(int IDUser, const QString& MapName);
    // Lets the user style layer IDLayer (a number, or a text holding one) in
    // the dialog dlgLayerSetup: classes from the server's statistics of a
    // field, their colours and styles, labels and directions. Confirmed, the
    // layer is drawn anew in its new style. Nothing while a load is under
    // way, without a map, or for an image layer.
    Q_INVOKABLE void LayerSetup(const QVariant& IDLayer);
    // Asks for the grid cells of the view never asked for: geometry of every
    // visible layer, label and direction values where those show.
    void RequestMissingCells();

    // The current mouse tool: 0 none, 1 zoom window, 2 zoom by factor, 3 pan,
    // 8 measure distance, 11 select objects, 12 pick and 13 draw the polygon
    // of a multiple selection, 20 pick an element for directions.
    int currentTool() const;
    std::int32_t PendingRequests() const;
    // No reply awaited, nothing unread or half received from the server.
    bool isIdle() const;
    // The steps in progress, one per line, as the status label shows them.
    QString statusText() const;
    // The tooltip's box and the label inside it, for hosts that report it.
    QWidget* toolTipBox() const;
    const QLabel* toolTipLabel() const;

signals:
    void propertyChanged(const QString& key);
    // An entry into the control stopped on an error: "ENTRY: REASON".
    void errorOccurred(const QString& message);
    // The current mouse tool changed (the Tool property).
    void toolChanged(int tool);

    void click();
    void DblClick();
    void KeyDown(int KeyCode, int Shift);
    void KeyUp(int KeyCode, int Shift);
    void KeyPress(int KeyAscii);
    void MouseDown(int Button, int Shift, float X, float Y);
    void mousemove(int Button, int Shift, float X, float Y);
    void MouseUp(int Button, int Shift, float X, float Y);
    void MousePosition(double X, double Y);
    void InfoArrival(int IDLayer, int IDElement, const QStringList& FieldName,
                     const QList<int>& FieldTypes, const QStringList& FieldData);
    void MapLoaded();
    void MapRedrawn();
    void SelectionSet(int IDLayer, int ElementsCount, const QList<int>& Elements);
    // Cancel is in and out: a receiver sets *Cancel to true to refuse the element.
    void OnNewElement(const QStringList& FieldName, const QList<int>& FieldType,
                      const QStringList& FieldValue, bool* Cancel);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    friend class ViewerPrivate;
    QFont ambientFont() const;
    void keyPressed(const QKeyEvent& event);

    std::unique_ptr<ViewerPrivate> d_;
};

} // namespace orbelan
