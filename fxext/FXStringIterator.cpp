// Splits a text at one character, a field at a time and without copying the text.
#include "fxext/FXStringIterator.h"

using namespace FX;

namespace FXExt {

FXStringIterator::FXStringIterator(const FXString& walked, char separatedBy, int startIndex)
    : text(&walked), separator(separatedBy), start(startIndex), end(startIndex - 1), pos(0), length(walked.length()) {
  next();
  pos = 0;
}

int FXStringIterator::next() {
  ++pos;
  if (end == length) {
    end = length + 1;
    return end;
  }
  start = end + 1;
  end = text->find(separator, start);
  if (end < 0) end = length;
  return end;
}

bool FXStringIterator::hasNext() const {
  // An empty text has one field too, and so has a start index behind the text's end.
  return pos == 0 || end <= length;
}

FXString FXStringIterator::get() const { return text->mid(start, end - start); }

int FXStringIterator::getPos() const { return pos; }

FXStringIterator& FXStringIterator::operator++() {
  next();
  return *this;
}

FXStringIterator& FXStringIterator::operator++(int) {
  // On purpose: the postfix form does not return the old state either.
  next();
  return *this;
}

}  // namespace FXExt
