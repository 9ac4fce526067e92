// An item as the host stores it.
#include "host/document/DocumentItem.h"

#include "host/document/TypedNumber.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr char kQuantityDecimals = 4;

}  // namespace

FXIMPLEMENT(DocumentItem, InvoiceItem, nullptr, 0)

void DocumentItem::setQuantityText(const FXString& text) {
  quantityText = text;
  FXString number;
  FXString error;
  InvoiceItem::setQuantity(FXExt::FXDecimal(parseTypedNumber(text, number, error) ? number : "0", kQuantityDecimals));
}

}  // namespace Quillane::Host
