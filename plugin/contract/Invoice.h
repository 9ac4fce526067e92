#pragma once

#include <fx.h>

#include "fxext/FXDecimal.h"
#include "plugin/contract/Entity.h"
#include "plugin/contract/HostApi.h"

namespace Quillane {

class Invoice;

/// One item of a document.
class QUILLANE_HOST_API InvoiceItem : public Entity {
  FXDECLARE(InvoiceItem)
 public:
  /// What the item sells: the kind decides the table that its article id belongs to.
  enum ArticleKind { ARTICLE_NONE = 0, ARTICLE_PRODUCT = 1, ARTICLE_SERVICE = 2, ARTICLE_SUITE = 3 };

  /// Where the item's attached data come from. ORIGIN_DERIVING: being derived, not stored yet, so they come from the
  /// source item; ORIGIN_DERIVED: derived and stored, so it has its own.
  enum OriginMode { ORIGIN_NONE = 0, ORIGIN_DERIVING = 1, ORIGIN_DERIVED = 2 };

  explicit InvoiceItem(Invoice* document = nullptr) : invoice(document) {}

  /// The document that the item belongs to; it owns the item.
  Invoice* getInvoice() const { return invoice; }
  void setInvoice(Invoice* document) { invoice = document; }

  /// One of ArticleKind; 0 when the item has no article.
  int getArticleKind() const { return articleKind; }
  /// The key of the article in its kind's table.
  int getArticleId() const { return articleId; }
  void setArticle(int kind, int key) {
    articleKind = kind;
    articleId = key;
  }

  /// One of OriginMode.
  int getOriginMode() const { return originMode; }
  /// The id of the item that this one was derived from; 0 when there is none.
  int getSourceItemId() const { return sourceItemId; }
  void setOrigin(int mode, int sourceItem) {
    originMode = mode;
    sourceItemId = sourceItem;
  }

  const FXExt::FXDecimal& getQuantity() const { return quantity; }
  void setQuantity(const FXExt::FXDecimal& number) { quantity = number; }

  /// The unit that the quantity counts, as text ("db").
  const FX::FXString& getUnit() const { return unit; }
  void setUnit(const FX::FXString& text) { unit = text; }

  const FX::FXString& getName() const { return name; }
  void setName(const FX::FXString& text) { name = text; }

 private:
  Invoice* invoice;  // not owned
  int articleKind = ARTICLE_NONE;
  int articleId = 0;
  int originMode = ORIGIN_NONE;
  int sourceItemId = 0;
  FXExt::FXDecimal quantity{0, 0, 4};
  FX::FXString unit;
  FX::FXString name;
};

/// A document: an invoice, a delivery note, an order.
class QUILLANE_HOST_API Invoice : public Entity {
  FXDECLARE(Invoice)
 public:
  Invoice() = default;
  /// Deletes the items.
  ~Invoice() override;

  /// The items in their order on the document, which is also the order of the item table's rows; owned by the document.
  const FX::FXObjectListOf<InvoiceItem>& getItems() const { return items; }

  /// Puts item at the end; the document owns it from now on and becomes its invoice.
  void appendItem(InvoiceItem* item);

  /// The status code, such as 101 for an outgoing draft.
  int getStatus() const { return status; }
  /// A closed document is read-only.
  bool isStatusClosed() const { return statusClosed; }
  void setStatus(int code, bool closed) {
    status = code;
    statusClosed = closed;
  }

  /// Greater than 0 while the document may still change its status.
  int getStatusGate() const { return statusGate; }
  void setStatusGate(int gate) { statusGate = gate; }

  /// How the document is called when a person is told about it.
  const FX::FXString& getDisplayText() const { return displayText; }
  void setDisplayText(const FX::FXString& text) { displayText = text; }

  /// Set to 1 by a module that read attached data of one of the items; 0 on a new document.
  FX::FXuchar getLoadMark() const { return loadMark; }
  void setLoadMark(FX::FXuchar mark) { loadMark = mark; }

 protected:
  FX::FXObjectListOf<InvoiceItem> items;  // owned

 private:
  int status = 0;
  bool statusClosed = false;
  int statusGate = 0;
  FX::FXString displayText;
  FX::FXuchar loadMark = 0;
};

}  // namespace Quillane
