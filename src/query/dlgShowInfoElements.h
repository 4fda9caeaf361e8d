#pragma once

#include "query/InfoGridEdits.h"

#include <QDialog>

#include <cstdint>
#include <memory>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace orbelan {

class FieldKeyFilter;
class InfoGridModel;
class QueryMap;
class TotalLastProxy;

// The information grid of a group of elements of one layer (grdInfoElements):
// one row per element, one column per field, a total row, sortable by any
// column. Choosing a row (making it current) highlights its element on the
// map. On a layer the user may edit, a double click on a cell chooses its
// column for a new value, typed into txtValue and applied to every row with
// cmdOK or abandoned with cmdClear; UndoUpdate takes the last apply back.
// cmdUpdate closes the dialog for the caller to send the changes; cmdCancel
// closes it with nothing sent.
class dlgShowInfoElements : public QDialog {
    Q_OBJECT

public:
    // The dialog owns the grid from now on.
    dlgShowInfoElements(std::unique_ptr<InfoGridModel> grid, std::int32_t layerId, bool editable, QueryMap& map,
                        QWidget* parent = nullptr);
    ~dlgShowInfoElements() override;

    std::int32_t layerId() const { return layerId_; }
    bool cancelled() const { return cancelled_; }
    bool selectionEnabled() const { return selectionEnabled_; }
    InfoGridModel& grid() const { return *grid_; }
    const InfoGridEdits& edits() const { return edits_; }

    // Only the row of buttons shows, so that the map behind is seen; the
    // button cmdShowWindow brings the whole dialog back.
    void compactLayout();
    void fullLayout();

public slots:
    // Escape: the button that cancels now (cmdCancel, or cmdClear while a
    // value is typed) is clicked.
    void reject() override;

private:
    QPushButton* addButton(const char* name, const QString& caption);
    void buildLayout();
    void connectButtons();
    void chooseRow(const QModelIndex& current);
    void chooseColumn(const QModelIndex& cell);
    void applyValue();
    void abandonValue();
    void undo();
    void update();
    void copy();
    void showElements();
    void zoomToElements();
    // The controls of a new value are usable, and own Enter and Escape,
    // while a value is typed.
    void setTyping(bool typing);
    int sourceColumn(const QModelIndex& index) const;

    InfoGridModel* grid_;
    InfoGridEdits edits_;
    TotalLastProxy* sorted_;
    std::int32_t layerId_;
    bool editable_;
    QueryMap& map_;
    bool cancelled_ = true;
    bool selectionEnabled_ = true;
    int editColumn_ = -1;
    QTableView* table_;
    QWidget* body_;
    QLabel* selectedCount_;
    QGroupBox* updateFrame_;
    QLabel* newValueLabel_;
    QLineEdit* valueBox_;
    FieldKeyFilter* valueFilter_ = nullptr;
    QPushButton* okButton_;
    QPushButton* clearButton_;
    QPushButton* updateButton_;
    QPushButton* cancelButton_;
    QPushButton* undoButton_;
    QPushButton* showWindowButton_;
    QPushButton* escapeButton_;
    int fullHeight_ = 0;
};

} // namespace orbelan
