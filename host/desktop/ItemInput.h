#pragma once

#include <fx.h>

#include "plugin/contract/Invoice.h"

namespace Quillane::Desktop {

/// What a person says of an item: its article, and what stands on the document. The numbers are in plain notation, with
/// a decimal point; an empty price is none.
struct ItemInput {
  int articleKind = InvoiceItem::ARTICLE_PRODUCT;
  int articleId = 0;
  FX::FXString name;
  FX::FXString quantity = "1";
  FX::FXString unit;
  FX::FXString price;
};

}  // namespace Quillane::Desktop
