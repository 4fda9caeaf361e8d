#pragma once

#include <cstdint>
#include <optional>

class QWidget;

namespace orbelan {

class UiServices;

// Asks for a colour in the dialog dlgColor, starting at `current`
// (an OLE colour); nothing when the dialog is cancelled.
std::optional<std::int32_t> chooseColour(UiServices& ui, QWidget* parent, std::int32_t current);

// The swatch's look: filled with the colour, its text "#rrggbb".
void paintSwatch(QWidget& swatch, std::int32_t colour);

} // namespace orbelan
