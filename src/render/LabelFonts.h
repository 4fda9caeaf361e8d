#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QRawFont>
#include <QString>

#include <array>
#include <optional>

namespace orbelan {

// The fonts map labels are written in: "Arial" at a character height of 140
// twips (7 points) whatever the zoom, weight 700 for bold labels and 400
// for the others. On Linux "Arial" resolves to Liberation Sans, its metric
// twin. Labels turn by the painter's transformation, not by the font, so
// one font per weight serves every angle; each is made on first use and
// kept for the life of the cache, which a redraw makes anew.
class LabelFonts {
public:
    struct Face {
        QFont font;
        QRawFont raw;
        // From the top of the character cell to the baseline, and the
        // cell's whole height, in pixels.
        qreal ascent = 0;
        qreal height = 0;

        // The text's glyphs placed from the top-left corner of its cell, and
        // its width. Label texts travel as Windows-1252, where every
        // character is one glyph, so they are laid out glyph by glyph
        // without shaping, and without kerning, as the platform's plain text
        // output does.
        QGlyphRun layout(const QString& text, qreal& advance) const;
    };

    static constexpr const char* kFamily = "Arial";
    static constexpr double kHeightTwips = 140;

    explicit LabelFonts(int logicalDpiY);

    const Face& face(bool bold);
    // How many fonts were made so far.
    int made() const;

    // The character height in whole pixels at the given dots per inch.
    static int pixelSize(int logicalDpiY);
    // The turn of a label in degrees: the angle in whole tenths of a degree,
    // rounded down. Not a number, or beyond a whole turn either way, is kept
    // within one turn.
    static double turn(double angle);

private:
    int pixelSize_;
    std::array<std::optional<Face>, 2> faces_;
};

} // namespace orbelan
