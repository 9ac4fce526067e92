#pragma once

#include <fx.h>

#include <vector>

#include "host/company/Company.h"
#include "host/document/DocumentList.h"

namespace Quillane::Desktop {

/// What is done to several stored documents, one after the other. Nothing is asked and nothing is shown here: of every
/// document that was refused a sentence is kept.
class DocumentBatch {
 public:
  /// The company is not owned and has to outlive the object.
  explicit DocumentBatch(Host::Company& openCompany) : company(openCompany) {}

  /// Moves a draft to the closed status of its family.
  bool close(const Host::DocumentRow& row);

  bool remove(const Host::DocumentRow& row);

  /// Writes the stored document as XML; a file that exists is replaced, once the new one is written.
  bool exportTo(const FX::FXString& file, const Host::DocumentRow& row);

  /// Counts a document that was done elsewhere, or keeps the sentence in error about it. Returns succeeded.
  bool note(bool succeeded, const FX::FXString& error);

  /// How many documents were done, and the sentences about those that were refused.
  int countDone() const { return done; }
  const std::vector<FX::FXString>& getRefusals() const { return refusals; }

  /// A document as people call it: its status and number, or its status, partner and "#id" when it has none.
  static FX::FXString describe(const Host::DocumentRow& row);

  /// The name of the XML file of a document; no two documents have the same.
  static FX::FXString makeFileName(const Host::DocumentRow& row);

 private:
  Host::Company& company;
  int done = 0;
  std::vector<FX::FXString> refusals;
};

}  // namespace Quillane::Desktop
