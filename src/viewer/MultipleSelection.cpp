#include "viewer/MultipleSelection.h"

#include "query/ConstrainedQuery.h"
#include "viewer/ViewerPrivate.h"
#include "viewer/tools/PolygonPickTool.h"
#include "viewer/tools/SelectionPolygonTool.h"

#include <QApplication>

namespace orbelan {

namespace {

const QString kCaption = QStringLiteral("Orbelan");

// The pointer shows busy while the selection is sent.
struct BusyPointer {
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

} // namespace

MultipleSelection::MultipleSelection(ViewerPrivate& viewer)
    : viewer_(viewer)
{
}

MultipleSelection::~MultipleSelection() = default;

void MultipleSelection::select(const SelectionPreset& preset)
{
    if (viewer_.document().busy)
        return;
    if (dialog_) {
        takePolygon();
    } else if (viewer_.document().Layers().count() > 0) {
        dialog_ = std::make_unique<dlgSelect>(viewer_.document().Layers(), preset, viewer_.ui(),
                                              viewer_.dialogParent());
    } else {
        return;
    }
    showDialog();
}

void MultipleSelection::resume()
{
    if (dialog_)
        select({});
    else
        viewer_.resetTool();
}

void MultipleSelection::takePolygon()
{
    const ToolState& tool = viewer_.tools().state();
    if (tool.current == PolygonPickTool::kNumber) {
        const std::vector<std::int32_t> picked = tool.picked.ids();
        if (picked.empty()) {
            viewer_.messageBox(QStringLiteral("No se pudo seleccionar ningún polígono, Inténtelo Nuevamente!"),
                               MessageButtons::OK, MessageIcon::Exclamation, kCaption);
        } else {
            dialog_->setPolygonElement(picked.front());
        }
    } else if (tool.current == SelectionPolygonTool::kNumber) {
        drawnPolygon_ = tool.vertices;
    }
    if (tool.current == PolygonPickTool::kNumber || tool.current == SelectionPolygonTool::kNumber)
        viewer_.resetTool();
}

void MultipleSelection::showDialog()
{
    viewer_.ui().execDialog(*dialog_);
    if (dialog_->cancelled()) {
        dialog_.reset();
        return;
    }
    switch (dialog_->action()) {
    case dlgSelect::PickPolygon:
        viewer_.selectTool(PolygonPickTool::kNumber, dialog_->sourceLayer());
        return;
    case dlgSelect::DrawPolygon:
        viewer_.selectTool(SelectionPolygonTool::kNumber, dialog_->targetLayer());
        return;
    case dlgSelect::Go:
        break;
    }
    const std::unique_ptr<dlgSelect> dialog = std::move(dialog_);
    {
        const BusyPointer busy;
        execute(*dialog);
    }
    viewer_.showToolStatus({});
}

void MultipleSelection::execute(const dlgSelect& dialog)
{
    layer* target = viewer_.document().Layers().Find(dialog.targetLayer());
    if (target == nullptr)
        return;
    std::vector<std::int32_t> candidates;
    if (dialog.polygonSource() != dlgSelect::NoPolygon) {
        std::vector<double> x;
        std::vector<double> y;
        for (const Vertex& vertex : polygonOf(dialog)) {
            x.push_back(vertex.X);
            y.push_back(vertex.Y);
        }
        candidates = target->SelectElementsInPolygon(x, y, false);
        if (candidates.empty()) {
            viewer_.messageBox(QStringLiteral("No elements inside polygon"), MessageButtons::OK,
                               MessageIcon::Information, kCaption);
            return;
        }
    }
    viewer_.session().queryElements(constrainedQuery(*target, std::move(candidates), dialog.constraints()), -1);
}

std::vector<Vertex> MultipleSelection::polygonOf(const dlgSelect& dialog) const
{
    if (dialog.polygonSource() == dlgSelect::DrawnPolygon)
        return drawnPolygon_;
    const layer* source = viewer_.document().Layers().Find(dialog.sourceLayer());
    const Entidad* element = source ? source->Entidades.Find(dialog.polygonElement()) : nullptr;
    return element ? element->GetPoints() : std::vector<Vertex>{};
}

} // namespace orbelan
