#pragma once

#include <fx.h>

#include "host/desktop/RecordList.h"

namespace Quillane::Desktop {

/// The field in which a list is searched. The keys that move in a list (up, down, by pages) and Return go to the list
/// while the cursor stays in the field; Escape empties a field that is not empty.
///
/// The target gets SEL_CHANGED with the text as data at every change.
class FilterField : public FX::FXTextField {
  FXDECLARE(FilterField)
 public:
  /// The list and the target are not owned; without a target the field sets the list's filter by itself.
  FilterField(FX::FXComposite* container, RecordList* searchedList, FX::FXObject* fieldTarget = nullptr,
              FX::FXSelector selector = 0, FX::FXuint opts = FX::TEXTFIELD_NORMAL | FX::LAYOUT_FILL_X);

  /// For a list that is made after the field.
  void setList(RecordList* searchedList);

  /// Empties the field and tells the target.
  void clearFilter();

  long onKeyPress(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  FilterField(const FilterField&) = delete;
  FilterField& operator=(const FilterField&) = delete;

 protected:
  FilterField() = default;

 private:
  RecordList* searched = nullptr;  // not owned
};

}  // namespace Quillane::Desktop
