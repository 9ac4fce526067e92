// A message target that writes down what widgets tell it.
#pragma once

#include <fx.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace TestSupport {

/// Records commands, changes, updates, keys and left presses as lines of their type, their id and what `describe` makes
/// of their data: "CHANGED 7 2024.05.06". Answers 0, and 1 to the types in `answered`.
class RecordingTarget : public FX::FXObject {
 public:
  using Describe = std::function<std::string(const void* data)>;

  explicit RecordingTarget(Describe describeData) : describe(std::move(describeData)) {}

  long handle(FX::FXObject* sender, FX::FXSelector sel, void* ptr) override;

  /// The lines received since the last call.
  std::vector<std::string> take();

  std::set<FX::FXuint> answered;       // message types that are answered with 1
  FX::FXObject* lastSender = nullptr;  // who sent the last line
  const void* lastData = nullptr;      // and its data

 private:
  Describe describe;
  std::vector<std::string> lines;
};

/// The text of characters ending with 0; nothing for null.
std::string describeText(const void* data);

/// The FXDate as "2024.05.06"; nothing for null.
std::string describeDate(const void* data);

/// "2024.05.06".
std::string toText(const FX::FXDate& date);

}  // namespace TestSupport
