// The frame of everything that the host writes as a whole.
#include "host/document/Transaction.h"

#include <libintl.h>

#include "host/database/Connection.h"
#include "plugin/contract/Database.h"

using namespace FX;

namespace Quillane::Host {

bool Transaction::run(TarnwellDatabase& database, FXString& reason, const Work& work) {
  reason.clear();
  if (database.begin()) {
    const bool done = work(reason);
    if (!done && !reason.empty()) {
      database.rollback();
      return false;
    }
    // A statement that failed makes commit refuse and name the first that did, which is the one that tells: what fails
    // after it may only say that the database has given up already.
    if (!done) {
      const FXString failure = database.getLastError();
      database.getConnection().fail(failure.empty() ? FXString(dgettext("quillane", "A művelet félbeszakadt."))
                                                    : failure);
    }
    if (database.commit()) return true;
  }
  reason = database.getLastError();
  return false;
}

}  // namespace Quillane::Host
