// A new item. It goes through the entity hooks as an item that a person adds does, so that modules begin their data.
#include "host/command/AddItemCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"

using namespace FX;

namespace Quillane::Commands {

const char* AddItemCommand::getDescription() const { return dgettext("quillane", "Új tétel egy bizonylat végén"); }

void AddItemCommand::declareOptions(OptionSet& options) {
  options.addRequiredOption("--document", "ID", documentText, dgettext("quillane", "a bizonylat azonosítója"));
  article.declareOptions(options);
  options.addOption("--quantity", "NUMBER", typedQuantity, dgettext("quillane", "a mennyiség; ha nincs megadva, 1"));
  options.addOption("--price", "NUMBER", typedPrice, dgettext("quillane", "az egységár"));
  options.addOption("--name", "TEXT", givenName, dgettext("quillane", "a megnevezés"));
  options.addOption("--unit", "TEXT", givenUnit, dgettext("quillane", "a mennyiségi egység"));
}

Outcome AddItemCommand::readOptions() {
  Outcome outcome = readNumber("--document", documentText, documentId);
  if (outcome.succeeded()) outcome = article.read();
  if (outcome.succeeded() && typedQuantity) outcome = readDecimal("--quantity", *typedQuantity, quantity);
  if (outcome.succeeded() && typedPrice) outcome = readDecimal("--price", *typedPrice, price);
  if (!outcome.succeeded()) return outcome;
  if (!article.getKind() && (!givenName || givenName->empty())) {
    return Outcome::wrongCall(dgettext("quillane",
                                       "Hiányzik, hogy mi legyen a tétel: --product, --service, --suite, "
                                       "vagy ezek nélkül --name."));
  }
  return outcome;
}

Outcome AddItemCommand::takeOverArticle(TarnwellDatabase& database) {
  const Outcome outcome = article.load(database);
  if (article.getKind()) {
    name = article.getName();
    unit = article.getUnit();
    if (!typedPrice) price = article.getPrice();
  }
  name = givenName.value_or(name);
  unit = givenUnit.value_or(unit);
  return outcome;
}

Outcome AddItemCommand::run(CommandContext& context) {
  Outcome outcome = readOptions();
  if (outcome.succeeded()) outcome = takeOverArticle(context.company.getDatabase());
  if (!outcome.succeeded()) return outcome;

  FXString error;
  const Host::DocumentStore store = context.company.getDocuments();
  const std::unique_ptr<Host::Document> document = store.load(documentId, error);
  if (!document) return Outcome::refused(error);
  Host::DocumentItem& item = *document->addItem();
  if (article.getKind()) item.setArticle(article.getKind()->code, article.getId());
  item.setName(name);
  item.setUnit(unit);
  item.setQuantityText(quantity);
  item.setPriceText(price);
  store.loadAttached(item);
  if (!store.save(*document, error)) return Outcome::refused(error);
  context.output.writeRecord({{"id", item.getId()}});
  return outcome;
}

}  // namespace Quillane::Commands
