#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane::Host {

/// A tab book in which the Tab key goes where the eye goes: from the shown page's tab into the page, from there on to
/// what follows the book, and back the same way. Only the arrows change the page, on its tab.
class QUILLANE_HOST_API TabPages : public FX::FXTabBook {
  FXDECLARE(TabPages)
 public:
  TabPages(FX::FXComposite* container, FX::FXObject* receiver, FX::FXSelector sel, FX::FXuint opts);

  /// Each of three directions: frames tell the Tab key as an arrow's, by how their widgets stand.
  long onFocusOn(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onFocusBack(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  TabPages(const TabPages&) = delete;
  TabPages& operator=(const TabPages&) = delete;

 protected:
  TabPages() = default;

 private:
  bool isTab(const FX::FXWindow* child) const { return indexOfChild(child) % 2 == 0; }
  FX::FXWindow* getShownTab() const { return childAtIndex(2 * getCurrent()); }
};

}  // namespace Quillane::Host
