#pragma once

#include "ui/UiServices.h"

namespace orbelan {

// Opens real message boxes and runs dialogs modally: what an application
// with a person in front of it gets.
class WidgetUiServices : public UiServices {
public:
    MessageAnswer messageBox(QWidget* parent, const QString& text, MessageButtons buttons,
                             MessageIcon icon, const QString& caption) override;
    int execDialog(QDialog& dialog) override;
    void popupMenu(QMenu& menu, const QPoint& globalPosition) override;
};

} // namespace orbelan
