#pragma once

#include "configuration/LegendLayout.h"

#include <QWidget>

#include <cstdint>
#include <vector>

class QAction;
class QGroupBox;
class QPalette;
class QScrollBar;
class QToolBar;

namespace orbelan {

class BoundingBox;
class MapDocument;
class layer;

// The floating legend of the map: one framed block (Frame1) per visible
// layer that has something in the view, each class of the layer a row of
// its symbol (picColor) and its value (lblThemeDesc). The tool bar
// (Toolbar1) copies the window to the clipboard ("Camara") and collapses it
// to the tool bar ("Minimizar") or expands it again ("Maximizar"); a legend
// taller than LegendLayout allows scrolls its blocks with VScroll1.
//
// Positions are kept in twips, as the layout rules state them, and turned
// into pixels at the window's dots per inch.
class dlgMapReferences : public QWidget {
    Q_OBJECT

public:
    explicit dlgMapReferences(QWidget* parent = nullptr);

    // Builds the whole legend anew for the map seen in the view (a
    // geographic box); symbols are drawn on the map's background colour.
    void build(const MapDocument& document, const BoundingBox& view, const QPalette& palette);

    // The blocks and class rows built by the last build, -1 when none.
    int blocksBuilt() const { return blocksBuilt_; }
    int rowsBuilt() const { return rowsBuilt_; }
    const LegendLayout& layout() const { return layout_; }
    // The window's height and the blocks' vertical offset, in twips.
    int heightInTwips() const;
    int blockTopInTwips(int block) const;

    // The tool bar's three buttons.
    void minimise();
    void maximise();
    void copyToClipboard();

private:
    void clearBlocks();
    void buildBlock(const layer& mapLayer, std::uint32_t background, const QPalette& palette);
    QGroupBox& nextFrame(const QString& caption);
    void addClassRow(QGroupBox& frame, int top, const QImage& symbol, const QString& text);
    void applyLayout();
    void scrollTo(int value);
    void placeBlocks();
    int toPixels(int twips) const;
    int toTwips(int pixels) const;
    int toolbarTwips() const;

    QToolBar* toolbar_;
    QAction* minimiseAction_;
    QAction* maximiseAction_;
    QWidget* blocks_;
    QScrollBar* scrollBar_;
    // Element 0 is the template frame, kept hidden when no block is built.
    std::vector<QGroupBox*> frames_;
    // Each built block's top below the tool bar, before scrolling.
    std::vector<int> frameTops_;
    int blocksBuilt_ = -1;
    int rowsBuilt_ = -1;
    int nextTop_ = 0;
    LegendLayout layout_;
    int lastScroll_ = 0;
};

} // namespace orbelan
