#pragma once

#include <fx.h>

#include <vector>

class TarnwellDatabase;

namespace Quillane::Host {

/// A customer or a supplier.
struct Partner {
  int id = 0;  // 0 as long as it is not stored
  FX::FXString name;
  FX::FXString address;
  FX::FXString taxNumber;
};

/// The company's partners. What could not be done comes back as a sentence for the user in error.
class PartnerStore {
 public:
  /// The database is not owned and has to outlive the store.
  explicit PartnerStore(TarnwellDatabase& companyDatabase) : database(companyDatabase) {}

  /// All partners, by their names.
  bool list(std::vector<Partner>& partners, FX::FXString& error) const;

  /// The partner with this id. False also when there is none.
  bool load(int id, Partner& partner, FX::FXString& error) const;

  /// Stores a new or changed partner; blanks around its texts are dropped, and a new one gets its id. Refuses an empty
  /// name. When it could not be stored the partner is as it was.
  bool save(Partner& partner, FX::FXString& error) const;

 private:
  TarnwellDatabase& database;
};

}  // namespace Quillane::Host
