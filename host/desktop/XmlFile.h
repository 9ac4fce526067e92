#pragma once

#include <fx.h>

#include "host/company/Company.h"

namespace Quillane::Desktop {

/// The XML file of a stored document: how it is called, where it goes, and its writing.
class XmlFile {
 public:
  /// The name of the file of a document; no two documents have the same. number is empty when it has none.
  static FX::FXString makeName(const FX::FXString& statusName, const FX::FXString& number, int id);

  /// The folder of the last export, or where the user keeps documents.
  static FX::FXString getFolder(FX::FXApp& application);
  static void rememberFolder(FX::FXApp& application, const FX::FXString& folder);

  /// Asks over the owner for the file of one document, beginning with name in that folder, which is remembered when it
  /// is another one then. False when the user turned back.
  static bool ask(FX::FXWindow* owner, const FX::FXString& name, FX::FXString& file);

  /// Writes the stored document with this id; a file that exists is replaced, once the new one is written. After a
  /// failure error is a sentence that calls the document as told.
  static bool write(const Host::Company& company, int id, const FX::FXString& called, const FX::FXString& file,
                    FX::FXString& error);
};

}  // namespace Quillane::Desktop
