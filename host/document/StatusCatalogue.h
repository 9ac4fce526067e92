#pragma once

#include <fx.h>

#include <vector>

class TarnwellDatabase;

namespace Quillane::Host {

/// A status that documents can have.
struct Status {
  int code = 0;
  FX::FXString name;  // in the user's language
  bool closed = false;
  int direction = 0;  // 100 outgoing, 200 incoming
};

/// The statuses of the company.
class StatusCatalogue {
 public:
  /// All of them, by their codes. False with a sentence in error when they cannot be read.
  static bool read(TarnwellDatabase& database, std::vector<Status>& statuses, FX::FXString& error);

  /// The one with this code; null when there is none.
  static const Status* find(const std::vector<Status>& statuses, int code);

  /// A stored name in the user's language, where the catalogue knows it.
  static FX::FXString translateStatusName(const FX::FXString& stored);
};

}  // namespace Quillane::Host
