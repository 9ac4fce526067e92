#pragma once

#include <cstdlib>

/// An owning array of pointers: whoever makes an object for a window puts it here, and it is deleted with the guard.
/// Null elements are allowed. T needs a virtual destructor when objects of derived classes are put in.
template <class T>
class MemoryGuard {
 public:
  MemoryGuard() = default;
  MemoryGuard(const MemoryGuard&) = delete;
  MemoryGuard& operator=(const MemoryGuard&) = delete;

  ~MemoryGuard() {
    for (int i = 0; i < count; ++i) delete array[i];
    std::free(array);
  }

  /// Takes ownership of element.
  void append(T* element) {
    T** grown = static_cast<T**>(std::realloc(array, sizeof(T*) * (count + 1u)));
    if (!grown) std::abort();
    array = grown;
    array[count++] = element;
  }

  int getCount() const { return count; }

  /// The element at index, 0 … getCount() - 1; stays owned by the guard.
  T* operator[](int index) const { return array[index]; }

 private:
  T** array = nullptr;  // owned, as are its elements
  int count = 0;
};
