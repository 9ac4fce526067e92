#include "tests/support/RecordingTarget.h"

#include <map>
#include <utility>

using namespace FX;

namespace TestSupport {

long RecordingTarget::handle(FXObject* sender, FXSelector sel, void* ptr) {
  static const std::map<FXuint, std::string> recorded = {
      {SEL_COMMAND, "COMMAND"},   {SEL_CHANGED, "CHANGED"},       {SEL_UPDATE, "UPDATE"},
      {SEL_KEYPRESS, "KEYPRESS"}, {SEL_KEYRELEASE, "KEYRELEASE"}, {SEL_LEFTBUTTONPRESS, "LEFTBUTTONPRESS"},
  };
  const auto type = recorded.find(FXSELTYPE(sel));
  if (type == recorded.end()) return 0;
  // The data of a key is its event.
  const bool isKey = type->first == SEL_KEYPRESS || type->first == SEL_KEYRELEASE;
  const std::string data = isKey ? std::to_string(static_cast<const FXEvent*>(ptr)->code) : describe(ptr);
  lines.push_back(type->second + " " + std::to_string(FXSELID(sel)) + (data.empty() ? "" : " " + data));
  lastSender = sender;
  lastData = ptr;
  return answered.count(type->first) != 0;
}

std::vector<std::string> RecordingTarget::take() { return std::exchange(lines, {}); }

std::string describeText(const void* data) { return data ? static_cast<const char*>(data) : ""; }

std::string describeDate(const void* data) { return data ? toText(*static_cast<const FXDate*>(data)) : ""; }

std::string toText(const FXDate& date) {
  return FXStringFormat("%04d.%02d.%02d", date.year(), date.month(), date.day()).text();
}

}  // namespace TestSupport
