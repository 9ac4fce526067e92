// A new document.
#include "host/command/AddDocumentCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"
#include "host/document/IssueDate.h"
#include "host/document/PartnerStore.h"

using namespace FX;

namespace Quillane::Commands {

const char* AddDocumentCommand::getDescription() const {
  return dgettext("quillane", "Új bizonylat, még tételek nélkül");
}

void AddDocumentCommand::declareOptions(OptionSet& options) {
  options.addOption("--status", "CODE", statusText,
                    dgettext("quillane", "az állapota; ha nincs megadva, 101, azaz kimenő számla piszkozata"));
  options.addOption("--partner", "ID", partnerText, dgettext("quillane", "a partner azonosítója"));
  options.addOption("--partner-number", "TEXT", partnerNumber,
                    dgettext("quillane", "a bejövő bizonylat száma a partnernél"));
  options.addOption("--date", "YYYY-MM-DD", dateText, dgettext("quillane", "a kelte; ha nincs megadva, a mai nap"));
}

Outcome AddDocumentCommand::readOptions() {
  date = Host::todayAsIssueDate();
  Outcome outcome = statusText ? readNumber("--status", *statusText, status) : Outcome::success();
  if (outcome.succeeded() && partnerText) outcome = readNumber("--partner", *partnerText, partner);
  if (outcome.succeeded() && dateText) outcome = readDate("--date", *dateText, date);
  return outcome;
}

Outcome AddDocumentCommand::setPartner(TarnwellDatabase& database, Host::Document& document) const {
  if (partner == 0) return Outcome::success();
  Host::Partner found;
  FXString error;
  if (!Host::PartnerStore(database).load(partner, found, error)) return Outcome::refused(error);
  document.setPartner(partner, found.name);
  return Outcome::success();
}

Outcome AddDocumentCommand::run(CommandContext& context) {
  Outcome outcome = readOptions();
  if (!outcome.succeeded()) return outcome;

  FXString error;
  const Host::DocumentStore store = context.company.getDocuments();
  const std::unique_ptr<Host::Document> document = store.make(status, error);
  if (!document) return Outcome::refused(error);
  if (document->isStatusClosed()) {
    return Outcome::refused(
        FXStringFormat(dgettext("quillane",
                                "A(z) %d állapot lezárt bizonylatoké: új bizonylat piszkozatként, díjbekérőként vagy "
                                "megrendelésként vehető fel."),
                       status));
  }
  outcome = setPartner(context.company.getDatabase(), *document);
  if (!outcome.succeeded()) return outcome;
  document->setPartnerNumber(partnerNumber.value_or(FXString()));
  document->setIssueDate(date);
  document->refreshDisplayText();
  if (!store.save(*document, error)) return Outcome::refused(error);
  context.output.writeRecord({{"id", document->getId()}});
  return outcome;
}

}  // namespace Quillane::Commands
