#pragma once

#include "ui/OkCancelDialog.h"

class QGroupBox;
class QLineEdit;

namespace orbelan {

// Asks for a point at a distance along and across a segment of the map.
// cmdSelectSegment closes the form for the segment to be picked on the map
// (state 1, the form's result kSelectSegment); shown again, it takes the
// distances in frDistances, which OKButton confirms (state 2).
class dlgSmartEndPoint : public OkCancelDialog {
    Q_OBJECT

public:
    enum State { NothingChosen = 0, SegmentToPick = 1, DistancesConfirmed = 2 };
    static constexpr int kSelectSegment = 2;

    explicit dlgSmartEndPoint(QWidget* parent = nullptr);

    State state() const { return state_; }
    QString longitudinalText() const;
    QString transversalText() const;

protected:
    void confirm() override { state_ = DistancesConfirmed; }

private:
    void selectSegment();

    QGroupBox* frDistances_;
    QLineEdit* txtLongitudinal_;
    QLineEdit* txtTransversal_;
    State state_ = NothingChosen;
};

} // namespace orbelan
