// Building a company by script.
#include <ctime>

#include "tests/host/command/ProgramFixture.h"

namespace {

class AddCommand : public ProgramFixture {
 protected:
  AddCommand() { makeEmpty(); }

  void expectFailure(int status, const Arguments& arguments, const std::string& sentence) const {
    const std::string before = dump();
    Arguments all = {"add"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const ProgramRun result = run(all);
    EXPECT_EQ(result.status, status) << sentence;
    EXPECT_EQ(result.output, "") << sentence;
    EXPECT_NE(result.errors.find(sentence), std::string::npos) << result.errors;
    EXPECT_EQ(dump(), before) << sentence;
  }
};

TEST_F(AddCommand, writesTheNewId) {
  EXPECT_EQ(run({"add", "partner", "--name", "A"}).output, "1\n");
  EXPECT_EQ(run({"--json", "add", "partner", "--name", "B"}).output, "{\n  \"id\": 2\n}\n");
}

TEST_F(AddCommand, partnerTakesAllItsFields) {
  add({"partner", "--name", "Őz Bt.", "--address", "1011 Budapest, Fő utca 1.", "--taxnumber", "12345676-2-41"});
  add({"partner", "--name", "Csak név"});
  EXPECT_EQ(query("select * from t_partner"),
            Grid({{"1", "Őz Bt.", "1011 Budapest, Fő utca 1.", "12345676-2-41"}, {"2", "Csak név", "", ""}}));
}

TEST_F(AddCommand, articlesTakeNumbersAsPeopleTypeThem) {
  add({"product", "--name", "P", "--price", "1 234,50"});
  add({"service", "--name", "S", "--unit", "óra", "--price", "-3.25"});
  add({"suite", "--name", "K"});
  EXPECT_EQ(query("select * from t_product"), Grid({{"1", "P", "db", "1234.5"}}));
  EXPECT_EQ(query("select * from t_service"), Grid({{"1", "S", "óra", "-3.25"}}));
  EXPECT_EQ(query("select * from t_suite"), Grid({{"1", "K", "db", "0"}}));
  for (const char* kind : {"product", "service", "suite"}) {
    expectFailure(2, {kind, "--name", "X", "--price", "drága"}, "--price: ");
    expectFailure(2, {kind, "--name", "  "}, "--name: ");
    expectFailure(2, {kind}, "Hiányzik: --name.");
  }
}

TEST_F(AddCommand, variablesOfEveryKind) {
  add({"variable", "--name", "szöveg", "--type", "text"});
  add({"variable", "--name", "nap", "--type", "date", "--mandatory"});
  add({"variable", "--name", "lista", "--type", "list", "--per-unit", "--mandatory", "--choices", "a, b,c"});
  EXPECT_EQ(query("select * from t_itemvariable where t_itemvariable_id>0"),
            Grid({{"1", "szöveg", "1", "0", "0", ""},
                  {"2", "nap", "2", "0", "1", ""},
                  {"3", "lista", "3", "1", "1", "a, b,c"}}));
}

TEST_F(AddCommand, refusesVariablesThatMakeNoSense) {
  expectFailure(2, {"variable", "--name", "x", "--type", "number"}, "--type: nincs ilyen fajta: „number”");
  expectFailure(2, {"variable", "--name", "x"}, "Hiányzik: --type.");
  expectFailure(2, {"variable", "--type", "text"}, "Hiányzik: --name.");
  expectFailure(2, {"variable", "--name", "", "--type", "text"}, "--name: a név nem lehet üres.");
  expectFailure(2, {"variable", "--name", "x", "--type", "list"}, "--choices: ");
  expectFailure(2, {"variable", "--name", "x", "--type", "list", "--choices", " , "}, "--choices: ");
  expectFailure(2, {"variable", "--name", "x", "--type", "text", "--choices", "a"}, "--choices: ");
}

TEST_F(AddCommand, assignmentsStandBehindThoseOfTheSameArticleAndDirection) {
  add({"product", "--name", "P"});
  add({"service", "--name", "S"});
  add({"suite", "--name", "K"});
  for (const char* name : {"a", "b", "c"}) add({"variable", "--name", name, "--type", "text"});
  add({"assignment", "--product", "1", "--variable", "2", "--direction", "out"});
  add({"assignment", "--product", "1", "--variable", "1", "--direction", "out"});
  add({"assignment", "--product", "1", "--variable", "1", "--direction", "in"});
  add({"assignment", "--service", "1", "--variable", "3", "--direction", "in"});
  add({"assignment", "--suite", "1", "--variable", "3", "--direction", "out"});
  EXPECT_EQ(query("select t_product_1, t_itemvariable_1, position, direction from t_productitemdata"),
            Grid({{"1", "2", "1", "100"}, {"1", "1", "2", "100"}, {"1", "1", "1", "200"}}));
  EXPECT_EQ(query("select t_service_1, t_itemvariable_1, position, direction from t_serviceitemdata"),
            Grid({{"1", "3", "1", "200"}}));
  EXPECT_EQ(query("select t_suite_1, t_itemvariable_1, position, direction from t_suiteitemdata"),
            Grid({{"1", "3", "1", "100"}}));
}

TEST_F(AddCommand, refusesAssignmentsThatMakeNoSense) {
  add({"product", "--name", "P"});
  add({"variable", "--name", "a", "--type", "text"});
  add({"assignment", "--product", "1", "--variable", "1", "--direction", "out"});
  const Arguments rest = {"--variable", "1", "--direction", "in"};
  const auto with = [&rest](Arguments arguments) {
    arguments.insert(arguments.begin(), "assignment");
    arguments.insert(arguments.end(), rest.begin(), rest.end());
    return arguments;
  };
  expectFailure(1, with({"--product", "9"}), "--product: nincs #9 azonosítójú.");
  expectFailure(1, with({"--service", "1"}), "--service: nincs #1 azonosítójú.");
  expectFailure(2, with({"--product", "1", "--suite", "1"}), "--product és --suite nem adható meg együtt.");
  expectFailure(2, with({}), "--product, --service vagy --suite");
  expectFailure(2, with({"--product", "p"}), "--product: pozitív egész számot vár");
  expectFailure(1, {"assignment", "--product", "1", "--variable", "9", "--direction", "in"},
                "Nincs #9 azonosítójú mező.");
  expectFailure(2, {"assignment", "--product", "1", "--variable", "1", "--direction", "up"}, "--direction: ");
  expectFailure(1, {"assignment", "--product", "1", "--variable", "1", "--direction", "out"}, "már hozzá van rendelve");
}

TEST_F(AddCommand, doesNotAssignInternalVariables) {
  add({"product", "--name", "P"});
  change("insert into t_itemvariable (t_itemvariable_id, name, type) values (5, 'internal', 100)");
  expectFailure(1, {"assignment", "--product", "1", "--variable", "5", "--direction", "in"},
                "Nincs #5 azonosítójú mező.");
}

TEST_F(AddCommand, documentTakesAllItsFields) {
  add({"partner", "--name", "Szállító"});
  EXPECT_EQ(add({"document", "--status", "201", "--partner", "1", "--partner-number", "SZ-1", "--date", "2024-02-29"}),
            1);
  EXPECT_EQ(query("select nullif(number, ''), partnernumber, t_invoicestatus_1, statusgate, issuedate, t_partner_1, "
                  "t_invoice_1, version from t_invoice"),
            Grid({{"NULL", "SZ-1", "201", "1", "2024-02-29", "1", "NULL", "1"}}));
}

TEST_F(AddCommand, documentIsAnOutgoingDraftOfTodayByDefault) {
  const std::time_t before = std::time(nullptr);
  add({"document"});
  char today[11] = {};
  std::strftime(today, sizeof(today), "%Y-%m-%d", std::localtime(&before));
  EXPECT_EQ(query("select t_invoicestatus_1, t_partner_1 from t_invoice"), Grid({{"101", "NULL"}}));
  EXPECT_GE(query("select issuedate from t_invoice")[0][0], std::string(today));
}

TEST_F(AddCommand, documentsOfEveryStatusThatIsNotClosed) {
  for (const char* status : {"101", "102", "201", "202", "401", "801"}) {
    EXPECT_GT(add({"document", "--status", status}), 0) << status;
  }
  for (const char* status : {"151", "152", "251", "252", "451", "452"}) {
    expectFailure(1, {"document", "--status", status}, "állapot lezárt bizonylatoké");
  }
}

TEST_F(AddCommand, refusesDocumentsThatMakeNoSense) {
  expectFailure(1, {"document", "--status", "999"}, "999");
  expectFailure(2, {"document", "--status", "draft"}, "--status: pozitív egész számot vár");
  expectFailure(1, {"document", "--partner", "9"}, "Nincs #9 azonosítójú partner.");
  for (const char* date : {"today", "2025-02-29", "2025-13-01", "2025-00-10", "2025-04-31", "2025-1-1", "25-01-01",
                           "2025-01-00", "2025-01-01 ", "0000-01-01", "1900-02-29", ""}) {
    expectFailure(2, {"document", "--date", date}, "--date: ÉÉÉÉ-HH-NN alakú napot vár");
  }
}

TEST_F(AddCommand, itemTakesOverWhatItsArticleHas) {
  add({"product", "--name", "Sajt", "--unit", "kg", "--price", "5890"});
  add({"document"});
  add({"item", "--document", "1", "--product", "1"});
  add({"item", "--document", "1", "--product", "1", "--quantity", "2,5", "--price", "5 000,50", "--name", "Kóstoló",
       "--unit", "tál"});
  add({"item", "--document", "1", "--name", "Egyedi"});
  EXPECT_EQ(query("select t_invoice_1, position, articlekind, articleid, name, unit, quantity, price, t_invoiceitem_1 "
                  "from t_invoiceitem order by t_invoiceitem_id"),
            Grid({{"1", "1", "1", "1", "Sajt", "kg", "1", "5890", "NULL"},
                  {"1", "2", "1", "1", "Kóstoló", "tál", "2.5", "5000.5", "NULL"},
                  {"1", "3", "0", "0", "Egyedi", "db", "1", "0", "NULL"}}));
}

TEST_F(AddCommand, itemBeginsTheDataThatItsArticleAsksFor) {
  makeSample();
  const int document = add({"document"});
  const int item = add({"item", "--document", std::to_string(document), "--service", "1"});
  EXPECT_EQ(query("select t_itemvariable_1, row, value from t_invoiceitemdata where t_invoiceitem_1=" +
                  std::to_string(item) + " order by 1"),
            Grid({{"7", "0", ""}, {"9", "0", ""}}));
  EXPECT_EQ(run({"check", std::to_string(document)}).status, 1);
}

TEST_F(AddCommand, itemLeavesTheOtherItemsAndTheirDataAsTheyAre) {
  makeSample();
  const std::string values = "select * from t_invoiceitemdata order by 1";
  const std::string items = "select * from t_invoiceitem where t_invoice_1=6 and t_invoiceitem_id<=27 order by 1";
  const Grid valuesBefore = query(values);
  const Grid itemsBefore = query(items);
  add({"item", "--document", "6", "--name", "Egyedi"});
  EXPECT_EQ(query(values), valuesBefore);
  EXPECT_EQ(query(items), itemsBefore);
  EXPECT_EQ(query("select version from t_invoice where t_invoice_id=6"), Grid({{"2"}}));
}

TEST_F(AddCommand, refusesItemsThatMakeNoSense) {
  add({"document"});
  expectFailure(1, {"item", "--document", "9", "--name", "x"}, "#9");
  expectFailure(1, {"item", "--document", "1", "--product", "9"}, "--product: nincs #9 azonosítójú.");
  expectFailure(2, {"item", "--document", "1"}, "--product, --service, --suite");
  expectFailure(2, {"item", "--document", "1", "--name", ""}, "--product, --service, --suite");
  expectFailure(2, {"item", "--name", "x"}, "Hiányzik: --document.");
  expectFailure(2, {"item", "--document", "1", "--name", "x", "--quantity", "sok"}, "--quantity: ");
  expectFailure(2, {"item", "--document", "1", "--name", "x", "--price", "1.2.3"}, "--price: ");
  expectFailure(2, {"item", "--document", "1", "--product", "1", "--service", "1"}, "nem adható meg együtt");
}

TEST_F(AddCommand, refusesAnItemOnAClosedDocument) {
  makeSample();
  expectFailure(1, {"item", "--document", "10", "--name", "x"}, "Lezárt");
}

TEST_F(AddCommand, needsToKnowWhat) {
  expectFailure(2, {}, "Hiányzik a parancs.");
  expectFailure(2, {"unicorn"}, "Nincs ilyen parancs: „unicorn”.");
}

TEST_F(AddCommand, storesHostileTextsAsTheyAre) {
  const std::vector<std::string> names = {
      "it's \"quoted\"", "%name %t_partner_id",       "a;b", "back\\slash", "two\nlines", "[a,b]", "{x}", "😀",
      "\xFF\xFE",        std::string(100 * 1024, 'y')};
  for (const std::string& name : names) {
    const int id = add({"partner", "--name", name});
    EXPECT_EQ(query("select name from t_partner where t_partner_id=" + std::to_string(id)), Grid({{name}}));
  }
}

TEST_F(AddCommand, buildsACompanyWhoseDocumentIsComplete) {
  add({"partner", "--name", "Vevő"});
  add({"product", "--name", "Gép", "--price", "100"});
  add({"variable", "--name", "Gyári szám", "--type", "text", "--per-unit", "--mandatory"});
  add({"variable", "--name", "Szín", "--type", "list", "--mandatory", "--choices", "kék,zöld"});
  add({"assignment", "--product", "1", "--variable", "1", "--direction", "out"});
  add({"assignment", "--product", "1", "--variable", "2", "--direction", "out"});
  add({"document", "--partner", "1"});
  add({"item", "--document", "1", "--product", "1", "--quantity", "2"});
  EXPECT_EQ(run({"check", "1"}).status, 1);
  EXPECT_EQ(runJson({"record", "1", "1", "-"}, "Szín,Gyári szám\nkék,A-1\n,A-2\n"), Json({{"rows", 2}, {"values", 5}}));
  EXPECT_EQ(run({"check", "1"}).status, 0);
  EXPECT_EQ(run({"text", "1"}).output, "1\tkék; A-1; A-2\n");
  EXPECT_EQ(runJson({"find", "A-2"})[0]["row"], 2);
}

}  // namespace
