#pragma once

class QWidget;

namespace orbelan {

class UiServices;

// Tells the user that the map server cannot be reached: the critical box
// both controls show when their connection cannot be opened.
void showConnectionFailure(UiServices& ui, QWidget* parent);

} // namespace orbelan
