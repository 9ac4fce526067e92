// What all commands have in common: how they are called, what they say, and what they do when the company cannot be
// used.
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "tests/host/command/ProgramFixture.h"

namespace {

class CommandLine : public ProgramFixture {
 protected:
  /// A call of every command that reads a company, and of every one that changes it.
  static std::vector<Arguments> readingCalls() {
    return {{"variables"}, {"articles"}, {"invoices"}, {"show", "6"},        {"check", "6"},
            {"text", "6"}, {"xml", "6"}, {"plugins"},  {"find", "NB14-5A01"}};
  }
  std::vector<Arguments> writingCalls() const {
    return {{"save", "6"},
            {"record", "6", "1", writeFile("table.csv", "Gyári szám\nA\nB\n")},
            {"add", "partner", "--name", "x"},
            {"add", "document"},
            {"add", "item", "--document", "6", "--name", "x"},
            {"derive", "19", "101"},
            {"status", "6", "151"},
            {"delete", "8"}};
  }
};

/// Another program that is in the middle of writing the company.
class WriteLock {
 public:
  explicit WriteLock(const std::string& file) {
    sqlite3_open(file.c_str(), &database);
    held = sqlite3_exec(database, "begin immediate; update t_partner set name=name", nullptr, nullptr, nullptr) ==
           SQLITE_OK;
  }
  ~WriteLock() { sqlite3_close(database); }
  WriteLock(const WriteLock&) = delete;
  WriteLock& operator=(const WriteLock&) = delete;

  bool held = false;

 private:
  sqlite3* database = nullptr;
};

TEST_F(CommandLine, isToldWhichCompanyByTheEnvironment) {
  makeSample();
  setVariable("QUILLANE_DB", company);
  EXPECT_EQ(runBare({"show", "6"}).output, run({"show", "6"}).output);
  setVariable("QUILLANE_DB", path("other.db"));
  EXPECT_EQ(run({"show", "6"}).status, 0);  // --db comes first
  EXPECT_EQ(runBare({"show", "6"}).status, 1);
}

TEST_F(CommandLine, saysHowToNameTheCompany) {
  for (const Arguments& call : readingCalls()) {
    if (call[0] == "plugins") continue;
    const ProgramRun result = runBare(call);
    EXPECT_EQ(result.status, 2) << call[0];
    EXPECT_EQ(result.output, "") << call[0];
    EXPECT_NE(result.errors.find("--db"), std::string::npos) << call[0];
    EXPECT_NE(result.errors.find("QUILLANE_DB"), std::string::npos) << call[0];
  }
}

TEST_F(CommandLine, makesNoFileOfAMissingCompany) {
  std::vector<Arguments> calls = readingCalls();
  for (const Arguments& call : writingCalls()) calls.push_back(call);
  for (const Arguments& call : calls) {
    const ProgramRun result = run(call);
    EXPECT_EQ(result.status, 1) << call[0];
    EXPECT_EQ(result.output, "") << call[0];
    EXPECT_NE(result.errors.find("Nincs ilyen cégfájl: " + company), std::string::npos) << call[0];
  }
  EXPECT_EQ(listFolder(), std::vector<std::string>({"table.csv"}));
}

TEST_F(CommandLine, refusesFilesThatAreNoCompany) {
  writeFile("company.db", "just a text" + std::string(2000, '.'));
  EXPECT_EQ(run({"invoices"}).status, 1);
  EXPECT_NE(run({"invoices"}).errors, "");
  std::filesystem::remove(company);
  change("create table bookmarks (id integer primary key)");
  const std::string before = dump();
  const ProgramRun result = run({"invoices"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("Nem egy cég adatai vannak benne"), std::string::npos);
  EXPECT_EQ(dump(), before);
  EXPECT_EQ(runBare({"--db", folder, "invoices"}).status, 1);
  EXPECT_EQ(runBare({"--db", ":memory:", "invoices"}).status, 1);
}

TEST_F(CommandLine, needsNoDisplay) {
  makeSample();
  setVariable("DISPLAY", ":987");  // nobody is there
  for (const Arguments& call : readingCalls()) EXPECT_EQ(run(call).status, 0) << call[0];
}

TEST_F(CommandLine, takesOptionsBeforeAndBehindTheCommand) {
  makeSample();
  EXPECT_EQ(run({"--json", "show", "6"}).output, run({"show", "6", "--json"}).output);
  EXPECT_EQ(runBare({"show", "6", "--db", company}).output, run({"show", "6"}).output);
  EXPECT_EQ(run({"add", "partner", "--name", "x", "--json"}).output.front(), '{');
}

TEST_F(CommandLine, refusesWrongCalls) {
  makeSample();
  const std::vector<std::pair<Arguments, std::string>> calls = {
      {{}, "Hiányzik a parancs."},
      {{"fly"}, "Nincs ilyen parancs: „fly”."},
      {{"--fly"}, "Nem értelmezhető: „--fly”."},
      {{"show"}, "Hiányzik: ID."},
      {{"show", "6", "7"}, "Nem értelmezhető: „7”."},
      {{"show", "6", "--fly"}, "Nem értelmezhető: „--fly”."},
      {{"record", "6", "1"}, "Hiányzik: FILE."},
      {{"invoices", "6"}, "Nem értelmezhető: „6”."},
      {{"find"}, "Hiányzik: TEXT."},
      {{"add", "partner", "--name"}, "--name: pontosan egy értéket vár."},
      {{"add", "partner", "--name", "a", "--name", "b"}, "--name: pontosan egy értéket vár."},
      {{"show", "6", "check", "6"}, "Nem értelmezhető"},
  };
  for (const auto& [arguments, sentence] : calls) {
    const ProgramRun result = run(arguments);
    EXPECT_EQ(result.status, 2) << sentence;
    EXPECT_EQ(result.output, "") << sentence;
    EXPECT_NE(result.errors.find(sentence), std::string::npos) << result.errors;
    EXPECT_NE(result.errors.find("quillanectl --help"), std::string::npos) << result.errors;
  }
  const ProgramRun nothing = runBare({"--db"});
  EXPECT_EQ(nothing.status, 2);
}

TEST_F(CommandLine, helpsWithoutACompany) {
  const ProgramRun help = runBare({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.errors, "");
  for (const char* word : {"init", "plugins", "variables", "articles", "invoices",    "show",      "check",
                           "text", "xml",     "record",    "save",     "derive",      "status",    "delete",
                           "find", "add",     "--db",      "--json",   "--trace-sql", "Használat", "QUILLANE_DB"}) {
    EXPECT_NE(help.output.find(word), std::string::npos) << word;
  }
  const ProgramRun add = runBare({"add", "--help"});
  EXPECT_EQ(add.status, 0);
  for (const char* word : {"partner", "product", "service", "suite", "variable", "assignment", "document", "item"}) {
    EXPECT_NE(add.output.find(word), std::string::npos) << word;
  }
  EXPECT_NE(runBare({"add", "variable", "--help"}).output.find("--choices"), std::string::npos);
  EXPECT_NE(runBare({"record", "--help"}).output.find("FILE"), std::string::npos);
}

TEST_F(CommandLine, helpStandsInColumns) {
  std::istringstream help(runBare({"record", "--help"}).output);
  for (std::string line; std::getline(help, line);) {
    const size_t required = line.find("(kötelező)");
    if (required == std::string::npos) continue;
    // "(kötelező)" has two letters of two bytes.
    EXPECT_EQ(line.find_first_not_of(' ', required + std::string("(kötelező)").size()), 32u) << line;
  }
}

TEST_F(CommandLine, speaksUtf8InEveryLocale) {
  makeSample();
  const std::string expected = run({"show", "6"}).output;
  const std::string errors = run({"show", "99"}).errors;
  for (const char* locale : {"C", "POSIX", "hu_HU.ISO-8859-2", "no_SUCH.locale", ""}) {
    setVariable("LANG", locale);
    EXPECT_EQ(run({"show", "6"}).output, expected) << locale;
    EXPECT_EQ(run({"show", "99"}).errors, errors) << locale;
  }
  removeVariable("LANG");
  EXPECT_EQ(run({"show", "6"}).output, expected);
}

TEST_F(CommandLine, tracesEveryStatementAsJson) {
  makeSample();
  const ProgramRun result = run({"--trace-sql", "record", "6", "1", "-"}, "Gyári szám\n\"%row \"\"x\"\"\xFF\"\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "1\t4\n");
  std::vector<Json> statements;
  std::istringstream lines(result.errors);
  for (std::string line; std::getline(lines, line);) statements.push_back(Json::parse(line));
  ASSERT_FALSE(statements.empty());
  bool found = false;
  for (const Json& statement : statements) {
    ASSERT_EQ(statement.size(), 2u);
    ASSERT_TRUE(statement["sql"].is_string());
    ASSERT_TRUE(statement["params"].is_object());
    found = found || statement["params"].value("value", "") == "%row \"x\"\xEF\xBF\xBD";
  }
  EXPECT_TRUE(found);
  EXPECT_EQ(statements.back()["sql"],
            "update t_invoice set version=ifnull(version, 0)+1 where t_invoice_id=%t_invoice_id");
  EXPECT_EQ(statements.back()["params"].dump(), R"({"t_invoice_id":"6"})");
}

TEST_F(CommandLine, tracesNullParametersAsNull) {
  makeSample();
  const ProgramRun result = run({"--trace-sql", "add", "document"});
  bool found = false;
  std::istringstream lines(result.errors);
  for (std::string line; std::getline(lines, line);) {
    const Json statement = Json::parse(line);
    if (statement["params"].contains("t_partner_1")) found = found || statement["params"]["t_partner_1"].is_null();
  }
  EXPECT_TRUE(found);
}

TEST_F(CommandLine, tracesNothingWhenNotAsked) {
  makeSample();
  EXPECT_EQ(run({"show", "6"}).errors, "");
}

TEST_F(CommandLine, readsALockedCompany) {
  makeSample();
  WriteLock lock(company);
  ASSERT_TRUE(lock.held);
  for (const Arguments& call : readingCalls()) EXPECT_EQ(run(call).status, 0) << call[0];
}

TEST_F(CommandLine, doesNotWriteALockedCompany) {
  makeSample();
  const std::string before = dump();
  const std::vector<Arguments> calls = writingCalls();
  {
    WriteLock lock(company);
    ASSERT_TRUE(lock.held);
    for (const Arguments& call : {calls[0], calls[1], calls[2], calls[5], calls[6], calls[7]}) {
      const ProgramRun result = run(call);
      EXPECT_EQ(result.status, 1) << call[0];
      EXPECT_EQ(result.output, "") << call[0];
      EXPECT_NE(result.errors, "") << call[0];
    }
  }
  EXPECT_EQ(dump(), before);
  for (const Arguments& call : calls) EXPECT_EQ(run(call).status, 0) << call[0];
}

/// Takes the right to write the company away as long as it lives.
class NoRightToWrite {
 public:
  NoRightToWrite(const std::string& companyFile, const std::string& companyFolder, mode_t folderMode)
      : file(companyFile), folder(companyFolder) {
    chmod(file.c_str(), 0444);
    chmod(folder.c_str(), folderMode);
  }
  ~NoRightToWrite() {
    chmod(folder.c_str(), 0755);
    chmod(file.c_str(), 0644);
  }
  NoRightToWrite(const NoRightToWrite&) = delete;
  NoRightToWrite& operator=(const NoRightToWrite&) = delete;

 private:
  std::string file;
  std::string folder;
};

TEST_F(CommandLine, readsAReadOnlyCompanyAndDoesNotWriteIt) {
  makeSample();
  if (!obeyPermissions()) GTEST_SKIP() << "permissions mean nothing to whoever runs this test";
  const std::string before = dump();
  const std::vector<Arguments> calls = writingCalls();
  for (const mode_t folderMode : {0755, 0555}) {
    const NoRightToWrite readOnly(company, folder, folderMode);
    for (const Arguments& call : readingCalls()) {
      const ProgramRun result = run(call);
      EXPECT_EQ(result.status, 0) << call[0] << ": " << result.errors;
    }
    for (const Arguments& call : calls) {
      const ProgramRun result = run(call);
      EXPECT_EQ(result.status, 1) << call[0];
      EXPECT_EQ(result.output, "") << call[0];
      EXPECT_NE(result.errors, "") << call[0];
    }
  }
  EXPECT_EQ(dump(), before);
}

TEST_F(CommandLine, saysThatTheOutputCouldNotBeWritten) {
  makeSample();
  const ProgramRun result = run({"invoices"}, "", "/dev/full");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("A kimenet nem írható ki teljesen."), std::string::npos);
}

TEST_F(CommandLine, saysThatACompanyIsIncomplete) {
  makeSample();
  change("drop table t_invoiceitemdata");
  setVariable("QUILLANE_PLUGIN_PATH", HOLLOW_MODULE_FOLDER);
  const ProgramRun result = run({"show", "6"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("A cég adatai hiányosak: " + company), std::string::npos);
}

TEST_F(CommandLine, showsAndRecordsWithoutTheModulesHelp) {
  makeSample();
  setVariable("QUILLANE_PLUGIN_PATH", HOLLOW_MODULE_FOLDER);
  EXPECT_EQ(runJson({"show", "6"})["items"][0]["values"].size(), 8u);
  EXPECT_EQ(runJson({"record", "6", "1", "-"}, "Gyári szám\nA\n")["values"], 4);
  EXPECT_EQ(runJson({"find", "A"}).size(), 1u);
}

}  // namespace
