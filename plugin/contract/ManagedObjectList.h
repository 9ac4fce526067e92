#pragma once

#include <fx.h>

namespace FX {

/// A list of toolkit objects that owns its members: it deletes them when it is destroyed.
/// FXObject must be T's first base, as for every list of the toolkit.
template <class T>
class FXManagedObjectListOf : public FXObjectListOf<T> {
 public:
  FXManagedObjectListOf() = default;
  FXManagedObjectListOf(const FXManagedObjectListOf&) = delete;
  FXManagedObjectListOf& operator=(const FXManagedObjectListOf&) = delete;

  ~FXManagedObjectListOf() override { deleteMembers(); }

  /// Deletes the members and leaves the list empty.
  void deleteMembers() {
    for (FXint i = 0; i < this->no(); ++i) delete this->at(i);
    this->clear();
  }
};

}  // namespace FX
