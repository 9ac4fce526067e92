// Assigns a field to an article, behind those that it has already.
#include "host/command/AddAssignmentCommand.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"
#include "host/command/Wording.h"
#include "host/document/ResultRows.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr char kVariableSql[] =
    "select count(*) from t_itemvariable where t_itemvariable_id=%id and type between 1 and 99";

constexpr int kOutgoing = 100;
constexpr int kIncoming = 200;

/// One row: how often the variable is assigned already, and the place behind the last one.
FXString assignedSql(const ArticleKind& kind) {
  return FXStringFormat(
      "select count(case when t_itemvariable_1=%%variable then 1 end), ifnull(max(position), 0)+1 from %s "
      "where %s=%%article and direction=%%direction",
      kind.assignmentTable, kind.reference);
}

}  // namespace

const char* AddAssignmentCommand::getDescription() const {
  return dgettext("quillane", "Mező hozzárendelése egy termékhez, szolgáltatáshoz vagy csomaghoz");
}

void AddAssignmentCommand::declareOptions(OptionSet& options) {
  article.declareOptions(options);
  options.addRequiredOption("--variable", "ID", variableText, dgettext("quillane", "a mező azonosítója"));
  options.addRequiredOption("--direction", "out|in", directionName,
                            dgettext("quillane", "kimenő vagy bejövő bizonylatokon"));
}

Outcome AddAssignmentCommand::readOptions() {
  Outcome outcome = article.read();
  if (outcome.succeeded()) outcome = readNumber("--variable", variableText, variable);
  if (!outcome.succeeded()) return outcome;
  if (!article.getKind()) {
    return Outcome::wrongCall(
        dgettext("quillane", "Hiányzik, hogy mihez tartozzon a mező: --product, --service vagy --suite."));
  }
  if (directionName == "out") direction = kOutgoing;
  if (directionName == "in") direction = kIncoming;
  if (direction != 0) return outcome;
  return Outcome::wrongCall(
      FXStringFormat(dgettext("quillane", "--direction: nincs ilyen irány: „%s”. Lehet out vagy in."),
                     quoteText(directionName).text()));
}

Outcome AddAssignmentCommand::findReferences(TarnwellDatabase& database) {
  const Outcome outcome = article.load(database);
  if (!outcome.succeeded()) return outcome;
  Statement statement(&database, kVariableSql);
  statement.setInt("id", variable);
  if (statement.queryInt(0) > 0) return outcome;
  return Outcome::refused(FXStringFormat(
      dgettext("quillane", "Nincs #%d azonosítójú mező. A mezők listája: quillanectl variables"), variable));
}

Outcome AddAssignmentCommand::insert(TarnwellDatabase& database, int& id) {
  const Outcome outcome = findReferences(database);
  if (!outcome.succeeded()) return outcome;

  const ArticleKind& kind = *article.getKind();
  Host::ResultRows assigned;
  Statement query(&database, assignedSql(kind));
  query.setInt("variable", variable);
  query.setInt("article", article.getId());
  query.setInt("direction", direction);
  if (!query.execute(&assigned, 1)) return Outcome::refused(database.getLastError());
  if (assigned.getInt(0, 0) > 0) {
    return Outcome::refused(dgettext("quillane", "A mező ebben az irányban már hozzá van rendelve."));
  }

  InsertStatement statement(&database, kind.assignmentTable);
  statement.setInt(kind.reference, article.getId());
  statement.setInt("t_itemvariable_1", variable);
  statement.setInt("position", assigned.getInt(0, 1));
  statement.setInt("direction", direction);
  return insertWithKey(database, statement, kind.assignmentTable, id);
}

}  // namespace Quillane::Commands
