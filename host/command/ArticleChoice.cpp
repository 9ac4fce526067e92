// Which article a call is about.
#include "host/command/ArticleChoice.h"

#include <libintl.h>

#include "host/command/ArgumentText.h"
#include "host/document/ResultRows.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {

void ArticleChoice::declareOptions(OptionSet& options) {
  const char* descriptions[kArticleKindCount] = {dgettext("quillane", "a termék azonosítója"),
                                                 dgettext("quillane", "a szolgáltatás azonosítója"),
                                                 dgettext("quillane", "a csomag azonosítója")};
  for (int i = 0; i < kArticleKindCount; ++i) {
    options.addOption(kArticleKinds[i].option, "ID", texts[i], descriptions[i]);
  }
}

Outcome ArticleChoice::read() {
  for (int i = 0; i < kArticleKindCount; ++i) {
    if (!texts[i]) continue;
    if (kind) {
      return Outcome::wrongCall(FXStringFormat(dgettext("quillane", "%s és %s nem adható meg együtt."), kind->option,
                                               kArticleKinds[i].option));
    }
    kind = &kArticleKinds[i];
    const Outcome outcome = readNumber(kind->option, *texts[i], id);
    if (!outcome.succeeded()) return outcome;
  }
  return Outcome::success();
}

Outcome ArticleChoice::load(TarnwellDatabase& database) {
  if (!kind) return Outcome::success();
  Host::ResultRows rows;
  Statement statement(&database,
                      FXStringFormat("select name, unit, price from %s where %s_id=%%id", kind->table, kind->table));
  statement.setInt("id", id);
  if (!statement.execute(&rows, 0)) return Outcome::refused(database.getLastError());
  if (rows.getNumRows() == 0) {
    return Outcome::refused(
        FXStringFormat(dgettext("quillane", "%s: nincs #%d azonosítójú. Az azonosítók listája: quillanectl articles"),
                       kind->option, id));
  }
  name = rows.getText(0, 0);
  unit = rows.getText(0, 1);
  price = rows.getText(0, 2);
  return Outcome::success();
}

}  // namespace Quillane::Commands
