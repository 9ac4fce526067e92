// The bound values of a statement, in the order of binding.
#include "host/database/StatementBody.h"

namespace Quillane::Database {

namespace {

constexpr size_t kUsualLength = 1024;  // of a text, in bytes
constexpr size_t kUsualValues = 32;

}  // namespace

BoundValue& StatementBody::place(std::string_view name) {
  for (size_t i = 0; i < bound; ++i)
    if (values[i].name == name) return values[i];
  if (bound == values.size()) values.emplace_back();
  BoundValue& value = values[bound++];
  value.name = name;
  return value;
}

const BoundValue* StatementBody::find(std::string_view name) const {
  for (const BoundValue& value : *this)
    if (value.name == name) return &value;
  return nullptr;
}

void StatementBody::clear() {
  connection = nullptr;
  kind = Kind::None;
  table.clear();
  where.clear();
  cached = nullptr;
  next = previous = nullptr;
  if (values.size() > kUsualValues) values.resize(kUsualValues);
  for (size_t i = 0; i < bound && i < values.size(); ++i)
    if (values[i].text.capacity() > kUsualLength) std::string().swap(values[i].text);
  bound = 0;
}

}  // namespace Quillane::Database
