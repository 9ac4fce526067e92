// Plain lines and JSON.
#include "host/command/Output.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace FX;

namespace Quillane::Commands {
namespace {

using Json = Output::Json;

/// A file in memory.
class Written {
 public:
  Written() : file(open_memstream(&bytes, &size)) {}
  ~Written() {
    std::fclose(file);
    std::free(bytes);
  }
  Written(const Written&) = delete;
  Written& operator=(const Written&) = delete;

  FILE* stream() const { return file; }

  std::string text() const {
    std::fflush(file);
    return std::string(bytes, size);
  }

 private:
  char* bytes = nullptr;
  size_t size = 0;
  FILE* file;
};

TEST(Output, escapesTabsLineEndsAndBackslashes) {
  EXPECT_STREQ(Output::escape("a\tb\nc\rd\\e").text(), "a\\tb\\nc\\rd\\\\e");
  EXPECT_STREQ(Output::escape("\\t").text(), "\\\\t");
  EXPECT_STREQ(Output::escape("").text(), "");
  EXPECT_STREQ(Output::escape("árvíz %s \"'; 😀").text(), "árvíz %s \"'; 😀");
}

TEST(Output, writesRecordsAsLines) {
  Written written;
  Output output(written.stream());
  output.writeRecords(Json::parse(R"([{"b":1,"a":"x\ty"},{"b":null,"a":""},{"b":true,"a":"z"}])"));
  EXPECT_EQ(written.text(), "1\tx\\ty\n\t\ntrue\tz\n");
}

TEST(Output, writesNothingForNoRecords) {
  Written written;
  Output output(written.stream());
  output.writeRecords(Json::array());
  EXPECT_EQ(written.text(), "");
}

TEST(Output, writesRecordsAsOneJsonArrayInTheOrderOfTheirKeys) {
  Written written;
  Output output(written.stream(), true);
  output.writeRecords(Json::parse(R"([{"b":1,"a":"x\ty"}])"));
  EXPECT_EQ(written.text(), "[\n  {\n    \"b\": 1,\n    \"a\": \"x\\ty\"\n  }\n]\n");
}

TEST(Output, writesNoRecordsAsAnEmptyArray) {
  Written written;
  Output output(written.stream(), true);
  output.writeRecords(Json::array());
  EXPECT_EQ(written.text(), "[]\n");
}

TEST(Output, replacesBytesThatAreNoUtf8InJsonOnly) {
  Written plain;
  Written json;
  const Json record = {{"a", Output::toJson("x\xFFy")}};
  Output(plain.stream()).writeRecord(record);
  Output(json.stream(), true).writeRecord(record);
  EXPECT_EQ(plain.text(), "x\xFFy\n");
  EXPECT_EQ(json.text(), "{\n  \"a\": \"x\xEF\xBF\xBDy\"\n}\n");
}

TEST(Output, keepsTheWholeOfATextWithZeroBytes) {
  const FXString text("a\0b", 3);
  EXPECT_EQ(Output::toJson(text).get<std::string>(), std::string("a\0b", 3));
  Written written;
  Output(written.stream()).writeText(text);
  EXPECT_EQ(written.text(), std::string("a\0b", 3));
}

TEST(Output, writesALongFieldWhole) {
  Written written;
  const std::string field(1024 * 1024, 'x');
  Output(written.stream()).writeLine({FXString(field.c_str()), "y"});
  EXPECT_EQ(written.text(), field + "\ty\n");
}

TEST(Output, tellsWhenItCouldNotBeWritten) {
  FILE* full = std::fopen("/dev/full", "w");
  ASSERT_NE(full, nullptr);
  Output output(full);
  output.writeText("x");
  EXPECT_FALSE(output.flush());
  std::fclose(full);
  Written written;
  EXPECT_TRUE(Output(written.stream()).flush());
}

TEST(Output, writesOneLineOfJson) {
  EXPECT_EQ(Output::toJsonLine({{"b", "x\ny"}, {"a", nullptr}}), R"({"b":"x\ny","a":null})");
}

}  // namespace
}  // namespace Quillane::Commands
