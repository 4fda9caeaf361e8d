#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <utility>
#include <vector>

namespace orbelan {

// The steps in progress while a map and its parts arrive, one line each, as
// the status label shows them. Every change names a layer and a step code:
// even codes are requests (counted per layer), odd codes the loading that
// answers them, and a code of 100 or more removes the step of code - 100.
class StatusList {
public:
    enum Step : std::uint8_t {
        RequestingMap = 0,
        LoadingMap = 1,
        RequestingLayer = 10,
        LoadingLayer = 11,
        RequestingLabels = 20,
        LoadingLabels = 21,
        RequestingInformation = 30,
        LoadingInformation = 31,
        RequestingTheme = 40,
        LoadingTheme = 41,
        // Not a request: the view of a layer met the limit of cells one view
        // asks for. Shown once per layer, until a view no longer meets it.
        CellLimit = 50,
        // Added to a step code to remove that step.
        Remove = 100,
        // The one entry of an empty list; it shows nothing.
        Empty = 255,
    };

    StatusList();

    // Applies one change; layerName is the name of the layer the step is for.
    void change(std::int32_t layerId, std::uint8_t code, const QString& layerName = {});
    // The caption: one line per step, in list order.
    QString text() const;
    // The layer id and code of every step shown, in list order.
    std::vector<std::pair<std::int32_t, std::uint8_t>> steps() const;
    bool empty() const;

private:
    struct Entry {
        QString layerName;
        std::int32_t layerId = 0;
        std::uint8_t code = Empty;
        int count = 0;
    };

    void removeStep(std::int32_t layerId, int code);
    void countRequest(std::int32_t layerId, int code, const QString& layerName);
    void startLoading(std::int32_t layerId, int code, const QString& layerName);
    void append(const Entry& entry);
    void removeAt(std::size_t index);
    std::vector<Entry>::iterator find(std::int32_t layerId, int code);
    static QString textOf(const Entry& entry);

    std::vector<Entry> entries_;
};

} // namespace orbelan
