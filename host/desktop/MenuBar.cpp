// The toolkit's menu bar would keep the keyboard, without a use for it.
#include "host/desktop/MenuBar.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(MenuBar)
kMenuBarMap[] = {
    FXMAPFUNC(SEL_COMMAND, MenuBar::ID_UNPOST, MenuBar::onCmdUnpost),
};
static_assert(ARRAYNUMBER(kMenuBarMap) == 1);

FXIMPLEMENT(MenuBar, FXMenuBar, kMenuBarMap, ARRAYNUMBER(kMenuBarMap))

namespace {

/// The widget below top that has the keyboard, or would have it if top's window had it.
const FXWindow* findFocus(const FXWindow* top) {
  while (top->getFocus()) top = top->getFocus();
  return top;
}

/// The widget at this address; null when there is none any more.
FXWindow* findWindow(FXWindow* top, const FXWindow* wanted) {
  if (top == wanted) return top;
  for (FXWindow* child = top->getFirst(); child; child = child->getNext())
    if (FXWindow* found = findWindow(child, wanted)) return found;
  return nullptr;
}

}  // namespace

MenuBar::MenuBar(FXComposite* container) : FXMenuBar(container, LAYOUT_SIDE_TOP | LAYOUT_FILL_X) {}

void MenuBar::setFocus() {
  before = findFocus(getShell());
  FXMenuBar::setFocus();
}

long MenuBar::onCmdUnpost(FXObject* sender, FXSelector selector, void* ptr) {
  const long handled = FXMenuBar::onCmdUnpost(sender, selector, ptr);
  FXWindow* window = findWindow(getShell(), before);
  before = nullptr;
  if (window && window != getShell() && window->shown()) window->setFocus();
  return handled;
}

}  // namespace Quillane::Desktop
