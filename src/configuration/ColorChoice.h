#pragma once

#include <QColor>

#include <optional>

class QWidget;

namespace orbelan {

class UiServices;

// Opens the colour dialog (dlgColor) with a colour chosen in advance and
// the full dialog shown; the colour confirmed with OKButton, nothing when
// it was cancelled. The colour's text box is txtColor ("#RRGGBB"), so a
// script can choose one.
std::optional<QColor> chooseColor(UiServices& ui, const QColor& initial, QWidget* parent);

} // namespace orbelan
