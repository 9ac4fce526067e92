// The program's first question.
#include "host/desktop/WelcomeDialog.h"

#include <libintl.h>

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(WelcomeDialog)
welcomeDialogMap[] = {
    FXMAPFUNCS(SEL_COMMAND, WelcomeDialog::ID_SAMPLE, WelcomeDialog::ID_OPEN, WelcomeDialog::onChoice),
};
static_assert(ARRAYNUMBER(welcomeDialogMap) == 1);

FXIMPLEMENT(WelcomeDialog, FXDialogBox, welcomeDialogMap, ARRAYNUMBER(welcomeDialogMap))

namespace {

constexpr FXint kPadding = 10;
constexpr FXint kSpacing = 8;
constexpr FXint kButtonPadding = 16;
constexpr FXint kChoicePadding = 10;

}  // namespace

WelcomeDialog::WelcomeDialog(FXApp* application, const Host::IconSet& icons)
    : FXDialogBox(application, dgettext("quillane", "Üdvözli a Quillane"), DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE, 0,
                  0, 0, 0, kPadding, kPadding, kPadding, kPadding, kSpacing, kSpacing) {
  setIcon(icons.get(Host::Icon::APPLICATION_32));
  setMiniIcon(icons.get(Host::Icon::APPLICATION));
  createGreeting(icons);
  createChoices(icons);
  createButtons();
}

void WelcomeDialog::createGreeting(const Host::IconSet& icons) {
  FXHorizontalFrame* line = new FXHorizontalFrame(this, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, kSpacing, kPadding);
  new FXLabel(line, FXString::null, icons.get(Host::Icon::APPLICATION_32), LABEL_NORMAL | LAYOUT_CENTER_Y, 0, 0, 0, 0,
              0, 0, 0, 0);
  new FXLabel(line, dgettext("quillane", "Egy cég adatai egyetlen fájlban vannak.\nMelyikkel kezdjünk?"), nullptr,
              JUSTIFY_LEFT | LAYOUT_FILL_X | LAYOUT_CENTER_Y, 0, 0, 0, 0, 0, 0, 0, 0);
}

void WelcomeDialog::createChoices(const Host::IconSet& icons) {
  const auto createChoice = [this, &icons](const char* label, Host::Icon picture, FXSelector command, FXuint hints) {
    return new FXButton(this, label, icons.get(picture), this, command,
                        BUTTON_NORMAL | BUTTON_DEFAULT | ICON_BEFORE_TEXT | JUSTIFY_LEFT | LAYOUT_FILL_X | hints, 0, 0,
                        0, 0, kChoicePadding, kChoicePadding, kChoicePadding, kChoicePadding);
  };
  createChoice(
      dgettext("quillane", "  &Mintacég létrehozása\n  Egy kis magyar cég kész bizonylatokkal, ismerkedéshez."),
      Host::Icon::SEARCH, ID_SAMPLE, BUTTON_INITIAL)
      ->setFocus();
  createChoice(
      dgettext("quillane", "  &Új, üres cég létrehozása\n  A saját partnereivel, termékeivel és bizonylataival."),
      Host::Icon::NEW_DOCUMENT, ID_NEW, 0);
  createChoice(dgettext("quillane", "  Cégfájl m&egnyitása\n  Ha már van cégfájlja ezen a gépen."), Host::Icon::OPEN,
               ID_OPEN, 0);
}

void WelcomeDialog::createButtons() {
  FXHorizontalFrame* line = new FXHorizontalFrame(this, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, kSpacing, 0);
  new FXButton(line, dgettext("quillane", "&Kilépés"), nullptr, this, ID_CANCEL,
               BUTTON_NORMAL | BUTTON_DEFAULT | LAYOUT_RIGHT, 0, 0, 0, 0, kButtonPadding, kButtonPadding);
}

long WelcomeDialog::onChoice(FXObject*, FXSelector selector, void*) {
  getApp()->stopModal(this, SAMPLE_COMPANY + static_cast<FXint>(FXSELID(selector) - ID_SAMPLE));
  hide();
  return 1;
}

}  // namespace Quillane::Desktop
