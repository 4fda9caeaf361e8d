#include "session/StatusList.h"

#include "session/CellRequester.h"

#include <algorithm>

namespace orbelan {

StatusList::StatusList()
    : entries_{Entry{}}
{
}

void StatusList::change(std::int32_t layerId, std::uint8_t code, const QString& layerName)
{
    if (code >= Remove) {
        removeStep(layerId, code - Remove);
    } else if (code % 2 == 0) {
        countRequest(layerId, code, layerName);
    } else {
        startLoading(layerId, code, layerName);
    }
}

QString StatusList::text() const
{
    QStringList lines;
    for (const Entry& entry : entries_) {
        if (entry.code != Empty) {
            lines << textOf(entry);
        }
    }
    return lines.join('\n');
}

std::vector<std::pair<std::int32_t, std::uint8_t>> StatusList::steps() const
{
    std::vector<std::pair<std::int32_t, std::uint8_t>> shown;
    for (const Entry& entry : entries_) {
        if (entry.code != Empty) {
            shown.emplace_back(entry.layerId, entry.code);
        }
    }
    return shown;
}

bool StatusList::empty() const
{
    return entries_.size() == 1 && entries_.front().code == Empty;
}

void StatusList::removeStep(std::int32_t layerId, int code)
{
    const auto found = find(layerId, code);
    if (found != entries_.end()) {
        removeAt(static_cast<std::size_t>(found - entries_.begin()));
    }
}

void StatusList::countRequest(std::int32_t layerId, int code, const QString& layerName)
{
    const auto found = find(layerId, code);
    if (found != entries_.end()) {
        ++found->count;
    } else {
        append({layerName, layerId, static_cast<std::uint8_t>(code), 1});
    }
}

// The loading step answers one of the layer's requests, which is taken off,
// and shows itself.
void StatusList::startLoading(std::int32_t layerId, int code, const QString& layerName)
{
    const auto request = find(layerId, code - 1);
    if (request != entries_.end() && --request->count <= 0) {
        removeAt(static_cast<std::size_t>(request - entries_.begin()));
    }
    append({layerName, layerId, static_cast<std::uint8_t>(code), 1});
}

void StatusList::append(const Entry& entry)
{
    if (empty()) {
        entries_.front() = entry;
    } else {
        entries_.push_back(entry);
    }
}

// The last entry takes the place of the removed one; the last remaining
// entry gives way to the empty entry.
void StatusList::removeAt(std::size_t index)
{
    if (entries_.size() == 1) {
        entries_.front() = Entry{};
        return;
    }
    entries_[index] = entries_.back();
    entries_.pop_back();
}

std::vector<StatusList::Entry>::iterator StatusList::find(std::int32_t layerId, int code)
{
    return std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.layerId == layerId && entry.code == code;
    });
}

QString StatusList::textOf(const Entry& entry)
{
    const QString counted = QStringLiteral("%1 (%2)").arg(entry.layerName).arg(entry.count);
    switch (entry.code) {
    case RequestingMap: return QStringLiteral("Requesting Map.");
    case LoadingMap: return QStringLiteral("Loading Map.");
    case RequestingLayer: return QStringLiteral("Requesting Layer ") + counted;
    case LoadingLayer: return QStringLiteral("Loading Layer ") + entry.layerName;
    case RequestingLabels: return QStringLiteral("Requesting Labels ") + counted;
    case LoadingLabels: return QStringLiteral("Loading Labels.");
    case RequestingInformation: return QStringLiteral("Requesting Information.");
    case LoadingInformation: return QStringLiteral("Loading Information.");
    case RequestingTheme: return QStringLiteral("Requesting Theme Information ") + counted;
    case LoadingTheme: return QStringLiteral("Loading Theme Information.");
    case CellLimit:
        return QStringLiteral("Layer %1: only the first %2 cells of this view were requested.")
            .arg(entry.layerName)
            .arg(CellRequester::kCellsPerView);
    default: return {};
    }
}

} // namespace orbelan
