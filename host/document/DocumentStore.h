#pragma once

#include <fx.h>

#include <memory>

#include "host/document/Document.h"
#include "host/document/EntityHooks.h"

class TarnwellDatabase;

namespace Quillane::Host {

/// Loads documents from the company's database and saves them, with everything that modules attach to their items.
/// Nothing is asked and nothing is shown here: what could not be done comes back as a sentence for the user.
class DocumentStore {
 public:
  /// Neither is owned; both have to outlive the store.
  DocumentStore(TarnwellDatabase& companyDatabase, const EntityHooks& moduleHooks)
      : database(companyDatabase), hooks(moduleHooks) {}

  /// A new document of this status, not stored, without items. Null with a sentence in error when there is no such
  /// status.
  std::unique_ptr<Document> make(int status, FX::FXString& error) const;

  /// Runs the load hooks on item, which was newly made, once its article and its origin are set.
  void loadAttached(DocumentItem& item) const { hooks.load(&item); }

  /// The document with its items, on each of which the load hooks were run. Null with a sentence in error when there is
  /// none or it cannot be read. Whatever another program wrote is loaded as far as it can be understood.
  std::unique_ptr<Document> load(int id, FX::FXString& error) const;

  /// Stores the document in one transaction: its own row, the rows of its items, and through the hooks what modules
  /// attached to them; items that were taken off are deleted. False with a sentence in error, and with the database and
  /// document as they were before, when the stored document is closed, when it was saved by somebody else since it was
  /// loaded, or when anything cannot be written.
  ///
  /// After a save the caller loads the document anew (by document.getId()): what modules inserted does not learn its
  /// keys in memory, and a second save of the same objects would insert it twice. It is refused therefore.
  bool save(Document& document, FX::FXString& error) const;

 private:
  TarnwellDatabase& database;
  const EntityHooks& hooks;
};

}  // namespace Quillane::Host
