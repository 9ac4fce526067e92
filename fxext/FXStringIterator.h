// Walks the fields of a text that one character separates.
#pragma once

#include <fx.h>

namespace FXExt {

/// Construct; while hasNext(): use get() and getPos(), then ++. The text is not copied and must outlive the iterator.
/// Every text has at least one field, which may be empty. Not to be advanced once the walk is over.
class FXStringIterator {
 public:
  /// Stands on the first field, which begins at startIndex (0 or more).
  FXStringIterator(const FX::FXString& walked, char separatedBy, int startIndex);

  /// Advances to the following field. Returns the index of the separator that ends it, the text's length for the last
  /// field, or that length + 1 when there was no following field.
  int next();

  /// Whether the current field exists, despite the name.
  bool hasNext() const;

  /// The current field, without its separator.
  FX::FXString get() const;

  /// The number of the current field, 0 for the first.
  int getPos() const;

  /// Both advance and return the iterator itself.
  FXStringIterator& operator++();
  FXStringIterator& operator++(int);

 private:
  const FX::FXString* text;  // the caller's
  char separator;
  int start;   // index of the current field's first character
  int end;     // index behind its last; the text's length + 1 once the walk is over
  int pos;     // number of the current field
  int length;  // of the text, at construction
};

}  // namespace FXExt
