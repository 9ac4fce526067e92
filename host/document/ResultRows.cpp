// The rows of a result, kept until they are asked for.
#include "host/document/ResultRows.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

using namespace FX;

namespace Quillane::Host {

bool ResultRows::processValue(int column, const char* name, const char* value) {
  if (column == 0) values.emplace_back();
  values.back().emplace_back(value ? value : "");
  return DataBaseValueLoader::processValue(column, name, value);
}

int ResultRows::getInt(int row, int column) const {
  const long long number = std::strtoll(getText(row, column).text(), nullptr, 10);
  return static_cast<int>(
      std::clamp<long long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

}  // namespace Quillane::Host
