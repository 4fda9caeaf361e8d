#pragma once

#include "query/ElementList.h"

#include <QDialog>

#include <cstdint>

class QLabel;
class QListWidget;
class QPushButton;

namespace orbelan {

class layer;
class QueryMap;

// The list of elements lstElements: choosing one highlights it on the map
// when it is loaded (lblServer tells when it is not). In "FIND" mode
// cmdResaltarElemento zooms to the chosen element; in "VIEW" mode it ends
// the dialog in mode "EDIT" so that the caller opens the element for
// editing. cmdViewInfo shows the element's information; cmdCancel ends the
// dialog in mode "CLOSE".
class dlgViewConditionElements : public QDialog {
    Q_OBJECT

public:
    // target is the list's layer, or null when the map has no such layer.
    dlgViewConditionElements(ElementList list, const layer* target, QueryMap& map, QWidget* parent = nullptr);

    const QString& mode() const { return list_.mode; }
    // The element chosen last; 0 before any.
    std::int32_t chosenId() const { return chosenId_; }

public slots:
    void reject() override;

private:
    bool finding() const { return list_.mode == QLatin1String("FIND"); }
    bool editable() const;
    void buildLayout();
    void choose(int row);
    void highlightOrEdit();

    ElementList list_;
    const layer* target_;
    QueryMap& map_;
    std::int32_t chosenId_ = 0;
    QListWidget* elements_;
    QLabel* serverLabel_;
    QPushButton* highlightButton_;
    QPushButton* infoButton_;
};

} // namespace orbelan
