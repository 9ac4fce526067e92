// The question what to do when a table could not be saved.
#include "host/windows/SaveFailureDialog.h"

#include <libintl.h>

using namespace FX;

namespace Quillane {

FXIMPLEMENT(SaveFailureDialog, FXDialogBox, nullptr, 0)

namespace {

constexpr FXint kPadding = 16;
constexpr FXint kSpacing = 8;
constexpr FXint kButtonPadding = 16;
constexpr FXint kVisibleLines = 6;
constexpr FXint kVisibleColumns = 70;

}  // namespace

SaveFailureDialog::SaveFailureDialog(FXWindow* ownerWindow, const SaveFailure& failure)
    : FXDialogBox(ownerWindow, dgettext("quillane", "A mentés nem sikerült"), DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE,
                  0, 0, 0, 0, 0, 0, 0, 0, 0, 0) {
  auto* content = new FXVerticalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, kPadding, kPadding, kPadding,
                                      kPadding, kSpacing, kSpacing);
  createMessage(content);
  createExplanation(content, failure);
  createButtons(content);
}

void SaveFailureDialog::createMessage(FXComposite* container) {
  new FXLabel(container,
              dgettext("quillane",
                       "A változások közül semmi sem került az adatbázisba.\n"
                       "Megpróbálja újra? Ha feladja, a változások elvesznek."),
              nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0);
}

void SaveFailureDialog::createExplanation(FXComposite* container, const SaveFailure& failure) {
  auto* frame =
      new FXPacker(container, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  explanation = new FXText(frame, nullptr, 0, TEXT_READONLY | TEXT_WORDWRAP | LAYOUT_FILL_X | LAYOUT_FILL_Y);
  explanation->setVisibleRows(kVisibleLines);
  explanation->setVisibleColumns(kVisibleColumns);
  explanation->setText(failure.problem + "\n" + failure.reason);
}

void SaveFailureDialog::createButtons(FXComposite* container) {
  auto* buttons = new FXHorizontalFrame(container, LAYOUT_RIGHT | PACK_UNIFORM_WIDTH, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  const auto createButton = [this, buttons](const char* text, FXSelector command, FXuint hints) {
    return new FXButton(buttons, text, nullptr, this, command, BUTTON_NORMAL | BUTTON_DEFAULT | hints, 0, 0, 0, 0,
                        kButtonPadding, kButtonPadding);
  };
  createButton(dgettext("quillane", "&Újra"), ID_ACCEPT, BUTTON_INITIAL)->setFocus();
  createButton(dgettext("quillane", "&Feladom"), ID_CANCEL, 0);
}

}  // namespace Quillane
