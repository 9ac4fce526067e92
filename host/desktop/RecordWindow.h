#pragma once

#include <fx.h>

#include <memory>

#include "host/desktop/FilterField.h"
#include "host/desktop/RecordList.h"
#include "host/desktop/RecordSource.h"
#include "host/windows/IconSet.h"

namespace Quillane::Desktop {

/// A list of records with a field to search it and buttons to add a record and to change one. As a list window it is
/// closed when the user is done; as a picker it ends with the record that the user picked or added. The records are
/// read anew whenever it is shown.
class RecordWindow : public FX::FXDialogBox {
  FXDECLARE_ABSTRACT(RecordWindow)
 public:
  enum { ID_LIST = FX::FXDialogBox::ID_LAST, ID_FILTER, ID_NEW, ID_CHANGE, ID_LAST };

  /// Reads the records before it is shown; what cannot be read is told in a message box.
  void show() override;
  void show(FX::FXuint placement) override;

  /// Stands over its owner unless it is told otherwise.
  FX::FXuint execute(FX::FXuint placement = FX::PLACEMENT_OWNER) override;

  /// Reads the records anew. False when they cannot be read; the user was told then.
  bool reload();

  FilterField* getFilterField() const { return filterField; }
  RecordList* getRecordList() const { return recordList; }

  /// How many records there are, or how many of them the filter lets through.
  FX::FXString getCountText() const { return countLabel->getText(); }

  long onPicked(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onFilter(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onNew(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onChange(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onUpdNeedsRecord(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onCmdAccept(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  RecordWindow(const RecordWindow&) = delete;
  RecordWindow& operator=(const RecordWindow&) = delete;

 protected:
  enum Purpose { LIST_WINDOW, PICKER };

  RecordWindow() = default;

  /// The icons are not owned and have to outlive the window.
  RecordWindow(FX::FXWindow* ownerWindow, const FX::FXString& windowTitle, Purpose windowPurpose,
               std::unique_ptr<RecordSource> recordSource, const Host::IconSet& icons, int initialWidth,
               int initialHeight);

  /// Called in a picker with the id of the record that was picked, before the window ends.
  virtual void recordPicked(int) {}

  /// Where a derived window puts what stands above the list; hidden until it is shown.
  FX::FXVerticalFrame* getHead() const { return head; }

  RecordSource& getSource() const { return *source; }

  /// The record that is the current one once the window is shown.
  void selectWhenShown(int id) { wantedId = id; }

 private:
  void createFilter(FX::FXComposite* content);
  void createList(FX::FXComposite* content);
  void createButtons(FX::FXComposite* content, const Host::IconSet& icons);
  void createButton(FX::FXComposite* row, const FX::FXString& text, FX::FXIcon* icon, FX::FXSelector selector,
                    FX::FXuint opts);
  void prepare();
  void takeKeyboard();
  void showCount();

  Purpose purpose = LIST_WINDOW;
  std::unique_ptr<RecordSource> source;
  FX::FXVerticalFrame* head = nullptr;  // owned by the window tree, as the following
  FilterField* filterField = nullptr;
  RecordList* recordList = nullptr;
  FX::FXLabel* countLabel = nullptr;
  int wantedId = 0;
};

}  // namespace Quillane::Desktop
