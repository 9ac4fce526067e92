// A document as XML. Who changes what is written here changes data/invoice.xsd with it.
#include "host/xml/DocumentXml.h"

#include "host/document/TypedNumber.h"
#include "plugin/contract/XMLBuilder.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr char kNameSpace[] = "urn:quillane:invoice";

void setText(XMLBuilder::Element& element, const char* name, const FXString& value) {
  if (!value.empty()) element.setAttribute("", name, value);
}

void setNumber(XMLBuilder::Element& element, const char* name, int value) {
  element.setAttribute("", name, FXStringVal(value));
}

void setKey(XMLBuilder::Element& element, const char* name, int key) {
  if (key > 0) setNumber(element, name, key);
}

/// A text that says no number, as another program may have stored it, is no price.
void setPrice(XMLBuilder::Element& element, const FXString& stored) {
  FXString number;
  FXString error;
  if (parseTypedNumber(stored, number, error)) element.setAttribute("", "price", number);
}

void addItem(XMLBuilder::Element& root, int n, DocumentItem& item, const EntityHooks& hooks) {
  XMLBuilder::Element& element = *root.createElement(kNameSpace, "item");
  setNumber(element, "n", n);
  setNumber(element, "articlekind", item.getArticleKind());
  setKey(element, "articleid", item.getArticleId());
  setText(element, "name", item.getName());
  element.setAttribute("", "quantity", item.getQuantity().toString());
  setText(element, "unit", item.getUnit());
  setPrice(element, item.getPriceText());
  hooks.toXml(&item, &element);
}

}  // namespace

FXString documentToXml(const Document& document, const EntityHooks& hooks) {
  XMLBuilder::Document xml(kNameSpace, "invoice");
  XMLBuilder::Element& root = *xml.getRoot();
  setKey(root, "id", document.getId());
  setText(root, "number", document.getNumber());
  setText(root, "partnernumber", document.getPartnerNumber());
  setNumber(root, "status", document.getStatus());
  setText(root, "issuedate", document.getIssueDate());
  setKey(root, "partner", document.getPartnerId());
  setText(root, "partnername", document.getPartnerName());
  setKey(root, "cancels", document.getCancelledDocumentId());
  setNumber(root, "version", document.getVersion());
  for (FXint i = 0; i < document.getItems().no(); ++i) addItem(root, i + 1, *document.getItem(i), hooks);
  return xml.toText();
}

FXString attachedDataToXml(InvoiceItem& item, const EntityHooks& hooks) {
  XMLBuilder::Document xml(kNameSpace, "item");
  hooks.toXml(&item, xml.getRoot());
  return xml.toText();
}

}  // namespace Quillane::Host
