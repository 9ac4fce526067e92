#pragma once

#include <fx.h>

#include <functional>

class TarnwellDatabase;

namespace Quillane::Host {

/// The frame of everything that the host writes as a whole.
class Transaction {
 public:
  /// Puts the reason, a sentence for the user, into its argument and returns false when something is not allowed;
  /// returns false without a reason when a statement failed.
  using Work = std::function<bool(FX::FXString& reason)>;

  /// Runs work in a transaction of its own, which takes the write lock before. True when it was committed. Else nothing
  /// of it is left in the database, and reason is what work said, or names the first statement that failed.
  static bool run(TarnwellDatabase& database, FX::FXString& reason, const Work& work);
};

}  // namespace Quillane::Host
