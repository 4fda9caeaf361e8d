#include "render/OleColor.h"

#include <array>

namespace orbelan::olecolor {

namespace {

// The palette role standing for each system colour number.
constexpr std::array<QPalette::ColorRole, 25> kSystemRoles = {
    QPalette::Window,          // 0 scroll bar
    QPalette::Window,          // 1 desktop
    QPalette::Highlight,       // 2 active caption
    QPalette::Window,          // 3 inactive caption
    QPalette::Window,          // 4 menu bar
    QPalette::Base,            // 5 window background
    QPalette::WindowText,      // 6 window frame
    QPalette::WindowText,      // 7 menu text
    QPalette::Text,            // 8 window text
    QPalette::HighlightedText, // 9 caption text
    QPalette::Window,          // 10 active border
    QPalette::Window,          // 11 inactive border
    QPalette::Window,          // 12 application workspace
    QPalette::Highlight,       // 13 highlight
    QPalette::HighlightedText, // 14 highlighted text
    QPalette::Button,          // 15 button face
    QPalette::Dark,            // 16 button shadow
    QPalette::PlaceholderText, // 17 grey text
    QPalette::ButtonText,      // 18 button text
    QPalette::WindowText,      // 19 inactive caption text
    QPalette::Light,           // 20 button highlight
    QPalette::Shadow,          // 21 3-D dark shadow
    QPalette::Midlight,        // 22 3-D light
    QPalette::ToolTipText,     // 23 tooltip text
    QPalette::ToolTipBase,     // 24 tooltip background
};

} // namespace

QColor toQColor(std::uint32_t color, const QPalette& palette)
{
    if (color & kSystemColor) {
        const std::uint32_t index = color & ~kSystemColor;
        return palette.color(index < kSystemRoles.size() ? kSystemRoles[index] : QPalette::Window);
    }
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

std::uint32_t fromQColor(const QColor& color)
{
    const QColor rgb = color.toRgb();
    return static_cast<std::uint32_t>(rgb.red()) | (static_cast<std::uint32_t>(rgb.green()) << 8) |
           (static_cast<std::uint32_t>(rgb.blue()) << 16);
}

} // namespace orbelan::olecolor
