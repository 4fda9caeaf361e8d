#pragma once

namespace orbelan {

// The pop-up menus a right click can offer: the end of a point entry
// (mnuEnd), the selection's choices (mnuSelect) and the vertex operations
// (mnuEditGeo).
enum class PopupMenu { None, End, Select, EditGeography };

} // namespace orbelan
