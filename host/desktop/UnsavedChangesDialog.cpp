// The question before changes are lost.
#include "host/desktop/UnsavedChangesDialog.h"

#include <libintl.h>

#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(UnsavedChangesDialog)
unsavedChangesDialogMap[] = {
    FXMAPFUNCS(SEL_COMMAND, UnsavedChangesDialog::ID_SAVE, UnsavedChangesDialog::ID_DISCARD,
               UnsavedChangesDialog::onAnswer),
};
static_assert(ARRAYNUMBER(unsavedChangesDialogMap) == 1);

FXIMPLEMENT(UnsavedChangesDialog, FXDialogBox, unsavedChangesDialogMap, ARRAYNUMBER(unsavedChangesDialogMap))

namespace {

constexpr FXint kPadding = 16;
constexpr FXint kSpacing = 8;
constexpr FXint kButtonPadding = 16;

}  // namespace

UnsavedChangesDialog::Answer UnsavedChangesDialog::ask(FXWindow* ownerWindow, const FXString& documentName) {
  UnsavedChangesDialog dialog(ownerWindow, documentName);
  switch (dialog.execute(PLACEMENT_OWNER)) {
    case SAVE:
      return SAVE;
    case DISCARD:
      return DISCARD;
    default:
      return STAY;
  }
}

UnsavedChangesDialog::UnsavedChangesDialog(FXWindow* ownerWindow, const FXString& documentName)
    : FXDialogBox(ownerWindow, dgettext("quillane", "Nem mentett módosítások"),
                  DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE, 0, 0, 0, 0, kPadding, kPadding, kPadding, kPadding,
                  kSpacing, kPadding) {
  new FXLabel(
      this,
      FXStringFormat(dgettext("quillane", "A bizonylat módosításai még nincsenek elmentve:\n%s\n\nElmenti őket?"),
                     Host::labelText(documentName).text()),
      nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X);
  createButtons();
}

void UnsavedChangesDialog::createButtons() {
  auto* buttons = new FXHorizontalFrame(this, LAYOUT_RIGHT | PACK_UNIFORM_WIDTH, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  const auto createButton = [this, buttons](const char* text, FXSelector command, FXuint hints) {
    return new FXButton(buttons, text, nullptr, this, command, BUTTON_NORMAL | BUTTON_DEFAULT | hints, 0, 0, 0, 0,
                        kButtonPadding, kButtonPadding);
  };
  createButton(dgettext("quillane", "&Mentés"), ID_SAVE, BUTTON_INITIAL)->setFocus();
  createButton(dgettext("quillane", "&Elvetés"), ID_DISCARD, 0);
  createButton(dgettext("quillane", "Mé&gse"), ID_CANCEL, 0);
}

long UnsavedChangesDialog::onAnswer(FXObject*, FXSelector selector, void*) {
  getApp()->stopModal(this, FXSELID(selector) == ID_SAVE ? SAVE : DISCARD);
  hide();
  return 1;
}

}  // namespace Quillane::Desktop
