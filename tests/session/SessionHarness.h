#pragma once

#include "session/CellRequester.h"
#include "session/CommandDispatcher.h"
#include "model/BoundingBox.h"
#include "model/MapDocument.h"
#include "protocol/messages/MessageIO.h"
#include "protocol/RequestSender.h"
#include "ui/ScriptedUiServices.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/StatusList.h"
#include "view/Viewport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

// Requests as they would leave for the server, and the count of replies
// still awaited.
class RecordingSender : public orbelan::RequestSender {
public:
    void sendRequest(orbelan::CommandCode code, const std::function<void(orbelan::DWBUffer&)>& writePayload) override;
    void replyHandled() override { --pending; }
    std::int32_t pendingRequests() const override { return pending; }
    void stopSending() override { stopped = true; }

    // The requests sent since the last call, unread.
    std::vector<orbelan::DWBUffer> take();

    std::vector<orbelan::DWBUffer> sent;
    int pending = 0;
    bool stopped = false;
};

// The control as a session sees it: what the loaders ask of it is counted,
// and the status steps go into a real status list.
class RecordingEvents : public orbelan::SessionEvents {
public:
    void redrawMap() override { ++redraws; }
    void zoomToExtents() override { ++zooms; }
    void showBox(const orbelan::BoundingBox& box) override { shown.push_back(box); }
    void changeStatus(std::int32_t layerId, std::uint8_t step, const QString& layerName) override
    {
        status.change(layerId, step, layerName);
    }
    void definitionLoaded() override { ++loaded; }
    void informationArrived(std::int32_t layerId, std::int32_t elementId, const QStringList& fieldNames,
                            const QList<int>& fieldTypes, const QStringList& values) override
    {
        information.push_back({layerId, elementId, fieldNames, fieldTypes, values});
    }
    QWidget* dialogParent() override { return nullptr; }
    void clearHighlight() override { highlighted.clear(); }
    void highlightElement(std::int32_t, std::int32_t elementId) override { highlighted.push_back(elementId); }
    void zoomToElements(std::int32_t, const std::vector<std::int32_t>& elementIds) override
    {
        zoomedTo = elementIds;
    }
    void showElementInformation(std::int32_t, std::int32_t elementId) override { informed.push_back(elementId); }

    orbelan::StatusList status;
    int redraws = 0;
    int zooms = 0;
    int loaded = 0;
    std::vector<orbelan::BoundingBox> shown;
    struct Information {
        std::int32_t layer;
        std::int32_t element;
        QStringList names;
        QList<int> types;
        QStringList values;
    };
    std::vector<Information> information;
    std::vector<std::int32_t> highlighted;
    std::vector<std::int32_t> zoomedTo;
    std::vector<std::int32_t> informed;
};

// A session without widget or socket: the test plays the server by handing
// replies to the dispatcher, and reads the requests the loaders send.
class SessionHarness : public ::testing::Test {
protected:
    // Dispatches a whole message; a message abandoned halfway is counted.
    void deliver(const orbelan::DWBUffer& message);
    template <typename Message>
    void reply(const Message& message)
    {
        deliver(orbelan::messages::buildMessage(message));
    }
    // A message with the given code and payload bytes, its length closed.
    static orbelan::DWBUffer message(orbelan::CommandCode code, std::initializer_list<std::uint8_t> payload = {});
    // The first length bytes of a message, closed again as a whole message.
    static orbelan::DWBUffer cutShort(const orbelan::DWBUffer& message, std::int64_t length);
    static orbelan::CommandCode codeOf(orbelan::DWBUffer& request);
    // A street layer labelled by NOMBRE, with classes by USO (the default and
    // "Comercial") and directions in DIR, holding elements 41, 42 and 43.
    static void prepareStreets(orbelan::layer& streets);

    orbelan::Viewport view;
    orbelan::MapDocument document{view};
    RecordingSender requests;
    RecordingEvents events;
    orbelan::ScriptedUiServices ui;
    orbelan::CellRequester cells{requests, document, view, events};
    orbelan::SessionState state;
    orbelan::CommandDispatcher dispatch{orbelan::LoadContext{document, requests, cells, ui, events, state}};
    int abandoned = 0;
};
