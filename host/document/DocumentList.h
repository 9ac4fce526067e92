#pragma once

#include <fx.h>

#include <set>
#include <vector>

class TarnwellDatabase;

namespace Quillane::Host {

/// A document as lists show it.
struct DocumentRow {
  int id = 0;
  FX::FXString number;   // empty for what is not closed
  FX::FXString partner;  // its name
  FX::FXString date;     // as YYYY-MM-DD; empty when there is none
  int status = 0;
  FX::FXString statusName;  // in the user's language
  FX::FXString sum;         // in plain notation, rounded to 2 decimals, negative for a cancelling document; empty when
                            // it has more digits than can be reckoned with exactly
};

/// The documents of the company.
class DocumentList {
 public:
  /// All documents, by their ids. False with a sentence in error when they cannot be read.
  static bool read(TarnwellDatabase& database, std::vector<DocumentRow>& rows, FX::FXString& error);

  /// The documents in which text is found, in whole or in part and in capital or small letters: in their number, the
  /// supplier's number, their partner's name, the name of an item or of its article, or a value recorded for an item.
  /// Blanks around text do not count; an empty text finds all documents. False with a sentence in error when it cannot
  /// be looked for.
  static bool find(TarnwellDatabase& database, const FX::FXString& text, std::set<int>& ids, FX::FXString& error);
};

}  // namespace Quillane::Host
