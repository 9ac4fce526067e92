#pragma once

#include <fx.h>

namespace Quillane::Desktop {

/// A menu bar that gives the keyboard back, once its menus are closed, to what had it before.
class MenuBar : public FX::FXMenuBar {
  FXDECLARE(MenuBar)
 public:
  /// Fills the width at the container's top.
  explicit MenuBar(FX::FXComposite* container);

  void setFocus() override;

  long onCmdUnpost(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  MenuBar(const MenuBar&) = delete;
  MenuBar& operator=(const MenuBar&) = delete;

 protected:
  MenuBar() = default;

 private:
  const FX::FXWindow* before = nullptr;  // what had the keyboard; may be gone
};

}  // namespace Quillane::Desktop
