#pragma once

#include <fx.h>

#include "plugin/contract/Invoice.h"

namespace Quillane::Host {

/// An item as the host stores it: what modules see of it, and what only the host needs.
class DocumentItem : public InvoiceItem {
  FXDECLARE(DocumentItem)
 public:
  explicit DocumentItem(Invoice* document = nullptr) : InvoiceItem(document) {}

  /// The number by which stored items are ordered on their document; a save numbers them anew from 1.
  int getPosition() const { return position; }
  void setPosition(int number) { position = number; }

  /// The quantity as it is stored: the text, since a document that another program wrote may say it in its own way.
  const FX::FXString& getQuantityText() const { return quantityText; }

  /// Takes over the text and the number that it says; a text that says no number counts as 0. What a person typed goes
  /// through parseTypedNumber first.
  void setQuantityText(const FX::FXString& text);

  /// The price of one unit as it is stored.
  const FX::FXString& getPriceText() const { return priceText; }
  void setPriceText(const FX::FXString& text) { priceText = text; }

 private:
  using InvoiceItem::setQuantity;  // would part the number from its text

  int position = 0;
  FX::FXString quantityText;
  FX::FXString priceText;
};

}  // namespace Quillane::Host
