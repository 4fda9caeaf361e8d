#pragma once

class QWidget;

namespace orbelan {

class MapDocument;
class UiServices;
class Viewport;

// Changes the map as a whole in the dialog dlgMapSetup: the drawing order
// of its layers, which of them are dropped from the map as loaded, their
// zoom ranges and user visibility, and the background colour.
class MapSetup {
public:
    MapSetup(MapDocument& document, const Viewport& view, UiServices& ui, QWidget* dialogParent);

    // Shows the dialog and applies what was confirmed; true when the map
    // changed and must be drawn again. Nothing happens while the map is
    // loading or when none is loaded.
    bool run();

private:
    MapDocument& document_;
    const Viewport& view_;
    UiServices& ui_;
    QWidget* dialogParent_;
};

} // namespace orbelan
