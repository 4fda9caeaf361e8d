#include "ui/dlgSmartEndPoint.h"

#include "ui/DecimalBox.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace orbelan {

dlgSmartEndPoint::dlgSmartEndPoint(QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgSmartEndPoint"), QStringLiteral("Smart Endpoint"), parent),
      frDistances_(new QGroupBox(QStringLiteral("Distances"), this)),
      txtLongitudinal_(decimalBox(QStringLiteral("txtLongitudinal"), frDistances_)),
      txtTransversal_(decimalBox(QStringLiteral("txtTransversal"), frDistances_))
{
    frDistances_->setObjectName(QStringLiteral("frDistances"));
    auto* distances = new QFormLayout(frDistances_);
    distances->addRow(QStringLiteral("Longitudinal"), txtLongitudinal_);
    distances->addRow(QStringLiteral("Transversal"), txtTransversal_);
    frDistances_->setEnabled(false);

    auto* cmdSelectSegment = new QPushButton(QStringLiteral("Select Segment"), this);
    cmdSelectSegment->setObjectName(QStringLiteral("cmdSelectSegment"));
    connect(cmdSelectSegment, &QPushButton::clicked, this, &dlgSmartEndPoint::selectSegment);
    okButton().setEnabled(false);
    okButton().setDefault(false);
    cmdSelectSegment->setDefault(true);

    fields().addWidget(cmdSelectSegment);
    fields().addWidget(frDistances_);
}

QString dlgSmartEndPoint::longitudinalText() const { return txtLongitudinal_->text(); }
QString dlgSmartEndPoint::transversalText() const { return txtTransversal_->text(); }

void dlgSmartEndPoint::selectSegment()
{
    state_ = SegmentToPick;
    frDistances_->setEnabled(true);
    okButton().setEnabled(true);
    okButton().setDefault(true);
    done(kSelectSegment);
}

} // namespace orbelan
