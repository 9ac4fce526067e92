// The toolkit's tab book takes the Tab key for going to the next page, and lets nobody into a page by it.
#include "host/windows/TabPages.h"

using namespace FX;

namespace Quillane::Host {

FXDEFMAP(TabPages)
TabPagesMap[] = {
    FXMAPFUNC(SEL_FOCUS_NEXT, 0, TabPages::onFocusOn),  FXMAPFUNC(SEL_FOCUS_DOWN, 0, TabPages::onFocusOn),
    FXMAPFUNC(SEL_FOCUS_RIGHT, 0, TabPages::onFocusOn), FXMAPFUNC(SEL_FOCUS_PREV, 0, TabPages::onFocusBack),
    FXMAPFUNC(SEL_FOCUS_UP, 0, TabPages::onFocusBack),  FXMAPFUNC(SEL_FOCUS_LEFT, 0, TabPages::onFocusBack),
};
static_assert(ARRAYNUMBER(TabPagesMap) == 6);

FXIMPLEMENT(TabPages, FXTabBook, TabPagesMap, ARRAYNUMBER(TabPagesMap))

namespace {

long focusSelf(FXWindow* window, void* ptr) {
  return window ? window->handle(window->getParent(), FXSEL(SEL_FOCUS_SELF, 0), ptr) : 0;
}

// Into the page, to its first or last widget.
long enter(FXWindow* page, FXuint direction, void* ptr) {
  if (!page) return 0;
  return focusSelf(page, ptr) || page->handle(page->getParent(), FXSEL(direction, 0), ptr);
}

}  // namespace

TabPages::TabPages(FXComposite* container, FXObject* receiver, FXSelector sel, FXuint opts)
    : FXTabBook(container, receiver, sel, opts, 0, 0, 0, 0, 0, 0, 0, 0) {}

long TabPages::onFocusOn(FXObject* sender, FXSelector selector, void* ptr) {
  FXWindow* focused = getFocus();
  if (!focused) return focusSelf(getShownTab(), ptr);
  if (!isTab(focused)) return 0;
  if (FXSELTYPE(selector) == SEL_FOCUS_RIGHT) return FXTabBook::onFocusNext(sender, selector, ptr);
  return enter(focused->getNext(), SEL_FOCUS_NEXT, ptr);
}

long TabPages::onFocusBack(FXObject* sender, FXSelector selector, void* ptr) {
  FXWindow* focused = getFocus();
  if (!focused) {
    FXWindow* tab = getShownTab();
    return tab && (enter(tab->getNext(), SEL_FOCUS_PREV, ptr) || focusSelf(tab, ptr));
  }
  const bool isLeft = FXSELTYPE(selector) == SEL_FOCUS_LEFT;
  if (isTab(focused)) return isLeft ? FXTabBook::onFocusPrev(sender, selector, ptr) : 0;
  return isLeft ? 0 : focusSelf(focused->getPrev(), ptr);
}

}  // namespace Quillane::Host
