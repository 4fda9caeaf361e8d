// The whole road from a server to a drawn map: orbelan-server on loopback
// with the demo store, and a Viewer from its first show to the redraw that
// follows the last cell. Also the parse of one reply 102 into entities.

#include "protocol/messages/CellGeometry.h"
#include "session/CellGeometryLoader.h"
#include "session/CellRequester.h"
#include "DemoServerThread.h"
#include "session/LoadContext.h"
#include "model/MapDocument.h"
#include "protocol/messages/MessageIO.h"
#include "protocol/RequestSender.h"
#include "ui/ScriptedUiServices.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <chrono>
#include <memory>

using namespace orbelan;

namespace {

constexpr std::int32_t kAdministrator = 1;
constexpr std::int32_t kSantiago = 1;
constexpr std::int32_t kUnitedStates = 2;
constexpr qint64 kLoadLimitMilliseconds = 60'000;

// The atlas packages that scripts/run.sh fetched, when it has run.
QString atlasFolder()
{
    const QString folder = QStringLiteral(ORBELAN_SOURCE_DIR "/build/demo-data");
    return QDir(folder + QStringLiteral("/node_modules")).exists() ? folder : QString();
}

DemoStore& store()
{
    static DemoStore demo(atlasFolder());
    return demo;
}

// Shows the viewer on the map, at 1280 × 800, and waits until the map is
// loaded and every reply is in; false when it is not within the limit.
bool load(Viewer& viewer, ScriptedUiServices& ui, quint16 port, std::int32_t map)
{
    viewer.setUiServices(ui);
    viewer.resize(1280, 800);
    viewer.setURL(QStringLiteral("127.0.0.1"));
    viewer.setPort(port);
    viewer.setIDUser(kAdministrator);
    viewer.setMapCode(map);
    QElapsedTimer clock;
    clock.start();
    viewer.show();
    while (!(viewer.layerscargados() && viewer.isIdle()) && clock.elapsed() < kLoadLimitMilliseconds) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1);
    }
    return viewer.layerscargados();
}

// Seconds from the first show until the map is loaded and every reply is in.
double loadSeconds(quint16 port, std::int32_t map)
{
    ScriptedUiServices ui;
    Viewer viewer;
    QElapsedTimer clock;
    clock.start();
    return load(viewer, ui, port, map) ? static_cast<double>(clock.nsecsElapsed()) / 1e9 : -1;
}

void BM_LoadMap(benchmark::State& state, std::int32_t map)
{
    if (map == kUnitedStates && atlasFolder().isEmpty()) {
        state.SkipWithError("the us-atlas package is not in build/demo-data: run scripts/run.sh once");
        return;
    }
    ServerUnderLoad server(store().path);
    const quint16 port = server.startServing();
    for (auto _ : state) {
        const double seconds = loadSeconds(port, map);
        if (seconds < 0) {
            state.SkipWithError("the map did not load");
            return;
        }
        state.SetIterationTime(seconds);
    }
}
BENCHMARK_CAPTURE(BM_LoadMap, santiago, kSantiago)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LoadMap, united_states, kUnitedStates)->UseManualTime()->Unit(benchmark::kMillisecond);

// One full redraw of the loaded map in its first view, as Redraw draws it.
void BM_RedrawMap(benchmark::State& state, std::int32_t map, bool antialiasing)
{
    if (map == kUnitedStates && atlasFolder().isEmpty()) {
        state.SkipWithError("the us-atlas package is not in build/demo-data: run scripts/run.sh once");
        return;
    }
    ServerUnderLoad server(store().path);
    ScriptedUiServices ui;
    Viewer viewer;
    if (!load(viewer, ui, server.startServing(), map)) {
        state.SkipWithError("the map did not load");
        return;
    }
    viewer.setAntialiasing(antialiasing);
    for (auto _ : state) {
        viewer.Redraw();
    }
}
BENCHMARK_CAPTURE(BM_RedrawMap, united_states_aliased, kUnitedStates, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_RedrawMap, united_states_antialiased, kUnitedStates, true)->Unit(benchmark::kMillisecond);

// One cell of 20,000 lines of 10 vertices, relative coordinates as the server
// sends a city's cell.
DWBUffer bigCell()
{
    messages::CellGeometry cell;
    cell.layer = 7;
    for (std::int32_t id = 1; id <= 20'000; ++id) {
        messages::CellElement element{id, {}};
        for (int k = 0; k < 10; ++k) {
            element.points.push_back({-70.6 + id * 1e-6 + k * 1e-5, -33.4 + k * 1e-5});
        }
        cell.elements.push_back(std::move(element));
    }
    cell.chooseCoordinates();
    return messages::buildMessage(cell);
}

// A session whose requests and events go nowhere: only the loader runs.
class NoRequests : public RequestSender {
public:
    void sendRequest(CommandCode, const std::function<void(DWBUffer&)>&) override {}
    void replyHandled() override {}
    std::int32_t pendingRequests() const override { return 1; }
    void stopSending() override {}
};

class NoEvents : public SessionEvents {
public:
    void redrawMap() override {}
    void zoomToExtents() override {}
    void showBox(const BoundingBox&) override {}
    void changeStatus(std::int32_t, std::uint8_t, const QString&) override {}
    void definitionLoaded() override {}
    void informationArrived(std::int32_t, std::int32_t, const QStringList&, const QList<int>&,
                            const QStringList&) override
    {
    }
    QWidget* dialogParent() override { return nullptr; }
    void clearHighlight() override {}
    void highlightElement(std::int32_t, std::int32_t) override {}
    void zoomToElements(std::int32_t, const std::vector<std::int32_t>&) override {}
    void showElementInformation(std::int32_t, std::int32_t) override {}
};

void BM_ParseCellGeometry(benchmark::State& state)
{
    Viewport view;
    NoRequests requests;
    NoEvents events;
    ScriptedUiServices ui;
    const DWBUffer message = bigCell();
    std::int64_t vertices = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto document = std::make_unique<MapDocument>(view);
        document->addLayer("Calles", 7, polylinelayer);
        CellRequester cells(requests, *document, view, events);
        SessionState remembered;
        LoadContext context{*document, requests, cells, ui, events, remembered};
        DWBUffer reply(message.bytes());
        reply.GetFromBuffer(10);
        state.ResumeTiming();
        loadCellGeometry(reply, context);
        state.PauseTiming();
        vertices += 20'000 * 10;
        document.reset();
        state.ResumeTiming();
    }
    state.counters["vertices_per_s"] = benchmark::Counter(static_cast<double>(vertices), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ParseCellGeometry)->Unit(benchmark::kMillisecond);

} // namespace
