#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane::Host {

/// The fields of a dialog box, one below the other, each behind its label. Return in a field accepts the dialog.
class QUILLANE_HOST_API FieldMatrix : public FX::FXMatrix {
  FXDECLARE(FieldMatrix)
 public:
  explicit FieldMatrix(FX::FXComposite* container);

  /// Adds a field for this many characters, owned by the window tree. Fields for short texts and for numbers, which
  /// stand to the right, do not grow with the window.
  FX::FXTextField* addTextField(const FX::FXString& label, int characters, const FX::FXString& text);
  FX::FXTextField* addShortField(const FX::FXString& label, int characters, const FX::FXString& text);
  FX::FXTextField* addNumberField(const FX::FXString& label, int characters, const FX::FXString& text);

  FieldMatrix(const FieldMatrix&) = delete;
  FieldMatrix& operator=(const FieldMatrix&) = delete;

 protected:
  FieldMatrix() = default;

 private:
  FX::FXTextField* addField(const FX::FXString& label, int characters, const FX::FXString& text, FX::FXuint opts);
};

/// The row of buttons at the bottom of a dialog: OK, which is the default, and the one that gives it up.
QUILLANE_HOST_API void addDialogButtons(FX::FXComposite* parent, FX::FXDialogBox* dialog);

}  // namespace Quillane::Host
