// What the dialogs in which a record is edited have in common.
#include "host/windows/FieldMatrix.h"

#include <libintl.h>

using namespace FX;

namespace Quillane::Host {

FXIMPLEMENT(FieldMatrix, FXMatrix, nullptr, 0)

namespace {

constexpr FXint kColumns = 2;
constexpr FXint kSpacing = 6;
constexpr FXint kButtonPadding = 20;

}  // namespace

FieldMatrix::FieldMatrix(FXComposite* container)
    : FXMatrix(container, kColumns, MATRIX_BY_COLUMNS | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing,
               kSpacing) {}

FXTextField* FieldMatrix::addTextField(const FXString& label, int characters, const FXString& text) {
  return addField(label, characters, text, LAYOUT_FILL_X);
}

FXTextField* FieldMatrix::addShortField(const FXString& label, int characters, const FXString& text) {
  return addField(label, characters, text, 0);
}

FXTextField* FieldMatrix::addNumberField(const FXString& label, int characters, const FXString& text) {
  return addField(label, characters, text, JUSTIFY_RIGHT);
}

FXTextField* FieldMatrix::addField(const FXString& label, int characters, const FXString& text, FXuint opts) {
  new FXLabel(this, label, nullptr, JUSTIFY_RIGHT | LAYOUT_RIGHT | LAYOUT_CENTER_Y);
  auto* field = new FXTextField(this, characters, getShell(), FXDialogBox::ID_ACCEPT,
                                TEXTFIELD_NORMAL | TEXTFIELD_ENTER_ONLY | LAYOUT_FILL_COLUMN | opts);
  field->setText(text);
  return field;
}

void addDialogButtons(FXComposite* parent, FXDialogBox* dialog) {
  auto* row = new FXHorizontalFrame(parent, LAYOUT_RIGHT | LAYOUT_SIDE_BOTTOM | PACK_UNIFORM_WIDTH, 0, 0, 0, 0, 0, 0,
                                    kSpacing, 0, kSpacing, kSpacing);
  new FXButton(row, dgettext("quillane", "&OK"), nullptr, dialog, FXDialogBox::ID_ACCEPT,
               BUTTON_NORMAL | BUTTON_DEFAULT | BUTTON_INITIAL, 0, 0, 0, 0, kButtonPadding, kButtonPadding);
  new FXButton(row, dgettext("quillane", "&Mégse"), nullptr, dialog, FXDialogBox::ID_CANCEL,
               BUTTON_NORMAL | BUTTON_DEFAULT, 0, 0, 0, 0, kButtonPadding, kButtonPadding);
}

}  // namespace Quillane::Host
