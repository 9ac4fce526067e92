// The program's command line.
#include "host/desktop/DesktopProgram.h"

#include <gmock/gmock.h>

#include <string>

#include "tests/support/TestCompany.h"

using testing::HasSubstr;
using testing::IsEmpty;

namespace Quillane::Desktop {
namespace {

struct Call {
  bool goesOn = false;
  int exitStatus = -1;
  DesktopOptions options;
  std::string output;
  std::string errors;
};

std::string take(FILE* stream) {
  std::string text(4096, '\0');
  std::rewind(stream);
  text.resize(std::fread(text.data(), 1, text.size(), stream));
  std::fclose(stream);
  return text;
}

Call call(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "quillane");
  Call result;
  FILE* output = std::tmpfile();
  FILE* errors = std::tmpfile();
  result.goesOn = DesktopProgram::readOptions(static_cast<int>(arguments.size()), arguments.data(), result.options,
                                              result.exitStatus, output, errors);
  result.output = take(output);
  result.errors = take(errors);
  return result;
}

TEST(DesktopProgram, goesOnWithoutOptions) {
  const Call result = call({});
  EXPECT_TRUE(result.goesOn);
  EXPECT_TRUE(result.options.file.empty());
  EXPECT_FALSE(result.options.traceSql);
  EXPECT_THAT(result.output + result.errors, IsEmpty());
}

TEST(DesktopProgram, takesTheFileAndTheTrace) {
  const Call result = call({"--db", "/tmp/Cég 1.db", "--trace-sql"});
  EXPECT_TRUE(result.goesOn);
  EXPECT_STREQ(result.options.file.text(), "/tmp/Cég 1.db");
  EXPECT_TRUE(result.options.traceSql);
}

TEST(DesktopProgram, printsItsHelpAndEnds) {
  const Call result = call({"--help"});
  EXPECT_FALSE(result.goesOn);
  EXPECT_EQ(result.exitStatus, 0);
  EXPECT_THAT(result.output, HasSubstr("--trace-sql"));
}

TEST(DesktopProgram, refusesWhatItDoesNotKnow) {
  const Call result = call({"--wrong"});
  EXPECT_FALSE(result.goesOn);
  EXPECT_EQ(result.exitStatus, 2);
  EXPECT_THAT(result.errors, HasSubstr("„--wrong”"));
}

TEST(DesktopProgram, refusesAnOptionWithoutItsFile) {
  const Call result = call({"--db"});
  EXPECT_FALSE(result.goesOn);
  EXPECT_EQ(result.exitStatus, 2);
  EXPECT_THAT(result.errors, HasSubstr("--db kapcsoló után"));
}

TEST(DesktopProgram, showsTheTipsOfItsWindows) {
  FX::FXWindow* root = testAccount().getRootWindow();
  DesktopProgram::setLook(testAccount());
  EXPECT_NE(dynamic_cast<FX::FXToolTip*>(root->getLast()), nullptr);
  delete root->getLast();
}

}  // namespace
}  // namespace Quillane::Desktop
