#pragma once

#include <fx.h>

#include <map>
#include <vector>

class TarnwellDatabase;

namespace Quillane {

class DBTablePersister;

/// What is to become of one record.
struct TableChange {
  enum Kind { DELETED, CHANGED, INSERTED };

  Kind kind;
  int key;                                      // of no meaning for INSERTED
  std::map<FX::FXString, FX::FXString> values;  // by the database's column names; none for DELETED
  FX::FXString problem;                         // for the user: that this record cannot be written
};

/// What the user has to know of a save that failed.
struct SaveFailure {
  FX::FXString problem;  // which record cannot be written, as a sentence
  FX::FXString reason;   // why, as a sentence or more
};

/// Hands the changes to the persister, one after the other, in one transaction. False when one of them cannot be
/// written: then none is, and failure tells of the first.
bool saveChanges(TarnwellDatabase& database, DBTablePersister& persister, const std::vector<TableChange>& changes,
                 SaveFailure& failure);

}  // namespace Quillane
