// Two values as one toolkit object, so that the toolkit's lists can hold and delete them.
#pragma once

#include <fx.h>

#include <utility>

namespace FXExt {

/// It has no meta class of its own: to the toolkit it is a plain FX::FXObject.
template <typename A, typename B>
class FXPair : public FX::FXObject {
 public:
  A first;
  B second;

  FXPair() : first(), second() {}
  FXPair(A firstValue, B secondValue) : first(std::move(firstValue)), second(std::move(secondValue)) {}
  ~FXPair() override = default;  // lists delete their pairs as FX::FXObject
};

}  // namespace FXExt
