// The toolkit's row of tabs would make each of them the current one on the Tab key's way.
#include "host/windows/TabStrip.h"

using namespace FX;

namespace Quillane::Host {

FXDEFMAP(TabStrip)
TabStripMap[] = {
    FXMAPFUNC(SEL_FOCUS_NEXT, 0, TabStrip::onFocusAlong), FXMAPFUNC(SEL_FOCUS_PREV, 0, TabStrip::onFocusAlong),
    FXMAPFUNC(SEL_FOCUS_DOWN, 0, TabStrip::onFocusAlong), FXMAPFUNC(SEL_FOCUS_UP, 0, TabStrip::onFocusAlong),
    FXMAPFUNC(SEL_FOCUS_LEFT, 0, TabStrip::onFocusLeft),  FXMAPFUNC(SEL_FOCUS_RIGHT, 0, TabStrip::onFocusRight),
};
static_assert(ARRAYNUMBER(TabStripMap) == 6);

FXIMPLEMENT(TabStrip, FXTabBar, TabStripMap, ARRAYNUMBER(TabStripMap))

TabStrip::TabStrip(FXComposite* container, FXObject* receiver, FXSelector sel, FXuint opts)
    : FXTabBar(container, receiver, sel, opts, 0, 0, 0, 0, 0, 0, 0, 0) {}

long TabStrip::onFocusAlong(FXObject*, FXSelector, void* ptr) {
  FXWindow* tab = getFocus() ? nullptr : childAtIndex(getCurrent());
  return tab ? tab->handle(this, FXSEL(SEL_FOCUS_SELF, 0), ptr) : 0;
}

// The toolkit's own ways to the next and the previous tab.
long TabStrip::onFocusLeft(FXObject* sender, FXSelector selector, void* ptr) {
  return getFocus() ? FXTabBar::onFocusPrev(sender, selector, ptr) : onFocusAlong(sender, selector, ptr);
}

long TabStrip::onFocusRight(FXObject* sender, FXSelector selector, void* ptr) {
  return getFocus() ? FXTabBar::onFocusNext(sender, selector, ptr) : onFocusAlong(sender, selector, ptr);
}

}  // namespace Quillane::Host
