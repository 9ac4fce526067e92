// The company's partners.
#include "host/desktop/PartnerListWindow.h"

#include <libintl.h>

#include "host/desktop/PartnerSource.h"

using namespace FX;

namespace Quillane::Desktop {

FXIMPLEMENT(PartnerListWindow, RecordWindow, nullptr, 0)

namespace {

constexpr int kWidth = 660;
constexpr int kHeight = 420;

}  // namespace

PartnerListWindow::PartnerListWindow(FXWindow* ownerWindow, TarnwellDatabase& database, const Host::IconSet& icons)
    : RecordWindow(ownerWindow, dgettext("quillane", "Partnerek"), LIST_WINDOW,
                   std::make_unique<PartnerSource>(database, icons), icons, kWidth, kHeight) {
  setMiniIcon(icons.get(Host::Icon::PARTNERS));
}

}  // namespace Quillane::Desktop
