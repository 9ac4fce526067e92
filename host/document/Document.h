#pragma once

#include <fx.h>

#include <memory>
#include <vector>

#include "host/document/DocumentItem.h"
#include "plugin/contract/Invoice.h"

namespace Quillane::Host {

/// A document as the host stores it. Its items are DocumentItems.
class Document : public Invoice {
  FXDECLARE(Document)
 public:
  Document() = default;
  ~Document() override;

  /// The document's number; drafts have none.
  const FX::FXString& getNumber() const { return number; }
  void setNumber(const FX::FXString& text) { number = text; }

  /// The number that the supplier gave to an incoming document.
  const FX::FXString& getPartnerNumber() const { return partnerNumber; }
  void setPartnerNumber(const FX::FXString& text) { partnerNumber = text; }

  /// As YYYY-MM-DD; empty when there is none.
  const FX::FXString& getIssueDate() const { return issueDate; }
  void setIssueDate(const FX::FXString& date) { issueDate = date; }

  /// The key of the partner; 0 when there is none.
  int getPartnerId() const { return partnerId; }
  const FX::FXString& getPartnerName() const { return partnerName; }
  void setPartner(int key, const FX::FXString& name) {
    partnerId = key;
    partnerName = name;
  }

  /// The id of the document that this one cancels; 0 when there is none.
  int getCancelledDocumentId() const { return cancelledDocumentId; }
  void setCancelledDocumentId(int document) { cancelledDocumentId = document; }

  /// Grows with every save; 0 as long as the document is not stored.
  int getVersion() const { return version; }
  void setVersion(int count) { version = count; }

  /// The status in words, in the user's language.
  const FX::FXString& getStatusName() const { return statusName; }
  void setStatusName(const FX::FXString& name) { statusName = name; }

  /// Says anew how the document is called: a closed one by its number, any other by status, partner and "#id".
  /// For whoever changed one of them.
  void refreshDisplayText();

  /// The item at index, 0 … getItems().no() - 1.
  DocumentItem* getItem(int index) const { return static_cast<DocumentItem*>(items[index]); }

  /// A new item without content at the end; owned by the document.
  DocumentItem* addItem();

  /// The same at index, 0 … getItems().no(); what stands there moves down.
  DocumentItem* insertItem(int index);

  /// Takes the item at index off the document. A stored one is kept aside until the next save, which deletes its row.
  void removeItem(int index);

  /// The item at index from becomes the one at index to; those between move by one.
  void moveItem(int from, int to);

  /// The stored items that were taken off since the document was loaded.
  const std::vector<std::unique_ptr<DocumentItem>>& getRemovedItems() const { return removedItems; }

 private:
  FX::FXString number;
  FX::FXString partnerNumber;
  FX::FXString issueDate;
  int partnerId = 0;
  FX::FXString partnerName;
  int cancelledDocumentId = 0;
  int version = 0;
  FX::FXString statusName;
  std::vector<std::unique_ptr<DocumentItem>> removedItems;
};

}  // namespace Quillane::Host
