#pragma once

#include <fx.h>

namespace Quillane::Desktop {

/// Asks the user for a file. The cursor stands in the name, so that it can be typed over or taken as it is.
class FilePicker {
 public:
  /// The dialog stands over the owner, which is not owned; over nothing while that is not shown yet. The patterns are
  /// lines, "Name (*.ending)".
  FilePicker(FX::FXWindow* window, const char* dialogHeading, const char* filePatterns)
      : owner(window), heading(dialogHeading), patterns(filePatterns) {}

  /// file is what is proposed, and then what was chosen. False when the user turned back. mode is one of the toolkit's
  /// SELECTFILE_...
  bool ask(FX::FXString& file, FX::FXuint mode) const;

  /// The same for a file that is to be written: the user is also asked whether one that exists is to be replaced.
  bool askTarget(FX::FXString& file) const;

 private:
  FX::FXWindow* owner;
  const char* heading;
  const char* patterns;
};

}  // namespace Quillane::Desktop
