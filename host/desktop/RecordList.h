#pragma once

#include <fx.h>

#include <set>
#include <vector>

namespace Quillane::Desktop {

/// A list of records in columns. A click on a column's header sorts by it, another one the other way round; so does
/// Ctrl with the column's digit. What is selected, the order and the filter last when the rows are set anew.
///
/// The target gets, with the record's id as data (0 for none):
///  - SEL_COMMAND when the user picks a record, by a double click or Return;
///  - SEL_CHANGED when another record became the current one.
class RecordList : public FX::FXVerticalFrame {
  FXDECLARE(RecordList)
 public:
  enum { ID_LIST = FX::FXVerticalFrame::ID_LAST, ID_HEADER, ID_FILTER, ID_LAST };

  /// How a column's texts stand, and with that how it is sorted.
  enum Alignment {
    LEFT,  ///< By the alphabet, capital and small letters and accents aside.
    RIGHT  ///< By size: the sort keys are numbers in plain notation.
  };

  /// A record: its id, which is not 0, and a text for each column.
  struct Row {
    int id = 0;
    std::vector<FX::FXString> texts;
    std::vector<FX::FXString> sortKeys;  // what is sorted by in place of the texts; empty when they are
  };

  /// The target is not owned. opts are the frame's layout hints.
  RecordList(FX::FXComposite* container, FX::FXObject* listTarget, FX::FXSelector selector,
             FX::FXuint opts = FX::LAYOUT_FILL_X | FX::LAYOUT_FILL_Y);

  /// Adds a column with this width in pixels. Columns come before rows.
  void addColumn(const FX::FXString& title, int columnWidth, Alignment alignment = LEFT);

  /// The column that gets what room the others leave, but never less than its own width.
  void setStretchColumn(int column) { stretchColumn = column; }

  /// Lets several records be selected at a time, with Shift and Ctrl as usual.
  void allowSeveral();

  /// Shows these rows in place of the earlier ones.
  void setRows(std::vector<Row> rows);

  /// Sorts by this column; does nothing when there is no such column.
  void sortBy(int column, bool descendingOrder = false);
  int getSortColumn() const { return sortColumn; }
  bool isDescending() const { return descending; }

  /// Shows only the rows in one of whose texts this is found, capital and small letters aside. A blank text shows all.
  /// The message SEL_CHANGED, ID_FILTER with a text as data does the same.
  void setFilter(const FX::FXString& text);

  /// Shows only the rows with these ids (and that the filter lets through).
  void setVisibleIds(const std::set<int>& ids);

  /// Shows all rows again.
  void showAll();

  /// How many rows there are, and how many of them are shown.
  int getNumRows() const { return static_cast<int>(records.size()); }
  int getNumShown() const { return list->getNumItems(); }

  /// The id of the current record among those shown; 0 when there is none.
  int getCurrentId() const;

  /// Makes the record the current and the only selected one and scrolls it into view; false when it is not shown.
  bool setCurrentId(int id);

  /// The ids of the selected records in the order in which they are shown.
  std::vector<int> getSelectedIds() const;
  void selectAll();

  /// The ids of all records that are shown, in their order.
  std::vector<int> getShownIds() const;

  /// The focus goes to the list of rows.
  void setFocus() override;

  /// Shares the room between the columns.
  void layout() override;

  /// The list of rows; owned by the window tree.
  FX::FXIconList* getList() const { return list; }

  long onPicked(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onCurrentChanged(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onKeyPress(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onHeaderClicked(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onHeaderChanged(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onFilter(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  RecordList(const RecordList&) = delete;
  RecordList& operator=(const RecordList&) = delete;

 protected:
  RecordList() = default;

 private:
  struct Column {
    Alignment alignment;
    int width;
  };

  /// A row with what it is sorted and found by.
  struct Record {
    Row row;
    std::vector<FX::FXString> keys;
    FX::FXString searched;
  };

  Record makeRecord(Row row) const;
  void refresh();
  std::vector<const Record*> collectShown() const;
  bool isBefore(const Record& a, const Record& b) const;
  void fill(const std::vector<const Record*>& shown);
  void restoreSelection(const std::vector<int>& selected, int current);
  void showOrder();
  void moveBy(int rowCount);
  int idAt(int index) const;
  int findIndex(int id) const;
  bool isRow(int index) const { return 0 <= index && index < list->getNumItems(); }
  void tellCurrent();
  void fitStretchColumn();

  FX::FXIconList* list = nullptr;  // owned by the window tree
  std::vector<Column> columns;
  std::vector<Record> records;  // in the order in which they were set
  FX::FXString filter;          // folded; empty for none
  std::set<int> visibleIds;
  bool onlyVisibleIds = false;
  int sortColumn = 0;
  bool descending = false;
  int stretchColumn = -1;
  int toldId = 0;  // the current record that the target knows of
  bool passingFocusOn = false;
};

}  // namespace Quillane::Desktop
