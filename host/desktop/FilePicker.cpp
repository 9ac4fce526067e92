// The toolkit's file dialog, as every window here opens it.
#include "host/desktop/FilePicker.h"

#include <libintl.h>

#include <memory>

#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

/// Puts the cursor into the field of a file dialog in which the name is typed; the toolkit leaves it nowhere.
void focusNameField(FXWindow& parent) {
  for (FXWindow* child = parent.getFirst(); child; child = child->getNext()) {
    FXTextField* field = dynamic_cast<FXTextField*>(child);
    if (field && dynamic_cast<FXFileSelector*>(field->getTarget())) {
      field->setFocus();
      field->selectAll();
    } else {
      focusNameField(*child);
    }
  }
}

}  // namespace

bool FilePicker::ask(FXString& file, FXuint mode) const {
  FXApp* application = owner->getApp();
  // Before the window is shown, no dialog can stand over it.
  const std::unique_ptr<FXFileDialog> dialog = owner->shown() ? std::make_unique<FXFileDialog>(owner, heading)
                                                              : std::make_unique<FXFileDialog>(application, heading);
  dialog->setSelectMode(mode);
  dialog->setPatternList(patterns);
  dialog->setFilename(file);
  if (application->isInitialized()) {
    dialog->create();
    focusNameField(*dialog);
  }
  if (!dialog->execute(owner->shown() ? PLACEMENT_OWNER : PLACEMENT_SCREEN)) return false;
  file = dialog->getFilename();
  return true;
}

bool FilePicker::askTarget(FXString& file) const {
  if (!ask(file, SELECTFILE_ANY)) return false;
  if (!FXStat::exists(file)) return true;
  const FXString question = FXStringFormat(dgettext("quillane", "Már van ilyen fájl: %s. Felülírja?"), file.text());
  return FXMessageBox::question(owner, MBOX_YES_NO, heading, "%s", Host::messageText(question).text()) ==
         MBOX_CLICKED_YES;
}

}  // namespace Quillane::Desktop
