#pragma once

#include <fx.h>

#include "plugin/contract/Schema.h"

class TarnwellDatabase;

namespace Quillane::Host {

/// The host's own tables. Modules have theirs beside them, in schemas of their own.
class CompanyModel : public Model::Schema {
 public:
  CompanyModel();
};

/// Brings the host's own tables up to date and puts in the statuses that are missing; rows that are there stay as they
/// are, and nothing is written when nothing is missing. Uses the running transaction if there is one. False with a
/// sentence in error when it failed; the next call goes on from there.
bool syncCompany(TarnwellDatabase& database, FX::FXString& error);

}  // namespace Quillane::Host
