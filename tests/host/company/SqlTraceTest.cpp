// Statements as JSON lines.
#include "host/company/SqlTrace.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace FX;

namespace Quillane::Host {
namespace {

std::string trace(const FXString& sql, const std::vector<StatementObserver::Binding>& bindings) {
  char* bytes = nullptr;
  size_t size = 0;
  FILE* stream = open_memstream(&bytes, &size);
  SqlTrace(stream).statementExecuted(sql, bindings);
  std::fclose(stream);
  std::string text(bytes, size);
  std::free(bytes);
  return text;
}

TEST(SqlTrace, writesTheTextAndTheBindingsInTheirOrder) {
  EXPECT_EQ(trace("select %b, %a", {{"b", false, "1"}, {"a", true, ""}}),
            "{\"sql\":\"select %b, %a\",\"params\":{\"b\":\"1\",\"a\":null}}\n");
}

TEST(SqlTrace, writesAStatementWithoutParameters) {
  EXPECT_EQ(trace("select 1", {}), "{\"sql\":\"select 1\",\"params\":{}}\n");
}

TEST(SqlTrace, keepsEveryStatementOnItsLine) {
  EXPECT_EQ(trace("select\n'\"\\'", {{"x", false, "a\nb\t\xFF"}}),
            "{\"sql\":\"select\\n'\\\"\\\\'\",\"params\":{\"x\":\"a\\nb\\t\xEF\xBF\xBD\"}}\n");
}

}  // namespace
}  // namespace Quillane::Host
