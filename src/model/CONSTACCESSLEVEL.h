#pragma once

#include <cstdint>

namespace orbelan {

// The user's access to a layer. Editing attributes needs ALEditor or ALDraw;
// creating, erasing and reshaping geometry needs ALDraw.
enum CONSTACCESSLEVEL : std::int32_t {
    ALNoAccess = 0,
    ALViewer = 1,
    ALEditor = 2,
    ALDraw = 3,
};

} // namespace orbelan
