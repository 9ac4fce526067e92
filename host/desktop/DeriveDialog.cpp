// The choice of what is made from a document.
#include "host/desktop/DeriveDialog.h"

#include <libintl.h>

#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(DeriveDialog)
deriveDialogMap[] = {
    FXMAPFUNC(SEL_DOUBLECLICKED, DeriveDialog::ID_STATUS, DeriveDialog::onPicked),
};
static_assert(ARRAYNUMBER(deriveDialogMap) == 1, "as many handlers as above");

FXIMPLEMENT(DeriveDialog, FXDialogBox, deriveDialogMap, ARRAYNUMBER(deriveDialogMap))

namespace {

constexpr FXint kPadding = 10;
constexpr FXint kSpacing = 6;
constexpr FXint kVisibleChoices = 4;
constexpr FXint kListWidth = 340;
constexpr FXint kButtonPadding = 16;

}  // namespace

DeriveDialog::DeriveDialog(FXWindow* ownerWindow, const FXString& sourceName, const std::vector<Host::Status>& choices)
    : FXDialogBox(ownerWindow, dgettext("quillane", "Származtatás"), DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE, 0, 0, 0,
                  0, kPadding, kPadding, kPadding, kPadding, 0, 0) {
  auto* content = new FXVerticalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  new FXLabel(content,
              FXStringFormat(dgettext("quillane", "Ebből a bizonylatból készül az új:\n%s"),
                             Host::labelText(sourceName).text()),
              nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X);
  new FXLabel(content, dgettext("quillane", "&Mi készüljön belőle?"), nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X);
  createList(content, choices);
  new FXLabel(content, dgettext("quillane", "A tételek a még nyitott mennyiségekkel kerülnek rá."), nullptr,
              JUSTIFY_LEFT | LAYOUT_FILL_X);
  createButtons(content);
}

void DeriveDialog::createList(FXComposite* content, const std::vector<Host::Status>& choices) {
  auto* frame =
      new FXVerticalFrame(content, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0);
  list = new FXList(frame, this, ID_STATUS, LIST_BROWSESELECT | LAYOUT_FILL_X | LAYOUT_FILL_Y | LAYOUT_FIX_WIDTH, 0, 0,
                    kListWidth, 0);
  list->setNumVisible(kVisibleChoices);
  for (const Host::Status& choice : choices) {
    list->appendItem(choice.name);
    codes.push_back(choice.code);
  }
  list->setCurrentItem(0);
  list->selectItem(0);
}

void DeriveDialog::createButtons(FXComposite* content) {
  auto* buttons = new FXHorizontalFrame(content, LAYOUT_FILL_X | PACK_UNIFORM_WIDTH, 0, 0, 0, 0, 0, 0, 4, 0);
  new FXButton(buttons, dgettext("quillane", "Mé&gse"), nullptr, this, ID_CANCEL, BUTTON_NORMAL | LAYOUT_RIGHT, 0, 0, 0,
               0, kButtonPadding, kButtonPadding);
  new FXButton(buttons, dgettext("quillane", "&Elkészítés"), nullptr, this, ID_ACCEPT,
               BUTTON_NORMAL | BUTTON_INITIAL | BUTTON_DEFAULT | LAYOUT_RIGHT, 0, 0, 0, 0, kButtonPadding,
               kButtonPadding);
}

void DeriveDialog::create() {
  FXDialogBox::create();
  list->setFocus();
}

int DeriveDialog::getStatus() const { return codes[list->getCurrentItem()]; }

long DeriveDialog::onPicked(FXObject*, FXSelector, void*) {
  handle(this, FXSEL(SEL_COMMAND, ID_ACCEPT), nullptr);
  return 1;
}

}  // namespace Quillane::Desktop
