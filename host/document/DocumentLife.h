#pragma once

#include <fx.h>

#include "host/document/Document.h"
#include "host/document/DocumentCheck.h"
#include "host/document/DocumentStore.h"
#include "host/document/EntityHooks.h"

class TarnwellDatabase;

namespace Quillane::Host {

/// What happens to whole documents: they move from status to status, others are made from them, and they are deleted.
/// Every operation is one transaction, which begins before anything is looked at: it is done whole, or the database is
/// as it was and error holds a sentence for the user that names the document, the reason and, where there is one, the
/// way out. Nothing is asked and nothing is shown here.
class DocumentLife {
 public:
  /// None is owned; all have to outlive the object. The check holds the modules' check hooks; it is run when a document
  /// is closed, and is left without findings.
  DocumentLife(TarnwellDatabase& companyDatabase, const EntityHooks& moduleHooks, DocumentCheck& closingCheck)
      : database(companyDatabase), hooks(moduleHooks), check(closingCheck), store(companyDatabase, moduleHooks) {}

  /// Moves a stored document to another status. When that closes it, the stored document has to pass the check, gets
  /// the next number of its new status, and can change no more. document has to be the newest copy; what was changed in
  /// it and not saved is neither checked nor stored, so it is saved (and loaded anew) before. Afterwards it shows the
  /// new state, its items were loaded through the hooks again, and it is again the newest copy. When the move is
  /// refused it is as it was.
  bool changeStatus(Document& document, int status, FX::FXString& error) const;

  /// Makes a document of this status from the stored document with this id: a draft with what is still open of it, or,
  /// when status is a cancelling one, the closed document that cancels it. Returns the id of the new document; 0 when
  /// it was refused.
  int derive(int id, int status, FX::FXString& error) const;

  /// Deletes the stored document with this id and everything attached to its items. A closed one stays, and so does one
  /// that another document was made from or that another one cancels.
  bool remove(int id, FX::FXString& error) const;

 private:
  TarnwellDatabase& database;
  const EntityHooks& hooks;
  DocumentCheck& check;
  DocumentStore store;
};

}  // namespace Quillane::Host
