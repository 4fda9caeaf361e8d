#include "protocol/messages/AttributeUpdate.h"
#include "protocol/messages/ElementBoundingBoxRequest.h"
#include "protocol/messages/ElementInformation.h"
#include "protocol/messages/ElementInformationRequest.h"
#include "protocol/messages/MessageIO.h"
#include "ShownViewer.h"
#include "model/Layers.h"
#include "viewer/InputCodes.h"
#include "viewer/PropertyBag.h"
#include "ui/ScriptedUiServices.h"
#include "viewer/SettingsPropertyBag.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <optional>
#include <tuple>

using namespace orbelan;

namespace {

// A property bag in memory that keeps exactly what was written.
class MemoryBag : public PropertyBag {
public:
    QVariant ReadProperty(const QString& key, const QVariant& readDefault) const override
    {
        const auto found = values.find(key);
        return found == values.end() ? readDefault : found->second;
    }
    void WriteProperty(const QString& key, const QVariant& value, const QVariant& writeDefault) override
    {
        if (value != writeDefault) {
            values[key] = value;
        }
    }
    std::map<QString, QVariant> values;
};

// A port on which nothing listens: taken from the system, then given back.
quint16 closedPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    return probe.serverPort();
}

// Lets both ends of the loopback run until count bytes came or time is up.
QByteArray readExactly(QTcpSocket& socket, qsizetype count)
{
    QByteArray bytes;
    const bool complete = QTest::qWaitFor([&] {
        bytes += socket.read(count - bytes.size());
        return bytes.size() == count;
    });
    return complete ? bytes : QByteArray();
}

// The next request of the given code from the peer, those before it passed
// over; nothing when none comes in time.
std::optional<DWBUffer> nextRequest(QTcpSocket& peer, CommandCode code)
{
    for (QByteArray header = readExactly(peer, 8); header.size() == 8; header = readExactly(peer, 8)) {
        std::uint32_t length = 0;
        std::memcpy(&length, header.constData() + 4, sizeof length);
        const QByteArray whole = length > 8 ? header + readExactly(peer, length - 8) : header;
        DWBUffer request(std::span(reinterpret_cast<const std::uint8_t*>(whole.constData()),
                                   static_cast<std::size_t>(whole.size())));
        if (whole.size() == length && messages::readHeader(request) == code) {
            return request;
        }
    }
    return std::nullopt;
}

template <typename Message>
void send(QTcpSocket& peer, const Message& message)
{
    const DWBUffer built = messages::buildMessage(message);
    peer.write(reinterpret_cast<const char*>(built.bytes().data()), static_cast<qint64>(built.bytes().size()));
}

void pressAndRelease(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text = {})
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&target, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(&target, &release);
}

class ViewerTest : public ::testing::Test {
protected:
    ViewerTest()
    {
        viewer.setUiServices(ui);
        viewer.resize(400, 300);
    }

    void pointAt(quint16 port)
    {
        viewer.setURL(QStringLiteral("127.0.0.1"));
        viewer.setPort(port);
    }

    // Shows the control against a listener and returns the server's end of
    // the connection once the access request has come through it.
    std::unique_ptr<QTcpSocket> showConnected()
    {
        if (!server.listen(QHostAddress::LocalHost)) {
            return nullptr;
        }
        pointAt(server.serverPort());
        viewer.show();
        std::unique_ptr<QTcpSocket> peer(server.nextPendingConnection());
        if (peer) {
            accessRequest = readExactly(*peer, 18);
        }
        return accessRequest.size() == 18 ? std::move(peer) : nullptr;
    }

    QByteArray accessRequest;
    QTcpServer server;
    ScriptedUiServices ui;
    Viewer viewer;
};

TEST_F(ViewerTest, MissingOrCorruptStoredValuesGiveTheReadDefaults)
{
    MemoryBag bag;
    bag.values["Port"] = "not a port";
    bag.values["MapCode"] = "99999999999";
    bag.values["BackColor"] = -1;
    viewer.ReadProperties(bag);
    EXPECT_EQ(std::tuple(viewer.MapCode(), viewer.IDUser(), viewer.URL(), viewer.port()),
              std::tuple(1, 0, "nada", 10010));
    EXPECT_EQ(std::tuple(viewer.BackColor(), viewer.ForeColor()), std::tuple(0x8000000Fu, 0x80000012u));
    EXPECT_EQ(std::tuple(viewer.isEnabled(), viewer.Appearance(), viewer.BackStyle(), viewer.BorderStyle()),
              std::tuple(true, 1, 1, 0));
    EXPECT_TRUE(viewer.Antialiasing());
}

TEST_F(ViewerTest, ValuesEqualToTheWriteDefaultsAreNotStored)
{
    viewer.setPort(0);
    viewer.setURL(QString());
    MemoryBag bag;
    viewer.WriteProperties(bag);
    EXPECT_TRUE(bag.values.empty());
}

TEST_F(ViewerTest, PropertiesSurviveASettingsFile)
{
    QTemporaryDir folder;
    const QString file = folder.filePath("viewer.ini");
    {
        QSettings settings(file, QSettings::IniFormat);
        SettingsPropertyBag bag(settings, "Viewer");
        viewer.setBackColor(0x80000005);
        viewer.setForeColor(0x00FF8000);
        viewer.setEnabled(false);
        viewer.setBorderStyle(1);
        viewer.setURL("maps.example.org");
        viewer.setPort(1001);
        viewer.setMapCode(42);
        viewer.setIDUser(-7);
        viewer.setAntialiasing(false);
        viewer.setLabelPlacement(2);
        viewer.setLabelPlacement(0);
        viewer.WriteProperties(bag);
    }
    QSettings settings(file, QSettings::IniFormat);
    SettingsPropertyBag bag(settings, "Viewer");
    Viewer copy;
    copy.ReadProperties(bag);
    EXPECT_EQ(std::tuple(copy.BackColor(), copy.ForeColor(), copy.isEnabled(), copy.BorderStyle()),
              std::tuple(0x80000005u, 0x00FF8000u, false, 1));
    EXPECT_EQ(std::tuple(copy.URL(), copy.port(), copy.MapCode(), copy.IDUser()),
              std::tuple("maps.example.org", 1001, 42, -7));
    EXPECT_FALSE(copy.Antialiasing());
    // 2 is no placement and was refused.
    EXPECT_EQ(std::tuple(viewer.LabelPlacement(), copy.LabelPlacement(), Viewer().LabelPlacement()),
              std::tuple(0, 0, 1));
}

TEST_F(ViewerTest, EveryWriteIsAnnouncedButLoadingIsNot)
{
    QSignalSpy changed(&viewer, &Viewer::propertyChanged);
    viewer.setMapCode(3);
    viewer.setIDUser(4);
    viewer.setURL("host");
    viewer.setPort(5);
    viewer.setWidth(640);
    viewer.setHeight(480);
    viewer.setEnabled(false);
    viewer.setFont(QFont("Liberation Sans", 13));
    QStringList keys;
    for (const auto& call : changed) {
        keys << call.at(0).toString();
    }
    EXPECT_EQ(keys, (QStringList{"MapCode", "IDUser", "URL", "Port", "Width", "height", "Enabled", "Font"}));
    EXPECT_EQ(viewer.size(), QSize(640, 480));

    changed.clear();
    MemoryBag bag;
    bag.values["Enabled"] = true;
    viewer.ReadProperties(bag);
    EXPECT_TRUE(changed.isEmpty());
}

TEST_F(ViewerTest, DrawingSwitchesRedrawAndAnnounceOnlyANewValue)
{
    viewer.Layers().AddLayer("streets", 1, polylinelayer, viewer.viewport());
    QSignalSpy changed(&viewer, &Viewer::propertyChanged);
    QSignalSpy redrawn(&viewer, &Viewer::MapRedrawn);
    QSignalSpy errors(&viewer, &Viewer::errorOccurred);
    viewer.setScaleBar(true);
    viewer.setAntialiasing(true);
    viewer.setLabelPlacement(1);
    EXPECT_TRUE(changed.isEmpty());
    EXPECT_TRUE(redrawn.isEmpty());

    viewer.setScaleBar(false);
    viewer.setAntialiasing(false);
    viewer.setLabelPlacement(0);
    viewer.setLabelPlacement(-1);
    QStringList keys;
    for (const auto& call : changed) {
        keys << call.at(0).toString();
    }
    EXPECT_EQ(keys, (QStringList{"ScaleBar", "Antialiasing", "LabelPlacement"}));
    EXPECT_EQ(redrawn.size(), 3);
    EXPECT_EQ(std::tuple(viewer.ScaleBar(), viewer.Antialiasing(), viewer.LabelPlacement()),
              std::tuple(false, false, 0));
    ASSERT_EQ(errors.size(), 1);
    EXPECT_EQ(errors.at(0).at(0).toString(), "LabelPlacement: -1 is not a label placement (0 or 1)");
}

using ScaleBarOrder = ShownViewer;

// A picked line under the scale bar shows highlighted, and the bar stays over it.
TEST_F(ScaleBarOrder, TheScaleBarIsDrawnOverHighlights)
{
    layer& roads = addLayer(1, polylinelayer, 0x00FF00);
    roads.Selectable = true;
    roads.Entidades.AddEntity(1, std::vector<Vertex>{{2, -4.2}, {10, -4.2}}, roads); // row 184, under the bar
    viewer.Redraw();
    viewer.SelectObjects(1);
    QTest::mouseClick(&viewer, Qt::RightButton, Qt::NoModifier, {260, 184});
    QTest::mouseClick(&viewer, Qt::LeftButton, Qt::NoModifier, {260, 184});
    const QImage shown = viewer.grab().toImage();
    EXPECT_EQ(shown.pixel(260, 184), 0xFFFF0000);
    EXPECT_EQ(shown.pixel(380, 184), 0xFF000000);
}

TEST_F(ViewerTest, APortOutsideTheTcpRangeIsRefusedAndReported)
{
    viewer.setPort(1001);
    QSignalSpy errors(&viewer, &Viewer::errorOccurred);
    EXPECT_TRUE(viewer.setProperty("port", 65536));
    viewer.setPort(-1);
    ASSERT_EQ(errors.size(), 2);
    EXPECT_EQ(errors.at(0).at(0).toString(), "port: 65536 is not a TCP port (0 to 65535)");
    EXPECT_EQ(viewer.port(), 1001);
}

TEST_F(ViewerTest, ADesignedControlNeverConnects)
{
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    pointAt(server.serverPort());
    viewer.setUserMode(false);
    viewer.show();
    EXPECT_FALSE(server.waitForNewConnection(300));
    EXPECT_EQ(viewer.PendingRequests(), 0);
}

TEST_F(ViewerTest, TheFirstShowAsksForAccessToTheMapOnce)
{
    viewer.setIDUser(7);
    viewer.setMapCode(3);
    std::unique_ptr<QTcpSocket> peer = showConnected();
    ASSERT_TRUE(peer);
    EXPECT_EQ(accessRequest, QByteArray("MIC \x12\0\0\0\x0A\0\x07\0\0\0\x03\0\0\0", 18));
    EXPECT_EQ(viewer.PendingRequests(), 1);
    EXPECT_EQ(viewer.statusText(), "Requesting Map.");
    EXPECT_TRUE(ui.messages().empty());

    // Hidden, the control closes its connection and forgets what it awaited;
    // shown again, it starts a new session.
    viewer.hide();
    EXPECT_TRUE(peer->state() == QAbstractSocket::UnconnectedState || peer->waitForDisconnected(1000));
    EXPECT_EQ(std::tuple(viewer.PendingRequests(), viewer.statusText()), std::tuple(0, ""));
    viewer.show();
    ASSERT_TRUE(server.hasPendingConnections() || server.waitForNewConnection(1000));
    const std::unique_ptr<QTcpSocket> again(server.nextPendingConnection());
    EXPECT_EQ(readExactly(*again, 18), accessRequest);
    EXPECT_EQ(viewer.PendingRequests(), 1);
}

TEST_F(ViewerTest, AFailedConnectionIsReportedAndTheControlCarriesOn)
{
    pointAt(closedPort());
    viewer.show();
    ASSERT_EQ(ui.messages().size(), 1u);
    const ShownMessage& box = ui.messages().front();
    EXPECT_EQ(box.icon, MessageIcon::Critical);
    // Its wording, as scripts read it, is checked through the headless host.
    EXPECT_TRUE(box.text.startsWith("Error: Unable to connect to map server."));
    EXPECT_EQ(viewer.PendingRequests(), 0);
    EXPECT_EQ(viewer.statusText(), "");
    EXPECT_TRUE(viewer.isVisible());
}

// Keys as a US keyboard gives them to Qt; a shifted symbol has the number of
// its key, the keypad's keys numbers of their own.
TEST_F(ViewerTest, KeysAreReportedWithTheirVirtualKeyCodes)
{
    QSignalSpy down(&viewer, &Viewer::KeyDown);
    QSignalSpy press(&viewer, &Viewer::KeyPress);
    QSignalSpy up(&viewer, &Viewer::KeyUp);
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const Qt::KeyboardModifiers keypad = Qt::KeypadModifier;
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, int> keys[] = {
        {Qt::Key_A, {}, 65},           {Qt::Key_Equal, {}, 187},      {Qt::Key_Plus, shift, 187},
        {Qt::Key_Plus, keypad, 107},   {Qt::Key_Minus, {}, 189},      {Qt::Key_Minus, keypad, 109},
        {Qt::Key_Comma, {}, 188},      {Qt::Key_Less, shift, 188},    {Qt::Key_Less, {}, 226},
        {Qt::Key_Period, {}, 190},     {Qt::Key_Period, keypad, 110}, {Qt::Key_Asterisk, shift, 56},
        {Qt::Key_7, keypad, 103},      {Qt::Key_Home, keypad, 36},    {Qt::Key_QuoteDbl, shift, 222},
        {Qt::Key_BracketLeft, {}, 219}, {Qt::Key_F24, {}, 135},       {Qt::Key_Backtab, shift, 9},
        {Qt::Key_Print, {}, 44},       {Qt::Key_Super_L, {}, 91},     {Qt::Key_Menu, {}, 93},
        {Qt::Key_NumLock, {}, 144},    {Qt::Key_VolumeUp, {}, 0},     {Qt::Key_Left, shift, 37},
    };
    for (const auto& [key, modifiers, code] : keys) {
        down.clear();
        pressAndRelease(viewer, key, modifiers);
        ASSERT_EQ(down.size(), 1);
        EXPECT_EQ(down.at(0).at(0).toInt(), code) << "Qt key 0x" << std::hex << static_cast<int>(key);
    }
    EXPECT_EQ(down.at(0), (QVariantList{37, 1}));
    EXPECT_EQ(up.size(), std::ssize(keys));
    pressAndRelease(viewer, Qt::Key_A, Qt::NoModifier, "a");
    ASSERT_EQ(press.size(), 1);
    EXPECT_EQ(press.at(0).at(0).toInt(), 'a');
    // Scripts press a key by its number.
    for (int code = 1; code < 256; ++code) {
        if (const inputcodes::QtKey key = inputcodes::keyOf(code); key.key != Qt::Key_unknown) {
            EXPECT_EQ(inputcodes::keyCodeOf(key.key, key.modifiers), code);
        }
    }
}

TEST_F(ViewerTest, ZoomToSelectedAsksForTheBoxOfAnElementNotLoaded)
{
    std::unique_ptr<QTcpSocket> peer = showConnected();
    ASSERT_TRUE(peer);
    viewer.Layers().AddLayer("Calles", 5, polylinelayer, viewer.viewport());
    const int pending = viewer.PendingRequests();
    viewer.ZoomToSelected(5, {99});
    const QByteArray bytes = readExactly(*peer, 18);
    ASSERT_EQ(bytes.size(), 18);
    DWBUffer request(std::span(reinterpret_cast<const std::uint8_t*>(bytes.constData()), 18));
    request.GetFromBuffer(8);
    EXPECT_EQ(request.GetInteger(), codeNumber(CommandCode::ElementBoundingBoxRequest));
    EXPECT_EQ(messages::ElementBoundingBoxRequest::decode(request),
              (messages::ElementBoundingBoxRequest{5, 99}));
    EXPECT_EQ(viewer.PendingRequests(), pending + 1);
    EXPECT_FALSE(viewer.viewport().viewReady());
}

// Element 0 arms the information tool, whose click asks for the element
// under it; the values can come as an event; EditInfo needs an editor and
// sends one update per value it changes.
TEST_F(ViewerTest, InformationIsPickedReleasedAndEditedThroughTheServer)
{
    std::unique_ptr<QTcpSocket> peer = showConnected();
    ASSERT_TRUE(peer);
    layer& parcels = viewer.Layers().AddLayer("Predios", 5, polygonlayer, viewer.viewport());
    parcels.AccessLevel = ALViewer;
    parcels.Selectable = true;
    parcels.setUserVisibility(2);
    parcels.GridDeltaX = parcels.GridDeltaY = 0.5f;
    parcels.Campos().Add("NOMBRE", 202);
    parcels.Campos().Add("AREA", 5);
    parcels.Entidades.AddEntity(1, std::vector<Vertex>{{1, 1}, {2, 1}, {2, 2}, {1, 2}}, parcels);
    viewer.SetView(-10, -7.5, 10, 7.5);
    viewer.GetInfo(5, 0);
    EXPECT_EQ(viewer.currentTool(), 4);
    QTest::mouseClick(&viewer, Qt::LeftButton, Qt::NoModifier, QPoint(230, 120)); // (1.5, 1.5)
    EXPECT_EQ(viewer.currentTool(), 0);
    std::optional<DWBUffer> request = nextRequest(*peer, CommandCode::ElementInformationRequest);
    ASSERT_TRUE(request);
    EXPECT_EQ(messages::ElementInformationRequest::decode(*request), (messages::ElementInformationRequest{5, 1}));

    QSignalSpy arrivals(&viewer, &Viewer::InfoArrival);
    viewer.GetInfo(5, 1, true);
    send(*peer, messages::ElementInformation{5, 1, true, {{202, "Alameda"}, {5, "2.5"}}});
    ASSERT_TRUE(QTest::qWaitFor([&] { return arrivals.size() == 1; }));
    EXPECT_EQ(arrivals.back().at(4).toStringList(), (QStringList{"Alameda", "2.5"}));

    viewer.EditInfo(5, 1, QVariantMap{{"nombre", "Bandera"}});
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(std::tuple(ui.messages().back().text, ui.messages().back().icon),
              std::tuple("Acceso Denegado", MessageIcon::Critical));
    parcels.AccessLevel = ALEditor;
    viewer.EditInfo(5, 1, QVariantMap{{"nombre", "Bandera"}, {"AREA", 2.5}});
    send(*peer, messages::ElementInformation{5, 1, true, {{202, "Alameda"}, {5, "2.5"}}});
    request = nextRequest(*peer, CommandCode::AttributeUpdate);
    ASSERT_TRUE(request);
    const GridCell cell = parcels.GetPointCell(1.5, 1.5);
    EXPECT_EQ(messages::AttributeUpdate::decode(*request),
              (messages::AttributeUpdate{5, 1, cell.row, cell.column, 1, 202, "Bandera"}));
}

} // namespace
