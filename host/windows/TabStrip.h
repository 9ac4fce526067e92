#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane::Host {

/// A row of tabs without pages, of which the Tab key goes to the current one only and from there on. The arrows change
/// the current one.
class QUILLANE_HOST_API TabStrip : public FX::FXTabBar {
  FXDECLARE(TabStrip)
 public:
  TabStrip(FX::FXComposite* container, FX::FXObject* receiver, FX::FXSelector sel, FX::FXuint opts);

  /// Of all directions: frames tell the Tab key as an arrow's, by how their widgets stand.
  long onFocusAlong(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onFocusLeft(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onFocusRight(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  TabStrip(const TabStrip&) = delete;
  TabStrip& operator=(const TabStrip&) = delete;

 protected:
  TabStrip() = default;
};

}  // namespace Quillane::Host
