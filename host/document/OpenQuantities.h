#pragma once

#include <fx.h>

#include <map>

#include "fxext/FXDecimal.h"
#include "host/document/Document.h"
#include "host/document/DocumentRules.h"

class TarnwellDatabase;

namespace Quillane::Host {

/// What is still open of the items of a stored document: an item's quantity, less what closed documents of a family
/// took from it, plus what the family's cancelling documents gave back. Exact: what cannot be reckoned exactly is not
/// reckoned at all.
class OpenQuantities {
 public:
  /// Reads what the family's documents took from the items of source and gave back. False with a sentence in error when
  /// it cannot be read or reckoned.
  bool read(TarnwellDatabase& database, const Document& source, const DocumentRules::Family& family,
            FX::FXString& error);

  /// Whether anything is open of an item of the document that was read. Of a negative quantity (a return) a negative
  /// rest is open; what has been taken beyond the quantity leaves nothing.
  bool hasOpen(const DocumentItem& item) const;

  /// The open quantity in plain notation with a decimal point; "0" for an item of another document.
  FX::FXString getOpen(const DocumentItem& item) const;

 private:
  std::map<int, FXExt::FXDecimal> open;  // by the item's id
};

}  // namespace Quillane::Host
