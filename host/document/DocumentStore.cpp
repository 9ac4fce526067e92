// Loading and saving documents.
//
//  1. A document is read from one state of the database, its own row, its items and what is attached to them. When
//     somebody saves it afterwards, the copy that was read has the older version and cannot be saved.
//  2. A save is one transaction, which takes the write lock at once: between the look at the stored version and the
//     commit nobody else writes.
//  3. Modules ignore the results of their statements. While saving, the connection remembers the first that failed and
//     commit refuses; while loading, there is no transaction, and the connection's count of failures tells.
//  4. A save gives new rows their keys. When it fails they are taken away again, so that the next save of the same
//     objects inserts them as this one did.
#include "host/document/DocumentStore.h"

#include <libintl.h>

#include "host/database/Connection.h"
#include "host/document/DocumentWriter.h"
#include "host/document/ResultRows.h"
#include "host/document/StatusCatalogue.h"
#include "host/document/Transaction.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr char kStatusSql[] = "select name, closed from t_invoicestatus where t_invoicestatus_id=%status";
constexpr char kDocumentSql[] =
    "select i.version, i.number, i.partnernumber, i.t_invoicestatus_1, i.statusgate, i.issuedate, i.t_partner_1, "
    "i.t_invoice_1, s.name, s.closed, p.name from t_invoice i "
    "left join t_invoicestatus s on s.t_invoicestatus_id=i.t_invoicestatus_1 "
    "left join t_partner p on p.t_partner_id=i.t_partner_1 where i.t_invoice_id=%id";
constexpr char kItemsSql[] =
    "select t_invoiceitem_id, position, articlekind, articleid, name, unit, quantity, price, originmode, "
    "t_invoiceitem_1 from t_invoiceitem where t_invoice_1=%id order by position, t_invoiceitem_id";
constexpr char kStoredStateSql[] =
    "select i.version, s.closed from t_invoice i "
    "left join t_invoicestatus s on s.t_invoicestatus_id=i.t_invoicestatus_1 where i.t_invoice_id=%id";
constexpr char kTakenFromSql[] =
    "select count(1) from t_invoiceitem where t_invoiceitem_1=%item and t_invoice_1<>%document";

bool readDocument(TarnwellDatabase& database, int id, ResultRows& rows) {
  Statement query(&database, kDocumentSql);
  query.setInt("id", id);
  return query.execute(&rows, 0);
}

void fillDocument(Document& document, const ResultRows& rows) {
  document.setVersion(rows.getInt(0, 0));
  document.setNumber(rows.getText(0, 1));
  document.setPartnerNumber(rows.getText(0, 2));
  document.setStatus(rows.getInt(0, 3), rows.getInt(0, 9) != 0);
  document.setStatusGate(rows.getInt(0, 4));
  document.setIssueDate(rows.getText(0, 5));
  document.setPartner(rows.getInt(0, 6), rows.getText(0, 10));
  document.setCancelledDocumentId(rows.getInt(0, 7));
  document.setStatusName(StatusCatalogue::translateStatusName(rows.getText(0, 8)));
  document.refreshDisplayText();
}

bool loadItems(TarnwellDatabase& database, Document& document) {
  ResultRows rows;
  Statement query(&database, kItemsSql);
  query.setInt("id", document.getId());
  if (!query.execute(&rows, 0)) return false;
  for (int row = 0; row < rows.getNumRows(); ++row) {
    DocumentItem* item = document.addItem();
    item->setId(rows.getInt(row, 0));
    item->setPosition(rows.getInt(row, 1));
    item->setArticle(rows.getInt(row, 2), rows.getInt(row, 3));
    item->setName(rows.getText(row, 4));
    item->setUnit(rows.getText(row, 5));
    item->setQuantityText(rows.getText(row, 6));
    item->setPriceText(rows.getText(row, 7));
    item->setOrigin(rows.getInt(row, 8), rows.getInt(row, 9));
  }
  return true;
}

/// Runs the load hooks on every item; false when a statement of theirs failed.
bool loadAttachedData(TarnwellDatabase& database, const Document& document, const EntityHooks& hooks) {
  const Database::Connection& connection = database.getConnection();
  const unsigned long earlierFailures = connection.getFailureCount();
  for (FXint i = 0; i < document.getItems().no(); ++i) hooks.load(document.getItem(i));
  return connection.getFailureCount() == earlierFailures;
}

/// While it lives, everything is read from one state of the database.
class Reading {
 public:
  explicit Reading(TarnwellDatabase& database)
      : connection(database.getConnection()), began(connection.beginReading()) {}
  ~Reading() {
    if (began) connection.endReading();
  }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

 private:
  Database::Connection& connection;
  bool began;
};

/// One save: the steps of its transaction, each of which puts what it has against it into the reason.
class Save {
 public:
  Save(TarnwellDatabase& companyDatabase, const EntityHooks& moduleHooks, Document& saved)
      : database(companyDatabase), hooks(moduleHooks), document(saved), writer(companyDatabase, saved) {}

  bool run(FXString& reason) {
    return checkState(reason) && writer.writeDocument() && deleteRemovedItems(reason) && writeItems(reason);
  }

  void keepKeys() { writer.keepKeys(); }

 private:
  static bool refuse(FXString& reason, const char* sentence) {
    reason = sentence;
    return false;
  }

  bool checkState(FXString& reason) {
    if (document.getId() <= 0)
      return !document.isStatusClosed() || refuse(reason, dgettext("quillane", "Lezárt bizonylat nem módosítható."));
    ResultRows rows;
    Statement query(&database, kStoredStateSql);
    query.setInt("id", document.getId());
    if (!query.execute(&rows, 1)) return false;
    if (rows.getNumRows() == 0) return refuse(reason, dgettext("quillane", "A bizonylatot időközben törölték."));
    if (rows.getInt(0, 1) != 0) return refuse(reason, dgettext("quillane", "Lezárt bizonylat nem módosítható."));
    if (rows.getInt(0, 0) != document.getVersion())
      return refuse(
          reason, dgettext("quillane", "A bizonylatot időközben máshol is mentették. Nyissa meg újra a módosításhoz."));
    return true;
  }

  bool deleteRemovedItems(FXString& reason) {
    for (const auto& item : document.getRemovedItems()) {
      Statement query(&database, kTakenFromSql);
      query.setInt("item", item->getId());
      query.setInt("document", document.getId());
      if (query.queryInt(0) > 0) {
        reason = FXStringFormat(
            dgettext("quillane", "A(z) „%s” tétel nem törölhető, mert másik bizonylat tétele készült belőle."),
            item->getName().text());
        return false;
      }
      hooks.del(item.get());
      if (!writer.deleteItem(*item)) return false;
    }
    return true;
  }

  bool writeItems(FXString& reason) {
    for (FXint i = 0; i < document.getItems().no(); ++i) {
      DocumentItem& item = *document.getItem(i);
      if (!writer.writeItem(item, i + 1) || !writeAttachedData(item, reason)) return false;
    }
    return true;
  }

  /// What a module attached to an item was made of the fields that there were when the item was loaded. Any other
  /// failure fails the transaction by itself.
  bool writeAttachedData(DocumentItem& item, FXString& reason) {
    const Database::Connection& connection = database.getConnection();
    const unsigned long earlierFailures = connection.getFailureCount();
    hooks.save(&item);
    if (connection.getFailureCount() == earlierFailures ||
        connection.getLastCause() != Database::Failure::Cause::Constraint)
      return true;
    reason = FXStringFormat(
        dgettext("quillane",
                 "A(z) „%s” tételhez rögzített egyéb adatok nem tárolhatók, talán mert időközben töröltek egy mezőt. "
                 "Távolítsa el a tételt, és vegye fel újra. %s"),
        item.getName().text(), database.getLastError().text());
    return false;
  }

  TarnwellDatabase& database;
  const EntityHooks& hooks;
  Document& document;
  DocumentWriter writer;
};

FXString notSaved(const Document& document, const FXString& reason) {
  return FXStringFormat(dgettext("quillane", "A bizonylat mentése nem sikerült (%s): %s"),
                        document.getDisplayText().text(), reason.text());
}

}  // namespace

std::unique_ptr<Document> DocumentStore::make(int status, FXString& error) const {
  ResultRows rows;
  Statement query(&database, kStatusSql);
  query.setInt("status", status);
  if (!query.execute(&rows, 0)) {
    error = database.getLastError();
    return nullptr;
  }
  if (rows.getNumRows() == 0) {
    error = FXStringFormat(dgettext("quillane", "Nincs ilyen állapot: %d."), status);
    return nullptr;
  }
  auto document = std::make_unique<Document>();
  const bool closed = rows.getInt(0, 1) != 0;
  document->setStatus(status, closed);
  document->setStatusName(StatusCatalogue::translateStatusName(rows.getText(0, 0)));
  document->setStatusGate(closed ? 0 : 1);
  document->refreshDisplayText();
  return document;
}

std::unique_ptr<Document> DocumentStore::load(int id, FXString& error) const {
  auto document = std::make_unique<Document>();
  document->setId(id);
  const Reading reading(database);
  ResultRows rows;
  bool loaded = readDocument(database, id, rows);
  if (loaded && rows.getNumRows() == 0) {
    error = FXStringFormat(dgettext("quillane", "Nincs #%d azonosítójú bizonylat."), id);
    return nullptr;
  }
  if (loaded) {
    fillDocument(*document, rows);
    loaded = loadItems(database, *document) && loadAttachedData(database, *document, hooks);
  }
  if (loaded) return document;
  error = FXStringFormat(dgettext("quillane", "A #%d azonosítójú bizonylat nem olvasható be: %s"), id,
                         database.getLastError().text());
  return nullptr;
}

bool DocumentStore::save(Document& document, FXString& error) const {
  FXString reason;
  Save save(database, hooks, document);
  if (Transaction::run(database, reason, [&save](FXString& refusal) { return save.run(refusal); })) {
    save.keepKeys();
    return true;
  }
  error = notSaved(document, reason);
  return false;
}

}  // namespace Quillane::Host
