#pragma once

#include <fx.h>

#include <array>
#include <memory>

#include "plugin/contract/HostApi.h"

namespace Quillane::Host {

/// The host's pictures, 16 pixels in size unless their names say otherwise.
enum class Icon {
  ADD,
  REMOVE,
  EDIT,
  MOVE_UP,
  MOVE_DOWN,
  NEW_DOCUMENT,
  OPEN,
  SAVE,
  CHECK,
  NEXT_PROBLEM,
  ERROR,
  NOTICE,
  CLOSE_DOCUMENT,
  DERIVE,
  CANCEL_DOCUMENT,
  EXPORT,
  SEARCH,
  PARTNERS,
  ARTICLES,
  APPLICATION,
  APPLICATION_32,
  COUNT
};

/// The pictures, decoded once for the whole program.
class QUILLANE_HOST_API IconSet {
 public:
  explicit IconSet(FX::FXApp* application);
  ~IconSet();

  /// Makes all of them ready on the display. Buttons and menu commands do so themselves; items of lists and tables that
  /// come after their window was created do not.
  void create() const;

  /// Owned by the set.
  FX::FXIcon* get(Icon icon) const { return icons[static_cast<std::size_t>(icon)].get(); }

  IconSet(const IconSet&) = delete;
  IconSet& operator=(const IconSet&) = delete;

 private:
  std::array<std::unique_ptr<FX::FXIcon>, static_cast<std::size_t>(Icon::COUNT)> icons;
};

}  // namespace Quillane::Host
