// Writes the rows of a document and its items.
#include "host/document/DocumentWriter.h"

#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

namespace {

void setReference(Statement& statement, const char* column, int key) {
  if (key > 0) {
    statement.setInt(column, key);
  } else {
    statement.setInt(column, FXString());
  }
}

void setDocumentColumns(Statement& statement, const Document& document) {
  statement.setString("number", document.getNumber());
  statement.setString("partnernumber", document.getPartnerNumber());
  statement.setString("issuedate", document.getIssueDate());
  setReference(statement, "t_partner_1", document.getPartnerId());
  setReference(statement, "t_invoice_1", document.getCancelledDocumentId());
  statement.setInt("version", document.getVersion() + 1);
}

void setItemColumns(Statement& statement, const DocumentItem& item, int position, int originMode) {
  statement.setInt("position", position);
  statement.setInt("articlekind", item.getArticleKind());
  statement.setInt("articleid", item.getArticleId());
  statement.setString("name", item.getName());
  statement.setString("unit", item.getUnit());
  statement.setString("quantity", item.getQuantityText());
  statement.setString("price", item.getPriceText());
  statement.setInt("originmode", originMode);
  setReference(statement, "t_invoiceitem_1", item.getSourceItemId());
}

}  // namespace

DocumentWriter::~DocumentWriter() {
  for (Entity* entity : newEntities) entity->setId(0);
}

bool DocumentWriter::writeDocument() {
  if (document.getId() > 0) return updateDocument();
  return giveKey(document, "t_invoice") && insertDocument();
}

bool DocumentWriter::writeItem(DocumentItem& item, int position) {
  if (item.getId() > 0) return updateItem(item, position);
  return giveKey(item, "t_invoiceitem") && insertItem(item, position);
}

bool DocumentWriter::deleteItem(const DocumentItem& item) {
  DeleteStatement statement(&database, "t_invoiceitem");
  statement.setInt("t_invoiceitem_id", item.getId());
  return statement.execute(nullptr, 1);
}

bool DocumentWriter::deleteDocument() {
  DeleteStatement statement(&database, "t_invoice");
  statement.setInt("t_invoice_id", document.getId());
  return statement.execute(nullptr, 1);
}

bool DocumentWriter::giveKey(Entity& entity, const char* table) {
  const int key = database.nextKey(table);
  if (key <= 0) return false;
  entity.setId(key);
  newEntities.push_back(&entity);
  return true;
}

bool DocumentWriter::insertDocument() {
  InsertStatement insert(&database, "t_invoice");
  insert.setInt("t_invoice_id", document.getId());
  setReference(insert, "t_invoicestatus_1", document.getStatus());
  insert.setInt("statusgate", document.getStatusGate());
  setDocumentColumns(insert, document);
  return insert.execute(nullptr, 1);
}

bool DocumentWriter::updateDocument() {
  UpdateStatement update(&database, "t_invoice", "t_invoice_id=%t_invoice_id");
  update.setInt("t_invoice_id", document.getId());
  setDocumentColumns(update, document);
  return update.execute(nullptr, 1);
}

bool DocumentWriter::insertItem(const DocumentItem& item, int position) {
  const bool deriving = item.getOriginMode() == InvoiceItem::ORIGIN_DERIVING;
  InsertStatement insert(&database, "t_invoiceitem");
  insert.setInt("t_invoiceitem_id", item.getId());
  insert.setInt("t_invoice_1", document.getId());
  setItemColumns(insert, item, position, deriving ? InvoiceItem::ORIGIN_DERIVED : item.getOriginMode());
  return insert.execute(nullptr, 1);
}

bool DocumentWriter::updateItem(const DocumentItem& item, int position) {
  UpdateStatement update(&database, "t_invoiceitem", "t_invoiceitem_id=%t_invoiceitem_id");
  update.setInt("t_invoiceitem_id", item.getId());
  setItemColumns(update, item, position, item.getOriginMode());
  return update.execute(nullptr, 1);
}

}  // namespace Quillane::Host
