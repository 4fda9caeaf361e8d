// Feeds arbitrary server messages to the client's command dispatcher, with a
// map of three layers loaded, as the connection would hand them over: the
// input is a byte stream that the message framer cuts into messages, so
// every reply code reaches its loader with any payload.
//
// No socket and no window: requests are counted and dropped, message boxes
// answered and dialogs closed at once, and showing the whole map asks for the cells of a fixed
// view, as the control does. Besides the sanitizers, the only exception
// allowed out of the dispatcher is the typed read error that abandons the
// rest of a message.

#include "model/MapDocument.h"
#include "protocol/MessageFramer.h"
#include "protocol/RequestSender.h"
#include "protocol/WireReadError.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MessageIO.h"
#include "session/CellRequester.h"
#include "session/CommandDispatcher.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "ui/ScriptedUiServices.h"
#include "view/Viewport.h"

#include <QApplication>

#include <cstdint>
#include <limits>
#include <span>

using namespace orbelan;

namespace {

class CountingSender : public RequestSender {
public:
    void sendRequest(CommandCode code, const std::function<void(DWBUffer&)>& writePayload) override
    {
        composeRequest(code, writePayload);
        pending_ += isCounted(code) && pending_ < std::numeric_limits<std::int32_t>::max() ? 1 : 0;
    }
    void replyHandled() override { pending_ -= pending_ > std::numeric_limits<std::int32_t>::min() ? 1 : 0; }
    std::int32_t pendingRequests() const override { return pending_; }
    void stopSending() override {}

private:
    std::int32_t pending_ = 0;
};

class ViewEvents : public SessionEvents {
public:
    void attach(CellRequester& cells) { cells_ = &cells; }
    void redrawMap() override {}
    void zoomToExtents() override { cells_->requestCellsOfView(); }
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

private:
    CellRequester* cells_ = nullptr;
};

messages::LayerRecord layerRecord(const char* name, std::int32_t id, std::int16_t type)
{
    messages::LayerRecord record;
    record.name = name;
    record.id = id;
    record.type = type;
    record.minCol = 100;
    record.maxCol = 120;
    record.minRow = 210;
    record.maxRow = 230;
    record.gridDeltaX = record.gridDeltaY = 0.5f;
    record.visibility = 2;
    record.labelField = "NOMBRE";
    record.labelVisibility = 2;
    record.thematicField = "USO";
    record.thematicType = 1;
    record.fields = {{"NOMBRE", 202}, {"USO", 202}, {"DIR", 2}};
    record.classes = {{"A", "M", 255, 0, 1, 0xFF00, 1}};
    return record;
}

// The session of one input: a map loaded and shown, nothing awaited.
struct Session {
    Session()
    {
        view.setSize(400, 300);
        view.SetView(-71, -34, -70, -33);
        events.attach(cells);
        const messages::MapDefinition map{"Fuzz", -71, -34, -70, -33, 0xFFFFFF, 0,
                                          {layerRecord("Predios", 1, 4), layerRecord("Calles", 2, 2),
                                           layerRecord("Lugares", 3, 1)}};
        DWBUffer definition(messages::buildMessage(map).bytes());
        dispatch(definition);
    }

    Viewport view;
    MapDocument document{view};
    CountingSender requests;
    ViewEvents events;
    ScriptedUiServices ui;
    CellRequester cells{requests, document, view, events};
    SessionState state;
    CommandDispatcher dispatch{LoadContext{document, requests, cells, ui, events, state}};
};

} // namespace

// Replies 113 and 114 open dialogs, which need an application; the
// scripted services close them at once.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    static QApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session session;
    session.state.zoomToElementBox = size % 2 == 1;
    MessageFramer framer(1 << 16);
    const Arrival arrival = framer.feed(std::span(data, size));
    for (std::size_t i = 0; i < arrival.messages.size(); ++i) {
        DWBUffer message(arrival.messages[i]);
        try {
            session.dispatch(message);
        } catch (const WireReadError&) {
        }
    }
    return 0;
}
