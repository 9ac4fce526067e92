// Looking recorded values up.
#include "tests/host/command/ProgramFixture.h"

namespace {

class FindCommand : public ProgramFixture {
 protected:
  FindCommand() { makeSample(); }
};

TEST_F(FindCommand, findsAWholeValue) {
  EXPECT_EQ(runJson({"find", "PO6-118202"}).dump(),
            R"([{"id":3,"number":"1","n":1,"row":2,"name":"Gyári szám","value":"PO6-118202"}])");
  EXPECT_EQ(run({"find", "PO6-118202"}).output, "3\t1\t1\t2\tGyári szám\tPO6-118202\n");
}

TEST_F(FindCommand, takesAPartOnlyWhenAskedTo) {
  EXPECT_EQ(runJson({"find", "PO6"}), Json::array());
  const Json found = runJson({"find", "PO6", "--contains"});
  ASSERT_EQ(found.size(), 7u);
  EXPECT_EQ(found[0]["value"], "PO6-118201");
  EXPECT_EQ(found[2]["id"], 7);
}

TEST_F(FindCommand, succeedsWhenThereIsNone) {
  const ProgramRun result = run({"find", "nincs ilyen"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors, "");
}

TEST_F(FindCommand, countsTheItemsOfTheDocument) {
  change("update t_invoiceitem set position=99 where t_invoiceitem_id=7");
  const Json found = runJson({"find", "NB14-5A02"});
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0]["n"], 6);
}

TEST_F(FindCommand, isOrderedByDocumentItemAndRow) {
  std::string order;
  for (const Json& found : runJson({"find", "2025", "--contains"})) {
    order += std::to_string(found["id"].get<int>()) + "." + std::to_string(found["n"].get<int>()) + "." +
             std::to_string(found["row"].get<int>()) + " ";
  }
  EXPECT_EQ(order,
            "1.2.0 1.2.0 2.1.1 2.1.2 6.2.1 6.2.2 6.3.0 6.3.0 6.4.1 11.1.1 12.1.1 13.1.1 13.1.2 16.1.0 17.1.0 "
            "22.2.0 22.2.0 23.2.0 23.2.0 24.2.0 24.2.0 ");
}

TEST_F(FindCommand, takesEveryTextAsItIs) {
  const std::vector<std::string> texts = {"%text",       "' or 1=1 --", "100%",      "a_b",       "[x]",      "a;b",
                                          "back\\slash", "\"quoted\"",  "line\nend", "tab\there", "📦 csomag", "add",
                                          "--contains",  "-",           "*",         "É"};
  for (const std::string& text : texts) {
    const std::string file =
        writeFile("values.csv", "Megjegyzés a vevőnek;Csomagolás\n\"" +
                                    (text == "\"quoted\"" ? "\"\"quoted\"\"" : text) + "\";papír\n");
    ASSERT_EQ(run({"record", "9", "1", file}).status, 0) << text;
    const Json found = runJson({"find", "--", text});
    ASSERT_EQ(found.size(), 1u) << text;
    EXPECT_EQ(found[0]["value"], text);
    EXPECT_EQ(found[0]["id"], 9);
  }
}

TEST_F(FindCommand, partsAreComparedLetterByLetter) {
  EXPECT_EQ(runJson({"find", "_", "--contains"}), Json::array());
  EXPECT_EQ(runJson({"find", "nb14", "--contains"}), Json::array());
}

TEST_F(FindCommand, findsWhatWasLeftEmpty) {
  const Json found = runJson({"find", ""});
  ASSERT_FALSE(found.empty());
  for (const Json& one : found) EXPECT_EQ(one["value"], "");
}

TEST_F(FindCommand, needsAText) { EXPECT_EQ(run({"find"}).status, 2); }

}  // namespace
