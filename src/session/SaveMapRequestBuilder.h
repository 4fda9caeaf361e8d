#pragma once

#include "protocol/messages/SaveMapRequest.h"

#include <cstdint>
#include <string>

namespace orbelan {

class MapDocument;
class RequestSender;

// Request 240 for the map as the document holds it now: the map's own
// fields, then each layer in the order of Layers with its settings, its
// first class as the default style and every class whose minimum is not
// "MICanyMIC". Each layer's class count is its number of classes minus one.
messages::SaveMapRequest buildSaveMapRequest(const MapDocument& document, std::int32_t user,
                                             const std::string& name);
// Sends that request, unless replies are still awaited (the map is still
// loading): then nothing is sent.
void requestSaveMap(RequestSender& requests, const MapDocument& document, std::int32_t user,
                    const std::string& name);

} // namespace orbelan
