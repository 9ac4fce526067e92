#pragma once

#include <fx.h>

#include <memory>
#include <vector>

#include "host/company/Company.h"
#include "host/desktop/ItemInput.h"
#include "host/document/Document.h"
#include "host/document/DocumentCheck.h"

namespace Quillane::Desktop {

/// A document while it is being edited: its items come and go, the check's findings go before the items that they
/// hold, and it is known whether anything is not stored yet. Nothing is asked and nothing is shown here: what could not
/// be done comes back as a sentence for the user, and the document is as it was.
class DocumentSession {
 public:
  /// The company is not owned and has to outlive the session. A document that is not stored yet and has no date gets
  /// today's.
  DocumentSession(Host::Company& openCompany, std::unique_ptr<Host::Document> edited);
  ~DocumentSession();

  /// Owned by the session. The address changes when the document is loaded anew.
  Host::Document& getDocument() const { return *document; }
  bool isStored() const { return document->getId() > 0; }
  bool isReadOnly() const { return document->isStatusClosed(); }

  /// Whether anything was changed that is not stored. Modules tell nobody what their dialogs change: what they attached
  /// to the items is compared with how it was. A closed document is never changed.
  bool isChanged() const;

  /// The same as far as it is known without comparing; quick.
  bool isKnownChanged() const { return changed && !isReadOnly(); }

  /// Makes isChanged known.
  void noticeChanges();

  /// A field of the document itself was changed.
  void markChanged() { changed = true; }

  /// The number of items.
  int countItems() const { return document->getItems().no(); }

  /// What the item with this index says.
  ItemInput getInput(int index) const;

  /// Puts a new item at index, 0 ... countItems().
  void insertItem(int index, const ItemInput& input);

  /// Changes the item. One that gets another article is replaced by a new one in its place, and what modules attached
  /// to it is gone.
  void changeItem(int index, const ItemInput& input);

  /// Whether the item gets another article by this input, and values that a person recorded for it would be lost.
  bool wouldLoseValues(int index, const ItemInput& input) const;

  /// Takes the item off.
  void removeItem(int index);

  /// The item becomes the one with index to.
  void moveItem(int index, int to);

  /// The data that modules attached to the item as a text for people; empty when there are none.
  FX::FXString getAttachedText(int index) const;

  /// Stores the document and loads it anew. When it was stored and cannot be loaded, stored is true and the result
  /// false; it cannot be stored again then.
  bool save(bool& stored, FX::FXString& error);

  /// Loads the stored document in place of this one; what was changed is lost.
  bool loadAnew(FX::FXString& error);

  /// Moves the stored document to another status and loads it anew; what was changed is lost.
  bool changeStatus(int status, FX::FXString& error);

  /// Makes a document of this status from the stored one. Returns its id; 0 when it was refused.
  int derive(int status, FX::FXString& error) const;

  /// Deletes the stored document. The session keeps an empty one.
  bool deleteDocument(FX::FXString& error);

  /// Writes the stored document as XML to a file; one that exists is replaced, once the new one is written.
  bool exportXml(const FX::FXString& file, FX::FXString& error) const;

  /// Checks the document; the findings stand in place of the earlier ones. window is what their events open dialogs
  /// over.
  void runCheck(FX::FXWindow* window);

  const ListOfMessage& getMessages() const { return check.getMessages(); }
  int countErrors() const { return check.countErrors(); }

  /// Lets the document and the findings about it go, before the modules that made them do. The session keeps an empty
  /// document.
  void release();

  DocumentSession(const DocumentSession&) = delete;
  DocumentSession& operator=(const DocumentSession&) = delete;

 private:
  void take(std::unique_ptr<Host::Document> loaded);
  std::vector<FX::FXString> describeAttachedData() const;
  void rememberAttachedData() { knownAttachedData = describeAttachedData(); }

  Host::Company& company;
  std::unique_ptr<Host::Document> document;
  Host::DocumentCheck check;  // behind the document: its findings go first
  std::vector<FX::FXString> knownAttachedData;
  bool changed = false;
};

}  // namespace Quillane::Desktop
