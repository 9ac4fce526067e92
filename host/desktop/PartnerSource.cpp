// The company's partners for list windows.
#include "host/desktop/PartnerSource.h"

#include <libintl.h>

#include <algorithm>

#include "host/desktop/PartnerDialog.h"
#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

constexpr int kNameWidth = 220;
constexpr int kAddressWidth = 240;
constexpr int kTaxNumberWidth = 120;

}  // namespace

void PartnerSource::addColumns(RecordList& list) const {
  list.addColumn(dgettext("quillane", "Név"), kNameWidth);
  list.addColumn(dgettext("quillane", "Cím"), kAddressWidth);
  list.addColumn(dgettext("quillane", "Adószám"), kTaxNumberWidth);
  list.setStretchColumn(1);
}

bool PartnerSource::read(std::vector<RecordList::Row>& rows, FXString& error) {
  if (!Host::PartnerStore(database).list(partners, error)) return false;
  rows.clear();
  for (const Host::Partner& partner : partners)
    rows.push_back({partner.id, {partner.name, partner.address, partner.taxNumber}, {}});
  return true;
}

FXString PartnerSource::describeCount(int shown, int all) const {
  if (shown == all) return FXStringFormat(dgettext("quillane", "%d partner"), all);
  return FXStringFormat(dgettext("quillane", "%d partner a(z) %d közül"), shown, all);
}

int PartnerSource::add(FXWindow* owner, const FXString& name) {
  Host::Partner partner;
  partner.name = name;
  PartnerDialog dialog(owner, database, icons, partner);
  return dialog.execute() ? dialog.getPartner().id : 0;
}

bool PartnerSource::change(FXWindow* owner, int id) {
  Host::Partner partner;
  FXString error;
  if (!Host::PartnerStore(database).load(id, partner, error)) {
    FXMessageBox::error(owner, MBOX_OK, dgettext("quillane", "Partner"), "%s", Host::messageText(error).text());
    return false;
  }
  return PartnerDialog(owner, database, icons, partner).execute() != 0;
}

const Host::Partner* PartnerSource::find(int id) const {
  const auto found =
      std::find_if(partners.begin(), partners.end(), [id](const Host::Partner& partner) { return partner.id == id; });
  return found == partners.end() ? nullptr : &*found;
}

}  // namespace Quillane::Desktop
