#pragma once

#include "host/desktop/RecordWindow.h"

class TarnwellDatabase;

namespace Quillane::Desktop {

/// The company's partners: to look at, to add and to change. Can be run modal or left open.
class PartnerListWindow : public RecordWindow {
  FXDECLARE(PartnerListWindow)
 public:
  /// Neither the database nor the icons are owned; both have to outlive the window.
  PartnerListWindow(FX::FXWindow* ownerWindow, TarnwellDatabase& database, const Host::IconSet& icons);

  PartnerListWindow(const PartnerListWindow&) = delete;
  PartnerListWindow& operator=(const PartnerListWindow&) = delete;

 protected:
  PartnerListWindow() = default;
};

}  // namespace Quillane::Desktop
