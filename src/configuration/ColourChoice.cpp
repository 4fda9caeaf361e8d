#include "configuration/ColourChoice.h"

#include "configuration/dlgColor.h"

#include "render/OleColor.h"
#include "ui/UiServices.h"

#include <QLineEdit>

namespace orbelan {

std::optional<std::int32_t> chooseColour(UiServices& ui, QWidget* parent, std::int32_t current)
{
    dlgColor dialog(olecolor::toQColor(static_cast<std::uint32_t>(current), QPalette()), parent);
    ui.execDialog(dialog);
    if (dialog.cancelled()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(olecolor::fromQColor(dialog.colour()));
}

void paintSwatch(QWidget& swatch, std::int32_t colour)
{
    const QColor shown = olecolor::toQColor(static_cast<std::uint32_t>(colour), QPalette());
    swatch.setStyleSheet(QStringLiteral("background-color: %1; color: %2")
                             .arg(shown.name(), shown.lightness() < 128 ? QStringLiteral("white")
                                                                        : QStringLiteral("black")));
    if (auto* box = qobject_cast<QLineEdit*>(&swatch)) {
        box->setText(shown.name());
    }
}

} // namespace orbelan
