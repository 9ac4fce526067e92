#pragma once

#include <fx.h>

namespace Quillane::Desktop {

/// Asks what is to become of changes that are not stored yet.
class UnsavedChangesDialog : public FX::FXDialogBox {
  FXDECLARE(UnsavedChangesDialog)
 public:
  enum { ID_SAVE = FX::FXDialogBox::ID_LAST, ID_DISCARD, ID_LAST };

  enum Answer { STAY, SAVE, DISCARD };

  /// Asks about the document with this name and waits for the answer. Escape and closing the question mean STAY.
  static Answer ask(FX::FXWindow* owner, const FX::FXString& documentName);

  UnsavedChangesDialog(FX::FXWindow* owner, const FX::FXString& documentName);

  long onAnswer(FX::FXObject* sender, FX::FXSelector selector, void* data);

  UnsavedChangesDialog(const UnsavedChangesDialog&) = delete;
  UnsavedChangesDialog& operator=(const UnsavedChangesDialog&) = delete;

 protected:
  UnsavedChangesDialog() = default;

 private:
  void createButtons();
};

}  // namespace Quillane::Desktop
