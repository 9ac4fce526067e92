#pragma once

#include <fx.h>

#include <vector>

#include "host/document/Document.h"

class TarnwellDatabase;

namespace Quillane::Host {

/// Writes the rows of one document and its items, inside a transaction that the caller begins and ends. Whether they
/// may be written is the caller's to know. New rows get their keys; when the writer goes without being told to keep
/// them they are taken away again, so that the objects are as they were.
class DocumentWriter {
 public:
  /// Neither is owned; both have to outlive the writer.
  DocumentWriter(TarnwellDatabase& companyDatabase, Document& writtenDocument)
      : database(companyDatabase), document(writtenDocument) {}
  ~DocumentWriter();

  /// The document's own row, with the next version. Status and status gate are written only when it is new. False when
  /// it cannot be written; the database knows why.
  bool writeDocument();

  /// The row of one of its items, which becomes the one with this number (1 is the first). False as above.
  bool writeItem(DocumentItem& item, int position);

  /// Deletes the row of an item. False as above.
  bool deleteItem(const DocumentItem& item);

  /// Deletes the document's own row, once its items are gone. False as above.
  bool deleteDocument();

  /// The transaction was committed: the keys are valid.
  void keepKeys() { newEntities.clear(); }

  DocumentWriter(const DocumentWriter&) = delete;
  DocumentWriter& operator=(const DocumentWriter&) = delete;

 private:
  bool giveKey(Entity& entity, const char* table);
  bool insertDocument();
  bool updateDocument();
  bool insertItem(const DocumentItem& item, int position);
  bool updateItem(const DocumentItem& item, int position);

  TarnwellDatabase& database;
  Document& document;
  std::vector<Entity*> newEntities;  // not owned
};

}  // namespace Quillane::Host
