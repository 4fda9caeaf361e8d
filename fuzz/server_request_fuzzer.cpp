// Feeds arbitrary requests, any code and any payload, to the server's request
// handler over a small map store built once per process.
//
// Input layout: repeated [code low][code high][n][n payload bytes]; the last
// payload may be short. Each input is one connection: a fresh session and a
// fresh handler (so no reply cache carries over), stopping where the handler
// closes the connection. Besides the sanitizers, the target checks that every
// reply is a whole message answering its request (code + 100, or 121 for a
// password change and 241 for a saved map) and that no
// input ever adds or removes an element or a cell (attribute updates may
// change values).

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/MessageIO.h"
#include "serving/RequestHandler.h"
#include "storage/Database.h"
#include "storage/MapWriter.h"

#include <QCoreApplication>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>
#include <utility>

using namespace orbelan;
using namespace orbelan::server;

namespace {

constexpr std::int32_t kMap = 1;
constexpr std::int32_t kLines = 10;
constexpr std::int32_t kAreas = 11;
constexpr std::int32_t kHidden = 12;

void check(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

messages::LayerRecord layer(std::int32_t id, std::int16_t type, std::vector<messages::FieldRecord> fields)
{
    messages::LayerRecord record;
    record.id = id;
    record.name = "Capa " + std::to_string(id);
    record.type = type;
    record.gridDeltaX = 0.01f;
    record.gridDeltaY = 0.01f;
    record.fields = std::move(fields);
    return record;
}

// Map 1 with a line layer, a polygon layer with a theme and a point layer
// that user 2 may not see; user 1 draws on all of them, user 3 has no map.
void buildStore(Database& database)
{
    MapWriter writer(database);
    messages::MapDefinition header;
    header.name = "Prueba";
    writer.createMap(kMap, header);
    writer.addLayer(kMap, layer(kLines, 2, {{"NOMBRE", 202}, {"SENTIDO", 2}}));
    messages::LayerRecord areas = layer(kAreas, 4, {{"USO", 202}, {"AREA", 5}});
    areas.thematicField = "USO";
    areas.classes = {{"Comercial", "Comercial", 255, 0, 1, 0xFF, 0}};
    writer.addLayer(kMap, areas);
    writer.addLayer(kMap, layer(kHidden, 1, {}));
    writer.addElement(kLines, {1, {{-70.6512, -33.4498}, {-70.6489, -33.4502}}, {"Alameda", 1}});
    writer.addElement(kLines, {2, {{-70.6508, -33.4501}, {-70.6505, -33.4495}}, {"Matucana"}});
    writer.addElement(kAreas, {3, {{-70.66, -33.46}, {-70.64, -33.46}, {-70.64, -33.44}, {-70.66, -33.46}},
                               {"Comercial", 12.5}});
    writer.addElement(kHidden, {4, {{-70.65, -33.45}}, {}});
    for (const std::int32_t user : {1, 2, 3}) {
        writer.addUser(QStringLiteral("usuario %1").arg(user), user);
    }
    for (const std::int32_t user : {1, 2}) {
        writer.grantMap(user, kMap);
        writer.setMapLevel(user, kMap, static_cast<std::int16_t>(user == 1 ? 3 : 1));
    }
    writer.setLayerLevel(2, kHidden, 0);
}

// The store and the count of its elements and cells.
struct Store {
    QTemporaryDir folder;
    Database database{folder.filePath(QStringLiteral("fuzz.sqlite"))};
    QSqlQuery rows = database.prepare(
        QStringLiteral("SELECT (SELECT COUNT(*) FROM elements), (SELECT COUNT(*) FROM cells)"));
    std::pair<qlonglong, qlonglong> built;

    Store()
    {
        database.transaction([this] { buildStore(database); });
        built = counted();
    }

    std::pair<qlonglong, qlonglong> counted()
    {
        Database::runWith(rows, {});
        check(rows.next());
        const std::pair count{rows.value(0).toLongLong(), rows.value(1).toLongLong()};
        rows.finish();
        return count;
    }
};

Store* store = nullptr;

// The code of the reply to a request: code + 100, but for the password
// change and the saved map, whose answers follow their requests.
std::int16_t answerTo(std::int16_t request)
{
    if (request == codeNumber(CommandCode::ChangePassword) || request == codeNumber(CommandCode::SaveMap)) {
        return static_cast<std::int16_t>(request + 1);
    }
    return static_cast<std::int16_t>(request + 100);
}

void checkReply(std::int16_t request, const SharedReply& reply)
{
    check(reply != nullptr);
    DWBUffer message(*reply);
    check(message.getLength() == message.TamanoBuffer());
    check(codeNumber(messages::readHeader(message)) == answerTo(request));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QCoreApplication application(*argc, *argv);
    store = new Store;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    RequestHandler handler(store->database);
    SessionState session;
    for (std::size_t i = 0; i + 3 <= size;) {
        const auto code = static_cast<std::int16_t>(data[i] | data[i + 1] << 8);
        const std::size_t length = std::min<std::size_t>(data[i + 2], size - i - 3);
        DWBUffer message;
        message.CrearHeader();
        message.PutInteger(code);
        for (std::size_t k = 0; k < length; ++k) {
            message.PutByte(data[i + 3 + k]);
        }
        message.cerrarMensaje(0);
        DWBUffer received(message.bytes());
        const HandlerOutcome outcome = handler.handle(session, received);
        if (outcome.action == HandlerOutcome::Action::Close) {
            break;
        }
        if (outcome.action == HandlerOutcome::Action::Reply) {
            checkReply(code, outcome.reply);
        }
        i += length + 3;
    }
    check(store->counted() == store->built);
    return 0;
}
