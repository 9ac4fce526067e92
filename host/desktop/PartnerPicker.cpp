// Picks a partner.
#include "host/desktop/PartnerPicker.h"

#include <libintl.h>

#include "host/desktop/PartnerSource.h"

using namespace FX;

namespace Quillane::Desktop {

FXIMPLEMENT(PartnerPicker, RecordWindow, nullptr, 0)

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 360;

}  // namespace

PartnerPicker::PartnerPicker(FXWindow* ownerWindow, TarnwellDatabase& database, const Host::IconSet& icons)
    : RecordWindow(ownerWindow, dgettext("quillane", "Partner kiválasztása"), PICKER,
                   std::make_unique<PartnerSource>(database, icons), icons, kWidth, kHeight) {
  setMiniIcon(icons.get(Host::Icon::PARTNERS));
}

void PartnerPicker::recordPicked(int id) { picked = *static_cast<PartnerSource&>(getSource()).find(id); }

}  // namespace Quillane::Desktop
