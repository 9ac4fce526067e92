// Editors without a display: widgets work by messages as long as they are not created.
#include "tests/itemdata/EditorFixture.h"

#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

namespace {

// Opens the one field of a window that has no accessor.
struct WindowOptions : FXWindow {
  static FXuint of(const FXWindow& widget) { return widget.*&WindowOptions::options; }
};

}  // namespace

EditorTest::EditorTest() : window(new FXMainWindow(&testAccount(), "form")) {
  matrix = new FXMatrix(window, 2, MATRIX_BY_COLUMNS | LAYOUT_FILL_X);
}

// The form goes before the data targets of its editors, as in a dialog.
EditorTest::~EditorTest() { delete window; }

Place placeOf(const FXWindow& widget) { return {widget.getX(), widget.getY(), widget.getWidth(), widget.getHeight()}; }

FXuint optionsOf(const FXWindow& widget) { return WindowOptions::of(widget); }

void refresh(FXWindow& widget) {
  widget.getTarget()->tryHandle(&widget, FXSEL(SEL_UPDATE, widget.getSelector()), nullptr);
}

}  // namespace Quillane::Plugin::ItemData
