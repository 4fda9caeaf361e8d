#pragma once

#include "ui/OkCancelDialog.h"

#include <QStringList>

namespace orbelan {

// Asks for the field of a layer that gives the direction of its elements:
// the list cboField holds the layer's field names in order.
class dlgSetDirections : public OkCancelDialog {
    Q_OBJECT

public:
    explicit dlgSetDirections(const QStringList& fieldNames, QWidget* parent = nullptr);
};

} // namespace orbelan
