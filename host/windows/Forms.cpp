// The windows in which records of the company are edited.
#include "plugin/contract/Forms.h"

using namespace FX;

namespace Quillane {

FXDEFMAP(DBForm)
DBFormMap[] = {
    FXMAPFUNC(SEL_CHORE, DBForm::ID_CHECK_ALL, DBForm::onCheckAll),
    FXMAPFUNC(SEL_TIMEOUT, DBForm::ID_CHECK_ALL, DBForm::onCheckAll),
};
static_assert(ARRAYNUMBER(DBFormMap) == 2);

FXIMPLEMENT_ABSTRACT(DBForm, FXMainWindow, DBFormMap, ARRAYNUMBER(DBFormMap))
FXIMPLEMENT_ABSTRACT(InvoiceForm, DBForm, nullptr, 0)

namespace {

// How long to wait before looking again whether a modal window was closed, in milliseconds: not felt by the user, and
// nothing to the processor. The toolkit tells nobody when a modal window goes.
constexpr FXuint kModalWait = 50;

}  // namespace

DBForm::DBForm(FXApp* application, const FXString& windowTitle, FXIcon* windowIcon, FXIcon* windowMiniIcon, FXuint opts,
               int x, int y, int w, int h)
    : FXMainWindow(application, windowTitle, windowIcon, windowMiniIcon, opts, x, y, w, h) {}

DBForm::~DBForm() {
  getApp()->removeChore(this, ID_CHECK_ALL);
  getApp()->removeTimeout(this, ID_CHECK_ALL);
}

void DBForm::proposeCheckAll() { getApp()->addChore(this, ID_CHECK_ALL); }

long DBForm::onCheckAll(FXObject*, FXSelector, void*) {
  // A modal window may have been opened by the event of a message, which the check would delete while it is at work.
  const FXWindow* modal = getApp()->getModalWindow();
  if (modal && modal != this) {
    getApp()->addTimeout(this, ID_CHECK_ALL, kModalWait);
    return 1;
  }
  getApp()->removeChore(this, ID_CHECK_ALL);
  getApp()->removeTimeout(this, ID_CHECK_ALL);
  checkAll();
  return 1;
}

}  // namespace Quillane
