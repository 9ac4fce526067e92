// Asks for the data of a partner.
#include "host/desktop/PartnerDialog.h"

#include <libintl.h>

#include "host/windows/FieldMatrix.h"
#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(PartnerDialog)
kPartnerDialogMap[] = {
    FXMAPFUNC(SEL_COMMAND, PartnerDialog::ID_ACCEPT, PartnerDialog::onCmdAccept),
};
static_assert(ARRAYNUMBER(kPartnerDialogMap) == 1);

FXIMPLEMENT(PartnerDialog, FXDialogBox, kPartnerDialogMap, ARRAYNUMBER(kPartnerDialogMap))

namespace {

constexpr FXint kMargin = 10;
constexpr int kNameCharacters = 40;
constexpr int kTaxNumberCharacters = 20;

const char* titleOf(const Host::Partner& partner) {
  return partner.id == 0 ? dgettext("quillane", "Új partner") : dgettext("quillane", "Partner módosítása");
}

}  // namespace

PartnerDialog::PartnerDialog(FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::IconSet& icons,
                             const Host::Partner& begun)
    : FXDialogBox(ownerWindow, titleOf(begun), DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE | DECOR_CLOSE, 0, 0, 0, 0,
                  kMargin, kMargin, kMargin, kMargin),
      database(&companyDatabase),
      partner(begun) {
  setMiniIcon(icons.get(Host::Icon::PARTNERS));
  Host::addDialogButtons(this, this);
  createFields();
}

void PartnerDialog::createFields() {
  auto* fields = new Host::FieldMatrix(this);
  nameField = fields->addTextField(dgettext("quillane", "&Név:"), kNameCharacters, partner.name);
  addressField = fields->addTextField(dgettext("quillane", "&Cím:"), kNameCharacters, partner.address);
  taxNumberField = fields->addShortField(dgettext("quillane", "&Adószám:"), kTaxNumberCharacters, partner.taxNumber);
}

void PartnerDialog::show(FXuint placement) {
  FXDialogBox::show(placement);
  if (nameField->id() != 0) nameField->setFocus();
}

FXuint PartnerDialog::execute(FXuint placement) { return FXDialogBox::execute(placement); }

long PartnerDialog::onCmdAccept(FXObject* sender, FXSelector selector, void* ptr) {
  Host::Partner typed = partner;
  typed.name = nameField->getText();
  typed.address = addressField->getText();
  typed.taxNumber = taxNumberField->getText();
  FXString error;
  if (!Host::PartnerStore(*database).save(typed, error)) {
    FXMessageBox::error(this, MBOX_OK, getTitle().text(), "%s", Host::messageText(error).text());
    if (id() != 0) setFocus();
    if (nameField->id() != 0) nameField->setFocus();
    return 1;
  }
  partner = typed;
  return FXDialogBox::onCmdAccept(sender, selector, ptr);
}

}  // namespace Quillane::Desktop
