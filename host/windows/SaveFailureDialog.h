#pragma once

#include <fx.h>

#include "host/windows/TableSave.h"

namespace Quillane {

/// Tells the user that a table could not be saved, and why, and asks whether to try again: accepted is yes, everything
/// else is giving up. The explanation can be copied.
class SaveFailureDialog : public FX::FXDialogBox {
  FXDECLARE(SaveFailureDialog)
 public:
  /// The dialog stays before the owner.
  SaveFailureDialog(FX::FXWindow* ownerWindow, const SaveFailure& failure);

  /// What the dialog tells of the failure: which record cannot be written, and in the next line why.
  FX::FXString getExplanation() const { return explanation->getText(); }

  SaveFailureDialog(const SaveFailureDialog&) = delete;
  SaveFailureDialog& operator=(const SaveFailureDialog&) = delete;

 protected:
  SaveFailureDialog() = default;

 private:
  void createMessage(FX::FXComposite* container);
  void createExplanation(FX::FXComposite* container, const SaveFailure& failure);
  void createButtons(FX::FXComposite* container);

  FX::FXText* explanation = nullptr;  // a child
};

}  // namespace Quillane
