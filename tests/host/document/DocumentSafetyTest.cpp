// What nothing may destroy: documents while programs are killed, work at the same time, or run out of space.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "plugin/contract/Statement.h"
#include "tests/host/document/DyingProcess.h"
#include "tests/host/document/LivingCompany.h"

using namespace FX;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace Quillane::Host {
namespace {

constexpr int kQuantity = LivingCompany::kQuantity;
constexpr int kNote = LivingCompany::kNote;
constexpr int kSerial = LivingCompany::kSerial;

/// A boiler with three unit rows on a document of this status.
int addBoilers(const LivingCompany& company, int status) {
  const int id = company.add(status, {{LivingCompany::BOILER, "3"}, {LivingCompany::STRING, "2"}});
  company.record(company.itemOf(id), {{0, kNote, "sürgős"}});
  for (int row = 1; row <= 3; ++row)
    company.record(company.itemOf(id), {{row, kQuantity, "1"}, {row, kSerial, "S-" + std::to_string(row)}});
  return id;
}

/// A draft with values, saved with one item more, one less and another value.
bool saveChanged(const LivingCompany& company, int id) {
  const auto document = company.load(id);
  document->setPartnerNumber("változott");
  document->removeItem(1);
  DocumentItem* item = document->addItem();
  item->setArticle(InvoiceItem::ARTICLE_PRODUCT, LivingCompany::PAINTING);
  item->setName("Festés");
  item->setQuantityText("4");
  company.getStore().loadAttached(*item);
  FXString error;
  return company.getStore().save(*document, error);
}

// ---- killed ----

struct Killed {
  const char* name;
  std::function<int(const LivingCompany&)> prepare;          // returns the document
  std::function<bool(const LivingCompany&, int)> operation;  // done by the process that is killed
};

void PrintTo(const Killed& killed, std::ostream* out) { *out << killed.name; }

class KilledProcess : public testing::TestWithParam<Killed> {
 protected:
  enum class Place { Statement, FileChange };

  void SetUp() override {
    document = GetParam().prepare(company);
    before = company.dump();
    company.close();
    content = company.readFile();
    EXPECT_EQ(waitFor(startProgram(company, [this] { return GetParam().operation(company, document); })), 0);
    company.open();
    after = company.dump();
    ASSERT_NE(before, after);
  }

  /// Kills the operation at its first, second, third ... place until it survives.
  void killEverywhere(Place place) {
    int untouched = 0;
    int survived = 0;
    bool sawAfter = false;
    for (int number = 1; !survived; ++number) {
      ASSERT_LT(number, 2000);
      company.close();
      company.writeFile(content);
      const int status = waitFor(start(place, number));
      if (WIFEXITED(status)) {
        ASSERT_EQ(WEXITSTATUS(status), 0);
        survived = number;
      } else {
        ASSERT_EQ(WTERMSIG(status), SIGKILL);
      }
      company.open();
      const std::string found = company.dump();
      if (found == before) {
        ++untouched;
        EXPECT_FALSE(sawAfter) << "killed later, and yet less was done; place " << number;
      } else {
        sawAfter = true;
        ASSERT_EQ(found, after) << "killed at place " << number;
      }
      EXPECT_EQ(company.query("pragma integrity_check"), "ok");
      EXPECT_EQ(company.query("select count(*) from pragma_foreign_key_check"), "0");
    }
    EXPECT_TRUE(sawAfter);
    EXPECT_GT(untouched, 3);
    RecordProperty("places", survived);
  }

  pid_t start(Place place, int number) {
    if (place == Place::Statement)
      return startProgram(company, [this, number] {
        DyingObserver observer(number);
        company.getDatabase().setObserver(&observer);
        const bool done = GetParam().operation(company, document);
        company.getDatabase().setObserver(nullptr);
        return done;
      });
    return startProgram(company, [this, number] {
      company.close();
      dieAtFileChange(number);
      company.open();
      company.run("pragma synchronous = full");
      return GetParam().operation(company, document);
    });
  }

  LivingCompany company;
  int document = 0;
  std::string content;
  std::string before;
  std::string after;
};

TEST_P(KilledProcess, leavesTheDocumentEitherOldOrNewAtEveryStatement) { killEverywhere(Place::Statement); }

TEST_P(KilledProcess, leavesTheDocumentEitherOldOrNewAtEveryChangeOfAFile) { killEverywhere(Place::FileChange); }

std::string makeDocument(const LivingCompany& company, int id, int status) {
  int made = 0;
  return company.derive(id, status, made);
}

const Killed kKilled[] = {
    {"save", [](const LivingCompany& company) { return addBoilers(company, 101); }, saveChanged},
    {"derive", [](const LivingCompany& company) { return addBoilers(company, 451); },
     [](const LivingCompany& company, int id) { return makeDocument(company, id, 101).empty(); }},
    {"cancel", [](const LivingCompany& company) { return addBoilers(company, 151); },
     [](const LivingCompany& company, int id) { return makeDocument(company, id, 152).empty(); }},
    {"close", [](const LivingCompany& company) { return addBoilers(company, 401); },
     [](const LivingCompany& company, int id) { return company.move(id, 451).empty(); }},
    {"delete", [](const LivingCompany& company) { return addBoilers(company, 101); },
     [](const LivingCompany& company, int id) { return company.remove(id).empty(); }},
};

INSTANTIATE_TEST_SUITE_P(Operations, KilledProcess, testing::ValuesIn(kKilled),
                         [](const auto& param) { return std::string(param.param.name); });

// ---- two programs ----

class TwoPrograms : public testing::Test {
 protected:
  LivingCompany company;
};

TEST_F(TwoPrograms, refuseTheSecondSaveOfAStaleCopyAndLoseNothing) {
  const int id = addBoilers(company, 101);
  const auto ours = company.load(id);
  runOtherProgram(company, [&] { return saveChanged(company, id); });
  const std::string theirs = company.dump();

  ours->setPartnerNumber("miénk");
  ours->getItem(0)->setQuantityText("7");
  FXString error;
  EXPECT_FALSE(company.getStore().save(*ours, error));
  EXPECT_THAT(error.text(), HasSubstr("időközben máshol is mentették"));
  EXPECT_EQ(company.dump(), theirs);
  EXPECT_EQ(ours->getPartnerNumber(), "miénk") << "what was typed is still there";
  EXPECT_EQ(ours->getItem(0)->getQuantityText(), "7");

  const auto anew = company.load(id);
  anew->setPartnerNumber(ours->getPartnerNumber());
  EXPECT_TRUE(company.getStore().save(*anew, error)) << error.text();
}

TEST_F(TwoPrograms, refuseToCloseAStaleCopy) {
  const int id = addBoilers(company, 101);
  const auto ours = company.load(id);
  runOtherProgram(company, [&] { return saveChanged(company, id); });
  const std::string theirs = company.dump();
  DocumentCheck check;
  FXString error;
  EXPECT_FALSE(DocumentLife(company.getDatabase(), LivingCompany::getHooks(), check).changeStatus(*ours, 151, error));
  EXPECT_THAT(error.text(), HasSubstr("Időközben máshol is mentették"));
  EXPECT_EQ(company.dump(), theirs);
}

TEST_F(TwoPrograms, countOneRowOfNumbersTogether) {
  constexpr int kPrograms = 4;
  constexpr int kEach = 8;
  std::vector<std::vector<int>> drafts(kPrograms);
  for (auto& own : drafts)
    for (int i = 0; i < kEach; ++i) own.push_back(company.add(101, {{LivingCompany::STRING, "1"}}));
  company.close();
  std::vector<pid_t> programs;
  for (const auto& own : drafts)
    programs.push_back(startProgram(company, [&] {
      for (const int id : own) {
        const std::string refusal = company.move(id, 151);
        EXPECT_EQ(refusal, "");
      }
      return true;
    }));
  for (const pid_t program : programs) EXPECT_EQ(waitFor(program), 0);
  company.open();
  EXPECT_EQ(company.query("select group_concat(number, ' ') from (select number from t_invoice order by "
                          "cast(number as integer))"),
            "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32");
}

TEST_F(TwoPrograms, cancelADocumentOnceBetweenThem) {
  const int invoice = addBoilers(company, 151);
  company.close();
  std::vector<pid_t> programs;
  for (int i = 0; i < 4; ++i)
    programs.push_back(startProgram(company, [&] { return makeDocument(company, invoice, 152).empty(); }));
  int done = 0;
  for (const pid_t program : programs) done += waitFor(program) == 0;
  company.open();
  EXPECT_EQ(done, 1);
  EXPECT_EQ(company.query("select count(*) from t_invoice where t_invoicestatus_1=152"), "1");
}

TEST_F(TwoPrograms, deriveOrDeleteTheSameDocumentButNeverHalfOfBoth) {
  for (int round = 0; round < 5; ++round) {
    const int order = addBoilers(company, 801);
    company.close();
    const pid_t deriving = startProgram(company, [&] { return makeDocument(company, order, 101).empty(); });
    const pid_t deleting = startProgram(company, [&] { return company.remove(order).empty(); });
    const bool derived = waitFor(deriving) == 0;
    const bool deleted = waitFor(deleting) == 0;
    company.open();
    EXPECT_NE(derived, deleted);
    EXPECT_EQ(company.query("select count(*) from t_invoice where t_invoice_id=" + std::to_string(order)),
              deleted ? "0" : "1");
    EXPECT_EQ(company.query("select count(*) from t_invoiceitem where originmode=2 and t_invoiceitem_1 is null"), "0");
    company.run("delete from t_invoice");
  }
}

// ---- locked, full ----

struct Operation {
  const char* name;
  int status;  // of the document that it is done to
  std::function<std::string(const LivingCompany&, int)> run;
};

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

/// Saves a draft with a text that takes some room.
std::string saveMuch(const LivingCompany& company, int id) {
  const auto document = company.load(id);
  FXString name;
  name.append('y', 200000);
  document->getItem(0)->setName(name);
  FXString error;
  return company.getStore().save(*document, error) ? "" : error.text();
}

const Operation kOperations[] = {
    {"save", 101, saveMuch},
    {"close", 101, [](const LivingCompany& company, int id) { return company.move(id, 151); }},
    {"move", 102, [](const LivingCompany& company, int id) { return company.move(id, 101); }},
    {"derive", 451, [](const LivingCompany& company, int id) { return makeDocument(company, id, 101); }},
    {"cancel", 451, [](const LivingCompany& company, int id) { return makeDocument(company, id, 452); }},
    {"delete", 401, [](const LivingCompany& company, int id) { return company.remove(id); }},
};

class TroubledDatabase : public testing::TestWithParam<Operation> {
 protected:
  LivingCompany company;
};

TEST_P(TroubledDatabase, isLockedAndStaysAsItWas) {
  const int id = addBoilers(company, GetParam().status);
  const std::string before = company.dump();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(company.getFile().c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_THAT(GetParam().run(company, id),
              AllOf(HasSubstr("Az adatbázist egy másik program zárolja."), HasSubstr("#" + std::to_string(id))));
  EXPECT_FALSE(company.getDatabase().isInTransaction());
  ASSERT_EQ(sqlite3_exec(other, "rollback", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(other);
  EXPECT_EQ(company.dump(), before);
  EXPECT_EQ(GetParam().run(company, id), "") << "it works when the other has gone";
}

TEST_P(TroubledDatabase, isReadByAnotherAtTheCommitAndStaysAsItWas) {
  const int id = addBoilers(company, GetParam().status);
  const std::string before = company.dump();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(company.getFile().c_str(), &other), SQLITE_OK);
  // A reader keeps the commit from writing, but nothing before it.
  ASSERT_EQ(sqlite3_exec(other, "begin", nullptr, nullptr, nullptr), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "select * from t_invoice", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_THAT(GetParam().run(company, id), HasSubstr("Az adatbázist egy másik program zárolja."));
  EXPECT_FALSE(company.getDatabase().isInTransaction());
  ASSERT_EQ(sqlite3_exec(other, "rollback", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(other);
  EXPECT_EQ(company.dump(), before);
  EXPECT_EQ(GetParam().run(company, id), "");
}

TEST_P(TroubledDatabase, failsInTheMiddleAndStaysAsItWas) {
  const int id = addBoilers(company, GetParam().status);
  company.close();
  const std::string content = company.readFile();
  int failed = 0;
  for (const char* table : {"t_invoice", "t_invoiceitem", "t_invoiceitemdata"})
    for (const char* event : {"insert", "update", "delete"}) {
      company.close();
      company.writeFile(content);
      company.open();
      const std::string before = company.dump();
      company.run("create trigger trouble before " + std::string(event) + " on " + table +
                  " begin select raise(abort, 'baj van'); end");
      const std::string refusal = GetParam().run(company, id);
      if (refusal.empty()) continue;  // it does nothing of the kind
      ++failed;
      EXPECT_THAT(refusal, HasSubstr("baj van"));
      EXPECT_FALSE(company.getDatabase().isInTransaction());
      EXPECT_EQ(company.dump(), before) << event << " " << table;
    }
  EXPECT_GT(failed, 0);
}

INSTANTIATE_TEST_SUITE_P(Operations, TroubledDatabase, testing::ValuesIn(kOperations),
                         [](const auto& param) { return std::string(param.param.name); });

class FullDatabase : public TroubledDatabase {};

TEST_P(FullDatabase, staysAsItWas) {
  const int id = addBoilers(company, GetParam().status);
  company.record(company.itemOf(id), {{4, kQuantity, "0.0"}, {4, kSerial, std::string(200000, 'x')}});
  const std::string before = company.dump();
  company.run("pragma max_page_count = " + std::to_string(std::stoi(company.query("pragma page_count")) + 5));
  EXPECT_THAT(GetParam().run(company, id), HasSubstr("Az adatbázis megtelt"));
  EXPECT_FALSE(company.getDatabase().isInTransaction());
  EXPECT_EQ(company.dump(), before);
  company.run("pragma max_page_count = 1000000");
  EXPECT_EQ(GetParam().run(company, id), "");
}

INSTANTIATE_TEST_SUITE_P(Operations, FullDatabase, testing::Values(kOperations[0], kOperations[3], kOperations[4]),
                         [](const auto& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace Quillane::Host
