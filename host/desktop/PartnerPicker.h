#pragma once

#include "host/desktop/RecordWindow.h"
#include "host/document/PartnerStore.h"

class TarnwellDatabase;

namespace Quillane::Desktop {

/// Lets the user pick a partner by typing a part of the name, or add one on the spot.
class PartnerPicker : public RecordWindow {
  FXDECLARE(PartnerPicker)
 public:
  /// Neither the database nor the icons are owned; both have to outlive the window.
  PartnerPicker(FX::FXWindow* ownerWindow, TarnwellDatabase& database, const Host::IconSet& icons);

  /// Makes the partner the current one when the window is shown.
  void setCurrentId(int id) { selectWhenShown(id); }

  /// The partner that was picked; of use when execute returned true.
  const Host::Partner& getPartner() const { return picked; }

  PartnerPicker(const PartnerPicker&) = delete;
  PartnerPicker& operator=(const PartnerPicker&) = delete;

 protected:
  PartnerPicker() = default;

  void recordPicked(int id) override;

 private:
  Host::Partner picked;
};

}  // namespace Quillane::Desktop
