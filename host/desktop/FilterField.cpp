// The field in which a list is searched.
#include "host/desktop/FilterField.h"

#include <fxkeys.h>

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(FilterField)
kFilterFieldMap[] = {
    FXMAPFUNC(SEL_KEYPRESS, 0, FilterField::onKeyPress),
};
static_assert(ARRAYNUMBER(kFilterFieldMap) == 1);

FXIMPLEMENT(FilterField, FXTextField, kFilterFieldMap, ARRAYNUMBER(kFilterFieldMap))

namespace {

constexpr FXint kColumns = 20;

}  // namespace

FilterField::FilterField(FXComposite* container, RecordList* searchedList, FXObject* fieldTarget, FXSelector selector,
                         FXuint opts)
    : FXTextField(container, kColumns, fieldTarget, selector, opts) {
  setList(searchedList);
}

void FilterField::setList(RecordList* searchedList) {
  searched = searchedList;
  if (target || !searched) return;
  setTarget(searched);
  setSelector(RecordList::ID_FILTER);
}

void FilterField::clearFilter() {
  setText("");
  if (target) target->tryHandle(this, FXSEL(SEL_CHANGED, message), const_cast<FXchar*>(""));
}

long FilterField::onKeyPress(FXObject* sender, FXSelector selector, void* ptr) {
  switch (static_cast<FXEvent*>(ptr)->code) {
    case KEY_Up:
    case KEY_KP_Up:
    case KEY_Down:
    case KEY_KP_Down:
    case KEY_Page_Up:
    case KEY_KP_Page_Up:
    case KEY_Page_Down:
    case KEY_KP_Page_Down:
    case KEY_Return:
    case KEY_KP_Enter:
      if (searched) return searched->getList()->handle(this, FXSEL(SEL_KEYPRESS, 0), ptr);
      break;
    case KEY_Escape:
      if (getText().empty()) break;
      clearFilter();
      return 1;
    default:
      break;
  }
  return FXTextField::onKeyPress(sender, selector, ptr);
}

}  // namespace Quillane::Desktop
