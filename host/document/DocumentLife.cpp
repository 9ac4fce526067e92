// Moves documents from status to status, makes others from them, and deletes them.
//
//  1. An operation takes the write lock before it looks at anything, so that nobody closes, derives or deletes between
//     the look and the commit: numbers have no gaps, and a quantity is not given away twice.
//  2. A document is closed by what is stored of it, not by what somebody sees in a window: the check is run on a copy
//     that is loaded inside the transaction.
//  3. Failed statements of modules fail the commit. What was changed in memory by then is taken back.
#include "host/document/DocumentLife.h"

#include <libintl.h>

#include "host/document/DocumentRules.h"
#include "host/document/DocumentWriter.h"
#include "host/document/IssueDate.h"
#include "host/document/OpenQuantities.h"
#include "host/document/ResultRows.h"
#include "host/document/Transaction.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Message.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr int kNumberDigits = 9;
constexpr int kLastNumber = 999'999'999;

constexpr int kGateOpen = 1;

// Numbers are compared as numbers, but only those that could be ours: what others wrote into the column stays theirs.
constexpr char kHighestNumberSql[] =
    "select max(cast(number as integer)) from t_invoice where t_invoicestatus_1=%status and number glob '[1-9]*' and "
    "number not glob '*[^0-9]*' and length(number)<=%digits";
constexpr char kCancellingSql[] = "select min(t_invoice_id) from t_invoice where t_invoice_1=%document";
constexpr char kDerivedSql[] =
    "select min(taken.t_invoice_1) from t_invoiceitem item "
    "join t_invoiceitem taken on taken.t_invoiceitem_1=item.t_invoiceitem_id "
    "where item.t_invoice_1=%document and taken.t_invoice_1<>%document";

bool refuse(FXString& reason, const FXString& sentence) {
  reason = sentence;
  return false;
}

FXString nameOf(int id) { return FXStringFormat("#%d", id); }

/// How a document is called where it has to be found again: also a closed one with its id.
FXString nameOf(const Document& document) {
  if (!document.isStatusClosed() || document.getNumber().empty()) return document.getDisplayText();
  return FXStringFormat("%s, %s, #%d", document.getStatusName().text(), document.getNumber().text(), document.getId());
}

/// The same of a document that is not loaded.
FXString readName(const DocumentStore& store, int id) {
  FXString error;
  const auto document = store.load(id, error);
  return document ? nameOf(*document) : nameOf(id);
}

/// The id that sql finds for this document; 0 when there is none. A failure fails the transaction.
int queryAbout(TarnwellDatabase& database, const char* sql, int document) {
  Statement query(&database, sql);
  query.setInt("document", document);
  return query.queryInt(0);
}

bool giveNumber(TarnwellDatabase& database, int status, FXString& number, FXString& reason) {
  ResultRows rows;
  Statement query(&database, kHighestNumberSql);
  query.setInt("status", status);
  query.setInt("digits", kNumberDigits);
  if (!query.execute(&rows, 1)) return false;
  const int highest = rows.getInt(0, 0);
  if (highest >= kLastNumber)
    return refuse(reason, FXStringFormat(dgettext("quillane", "Elfogytak a bizonylatszámok: %d az utolsó."), highest));
  number = FXStringVal(highest + 1);
  return true;
}

// ---- moving ----

/// What a move changes of a document in memory.
struct Standing {
  explicit Standing(const Document& document)
      : status(document.getStatus()),
        closed(document.isStatusClosed()),
        gate(document.getStatusGate()),
        version(document.getVersion()),
        number(document.getNumber()),
        statusName(document.getStatusName()) {}

  void applyTo(Document& document) const {
    document.setStatus(status, closed);
    document.setStatusGate(gate);
    document.setVersion(version);
    document.setNumber(number);
    document.setStatusName(statusName);
    document.refreshDisplayText();
  }

  int status;
  bool closed;
  int gate;
  int version;
  FXString number;
  FXString statusName;
};

void loadAttachedAnew(const EntityHooks& hooks, const Document& document) {
  for (FXint i = 0; i < document.getItems().no(); ++i) hooks.load(document.getItem(i));
}

bool refuseMove(int from, FXString& reason) {
  const std::string moves = DocumentRules::listMoves(from);
  if (!moves.empty())
    return refuse(reason,
                  FXStringFormat(dgettext("quillane", "Ebből az állapotból (%d) csak ide lehet továbblépni: %s."), from,
                                 moves.c_str()));
  reason = FXStringFormat(dgettext("quillane", "Ebből az állapotból (%d) nem lehet továbblépni."), from);
  const std::string makeable = DocumentRules::listMakeable(from);
  if (!makeable.empty())
    reason += " " + FXStringFormat(dgettext("quillane", "Ilyen állapotú új bizonylat készíthető belőle: %s."),
                                   makeable.c_str());
  return false;
}

/// Whether the stored document may move, when the user has seen it in this version.
bool mayMove(const Document& stored, int seenVersion, int status, FXString& reason) {
  if (stored.getVersion() != seenVersion)
    return refuse(reason, dgettext("quillane", "Időközben máshol is mentették. Nyissa meg újra, és próbálja úgy."));
  if (!DocumentRules::mayMove(stored.getStatus(), status)) return refuseMove(stored.getStatus(), reason);
  if (stored.getStatusGate() != kGateOpen)
    return refuse(reason, dgettext("quillane", "Az állapotát rögzítették, ezért már nem változhat."));
  return true;
}

/// Whether the check finds no error. The findings about stored go before it does.
bool passesCheck(DocumentCheck& check, Document& stored, FXString& reason) {
  check.run(stored, DocumentCheck::kKeyPrefix);
  const int errors = check.countErrors();
  for (FXint i = 0; i < check.getMessages().no(); ++i) {
    const Message& message = *check.getMessages()[i];
    if (message.getSeverity() != Message::ERROR) continue;
    reason = FXStringFormat(
        dgettext("quillane", "Az ellenőrzés hibát talált (%d), ezért nem zárható le. Előbb javítsa ki. Az első: %s"),
        errors, message.getText().text());
    break;
  }
  check.clear();
  return errors == 0;
}

bool writeStanding(TarnwellDatabase& database, int id, const Standing& standing) {
  UpdateStatement update(&database, "t_invoice", "t_invoice_id=%t_invoice_id");
  update.setInt("t_invoice_id", id);
  update.setInt("t_invoicestatus_1", standing.status);
  update.setInt("statusgate", standing.gate);
  update.setInt("version", standing.version);
  if (standing.closed) update.setString("number", standing.number);
  return update.execute(nullptr, 1);
}

// ---- making one from another ----

void copyHead(const Document& source, Document& made) {
  made.setPartner(source.getPartnerId(), source.getPartnerName());
  made.setIssueDate(todayAsIssueDate());
}

DocumentItem* addCopy(const DocumentItem& source, Document& made) {
  DocumentItem* item = made.addItem();
  item->setArticle(source.getArticleKind(), source.getArticleId());
  item->setName(source.getName());
  item->setUnit(source.getUnit());
  item->setPriceText(source.getPriceText());
  return item;
}

/// Puts an item into draft for each of source's that has something open.
void addOpenItems(const DocumentStore& store, const Document& source, const OpenQuantities& open, Document& draft) {
  for (FXint i = 0; i < source.getItems().no(); ++i) {
    const DocumentItem& sourceItem = *source.getItem(i);
    if (!open.hasOpen(sourceItem)) continue;
    DocumentItem* item = addCopy(sourceItem, draft);
    item->setQuantityText(open.getOpen(sourceItem));
    item->setOrigin(InvoiceItem::ORIGIN_DERIVING, sourceItem.getId());
    store.loadAttached(*item);
  }
}

/// Stores a draft that was filled from another document.
bool writeDraft(TarnwellDatabase& database, const EntityHooks& hooks, Document& draft) {
  DocumentWriter writer(database, draft);
  if (!writer.writeDocument()) return false;
  for (FXint i = 0; i < draft.getItems().no(); ++i) {
    if (!writer.writeItem(*draft.getItem(i), i + 1)) return false;
    hooks.save(draft.getItem(i));
  }
  writer.keepKeys();
  return true;
}

/// Puts a copy of every item of source into cancelling. A copy takes from where the cancelled item took.
void addCancellingItems(const Document& source, Document& cancelling) {
  for (FXint i = 0; i < source.getItems().no(); ++i) {
    const DocumentItem& sourceItem = *source.getItem(i);
    DocumentItem* item = addCopy(sourceItem, cancelling);
    item->setQuantityText(sourceItem.getQuantityText());
    const int origin = sourceItem.getSourceItemId();
    item->setOrigin(origin > 0 ? InvoiceItem::ORIGIN_DERIVED : InvoiceItem::ORIGIN_NONE, origin);
  }
}

/// Stores a cancelling document. Attached data are copied to items that have their keys already, since a copy for an
/// item that is not stored would begin like the data of a new item.
bool writeCancelling(TarnwellDatabase& database, const EntityHooks& hooks, const Document& source,
                     Document& cancelling) {
  DocumentWriter writer(database, cancelling);
  if (!writer.writeDocument()) return false;
  for (FXint i = 0; i < cancelling.getItems().no(); ++i)
    if (!writer.writeItem(*cancelling.getItem(i), i + 1)) return false;
  for (FXint i = 0; i < cancelling.getItems().no(); ++i) {
    cancelling.getItem(i)->copyMiscData(*source.getItem(i));
    hooks.save(cancelling.getItem(i));
  }
  writer.keepKeys();
  return true;
}

bool refuseMaking(int source, int status, FXString& reason) {
  const DocumentRules::Family* family = DocumentRules::findFamilyOfCancelling(status);
  if (family && family->draft == source)
    return refuse(reason, dgettext("quillane", "Csak lezárt bizonylat sztornózható. Zárja le előbb, vagy törölje."));
  reason = FXStringFormat(dgettext("quillane", "%d állapotúból nem készíthető %d állapotú."), source, status);
  const std::string makeable = DocumentRules::listMakeable(source);
  reason += " ";
  reason += makeable.empty()
                ? FXString(dgettext("quillane", "Semmi sem készíthető belőle."))
                : FXStringFormat(dgettext("quillane", "Ilyen állapotú új bizonylat készíthető belőle: %s."),
                                 makeable.c_str());
  return false;
}

/// One document made from another: the steps inside the transaction, each of which puts what it has against it into the
/// reason.
class Making {
 public:
  Making(TarnwellDatabase& companyDatabase, const EntityHooks& moduleHooks, const DocumentStore& documentStore, int id)
      : database(companyDatabase), hooks(moduleHooks), store(documentStore), sourceId(id), name(nameOf(id)) {}

  bool run(int status, FXString& reason) {
    source = store.load(sourceId, reason);
    if (!source) return false;
    name = nameOf(*source);
    made = store.make(status, reason);
    if (!made) return false;
    copyHead(*source, *made);
    if (DocumentRules::mayCancel(source->getStatus(), status)) return cancel(reason);
    if (DocumentRules::mayDerive(source->getStatus(), status)) return derive(reason);
    return refuseMaking(source->getStatus(), status, reason);
  }

  int getMadeId() const { return made->getId(); }

  /// How the source is called.
  const FXString& getName() const { return name; }

 private:
  bool derive(FXString& reason) {
    OpenQuantities open;
    if (!open.read(database, *source, *DocumentRules::findFamilyOfDraft(made->getStatus()), reason)) return false;
    addOpenItems(store, *source, open, *made);
    if (made->getItems().no() == 0)
      return refuse(reason, dgettext("quillane",
                                     "Egyetlen tételének sincs nyitott mennyisége. Ha egy lezárt bizonylat tévesen "
                                     "vitte el, sztornózza azt előbb."));
    return writeDraft(database, hooks, *made);
  }

  bool cancel(FXString& reason) {
    if (const int earlier = queryAbout(database, kCancellingSql, source->getId()))
      return refuse(
          reason, FXStringFormat(dgettext("quillane", "Már sztornózták, ezzel: %s."), readName(store, earlier).text()));
    FXString number;
    if (!giveNumber(database, made->getStatus(), number, reason)) return false;
    made->setNumber(number);
    made->setPartnerNumber(source->getPartnerNumber());
    made->setCancelledDocumentId(source->getId());
    addCancellingItems(*source, *made);
    return writeCancelling(database, hooks, *source, *made);
  }

  TarnwellDatabase& database;
  const EntityHooks& hooks;
  const DocumentStore& store;
  int sourceId;
  FXString name;
  std::unique_ptr<Document> source;
  std::unique_ptr<Document> made;
};

// ---- deleting ----

bool mayDelete(TarnwellDatabase& database, const DocumentStore& store, const Document& document, FXString& reason) {
  if (document.isStatusClosed()) {
    const bool cancellable = DocumentRules::findFamilyOfClosed(document.getStatus()) != nullptr;
    return refuse(reason, cancellable ? dgettext("quillane", "Lezárt bizonylat. Ha téves, sztornózza.")
                                      : dgettext("quillane", "Lezárt bizonylat."));
  }
  if (const int derived = queryAbout(database, kDerivedSql, document.getId()))
    return refuse(reason, FXStringFormat(dgettext("quillane",
                                                  "Tételéből másik bizonylat tétele készült: %s. Amíg az "
                                                  "megvan, ennek is meg kell maradnia."),
                                         readName(store, derived).text()));
  if (const int cancelling = queryAbout(database, kCancellingSql, document.getId()))
    return refuse(reason, FXStringFormat(dgettext("quillane",
                                                  "Ez a bizonylat sztornózza: %s. Amíg az megvan, ennek is "
                                                  "meg kell maradnia."),
                                         readName(store, cancelling).text()));
  return true;
}

bool deleteDocument(TarnwellDatabase& database, const EntityHooks& hooks, Document& document) {
  DocumentWriter writer(database, document);
  for (FXint i = 0; i < document.getItems().no(); ++i) {
    hooks.del(document.getItem(i));
    if (!writer.deleteItem(*document.getItem(i))) return false;
  }
  return writer.deleteDocument();
}

}  // namespace

bool DocumentLife::changeStatus(Document& document, int status, FXString& error) const {
  const FXString name = nameOf(document);
  const Standing before(document);
  bool applied = false;
  FXString reason;
  const bool changed = Transaction::run(database, reason, [&](FXString& refusal) {
    if (document.getId() <= 0) return refuse(refusal, dgettext("quillane", "Még nincs elmentve. Előbb mentse el."));
    const auto stored = store.load(document.getId(), refusal);
    if (!stored) return false;
    const auto model = store.make(status, refusal);
    if (!model || !mayMove(*stored, document.getVersion(), status, refusal)) return false;
    Standing standing(*model);
    standing.version = stored->getVersion() + 1;
    standing.number = stored->getNumber();
    if (standing.closed &&
        (!passesCheck(check, *stored, refusal) || !giveNumber(database, status, standing.number, refusal)))
      return false;
    if (!writeStanding(database, document.getId(), standing)) return false;
    standing.applyTo(document);
    applied = true;
    loadAttachedAnew(hooks, document);
    return true;
  });
  if (changed) return true;
  if (applied) {
    before.applyTo(document);
    loadAttachedAnew(hooks, document);
  }
  error =
      FXStringFormat(dgettext("quillane", "A bizonylat állapota nem változott (%s): %s"), name.text(), reason.text());
  return false;
}

int DocumentLife::derive(int id, int status, FXString& error) const {
  Making making(database, hooks, store, id);
  FXString reason;
  const auto make = [&making, status](FXString& refusal) { return making.run(status, refusal); };
  if (Transaction::run(database, reason, make)) return making.getMadeId();
  error = FXStringFormat(dgettext("quillane", "Nem készült új bizonylat ebből (%s): %s"), making.getName().text(),
                         reason.text());
  return 0;
}

bool DocumentLife::remove(int id, FXString& error) const {
  FXString name = nameOf(id);
  FXString reason;
  const bool removed = Transaction::run(database, reason, [&](FXString& refusal) {
    const auto document = store.load(id, refusal);
    if (!document) return false;
    name = nameOf(*document);
    return mayDelete(database, store, *document, refusal) && deleteDocument(database, hooks, *document);
  });
  if (removed) return true;
  error = FXStringFormat(dgettext("quillane", "A bizonylat nem törölhető (%s): %s"), name.text(), reason.text());
  return false;
}

}  // namespace Quillane::Host
