// The lists: modules, fields, articles, documents.
#include "tests/host/command/ProgramFixture.h"

namespace {

class ListCommand : public ProgramFixture {};

TEST_F(ListCommand, pluginsNamesTheModule) {
  makeEmpty();
  const Json modules = runJson({"plugins"});
  ASSERT_EQ(modules.size(), 1u);
  std::vector<std::string> keys;
  for (const auto& [key, value] : modules[0].items()) keys.push_back(key);
  EXPECT_EQ(keys, std::vector<std::string>({"codename", "name", "version", "description", "file"}));
  EXPECT_EQ(modules[0]["codename"], "QuillanePluginItemData");
  EXPECT_EQ(modules[0]["name"], "Egyéb tételadatok");
  EXPECT_EQ(modules[0]["version"], "2013.01.02");
  EXPECT_EQ(modules[0]["file"], MODULE_FILE);
}

TEST_F(ListCommand, pluginsWritesOneLineAModule) {
  makeEmpty();
  EXPECT_EQ(run({"plugins"}).output,
            "QuillanePluginItemData\tEgyéb tételadatok\t2013.01.02\tLehetőséget biztosít arra, hogy bizonyos áruk "
            "számlázásakor egyéb (saját) adatot is nyomtassunk a számlára.\\n\t" MODULE_FILE "\n");
}

TEST_F(ListCommand, pluginsNeedsNoCompany) {
  const ProgramRun result = runBare({"plugins"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output.substr(0, 22), "QuillanePluginItemData");
  EXPECT_EQ(listFolder(), std::vector<std::string>());
}

TEST_F(ListCommand, namesAModuleThatCannotBeLoadedAndGoesOn) {
  makeSample();
  const std::string broken = writeFile("libQuillanePluginBroken.so", "no shared object");
  setVariable("QUILLANE_PLUGIN_PATH", folder + ":" + MODULE_FOLDER);
  const ProgramRun result = run({"--json", "variables"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(Json::parse(result.output).size(), 12u);
  EXPECT_NE(result.errors.find("Nem használható bővítmény: " + broken), std::string::npos);
}

TEST_F(ListCommand, variablesHaveTheColumnsOfTheirTable) {
  makeSample();
  const Json variables = runJson({"variables"});
  ASSERT_EQ(variables.size(), 12u);
  EXPECT_EQ(variables[0].dump(), R"({"id":1,"name":"Gyári szám","type":1,"process":1,"mandatory":1,"vvalue":""})");
  EXPECT_EQ(variables[4]["vvalue"], "fehér, fekete, piros, kék, zöld");
}

TEST_F(ListCommand, variablesLeavesOutWhatIsInternal) {
  makeEmpty();
  change(
      "insert into t_itemvariable (t_itemvariable_id, name, type) values (5, 'own', 1), (6, 'zero', 0), "
      "(7, 'hundred', 100), (8, 'last', 99), (9, 'none', NULL)");
  EXPECT_EQ(run({"variables"}).output, "5\town\t1\t\t\t\n8\tlast\t99\t\t\t\n");
}

TEST_F(ListCommand, nullIsNullInJson) {
  makeEmpty();
  change("insert into t_itemvariable (t_itemvariable_id, name, type) values (5, NULL, 1)");
  EXPECT_EQ(runJson({"variables"}).dump(),
            R"([{"id":5,"name":null,"type":1,"process":null,"mandatory":null,"vvalue":null}])");
}

TEST_F(ListCommand, articlesListsAllKinds) {
  makeEmpty();
  EXPECT_EQ(runJson({"articles"}), Json::array());
  add({"suite", "--name", "Csomag", "--unit", "készlet", "--price", "10"});
  add({"service", "--name", "Munka", "--unit", "óra", "--price", "1 200,50"});
  add({"product", "--name", "Tégla"});
  add({"product", "--name", "Cserép"});
  EXPECT_EQ(run({"articles"}).output,
            "product\t1\tTégla\tdb\t0\n"
            "product\t2\tCserép\tdb\t0\n"
            "service\t1\tMunka\tóra\t1200.5\n"
            "suite\t1\tCsomag\tkészlet\t10\n");
  EXPECT_EQ(runJson({"articles"})[2].dump(),
            R"({"kind":"service","id":1,"name":"Munka","unit":"óra","price":"1200.5"})");
}

TEST_F(ListCommand, invoicesListsDocuments) {
  makeSample();
  const Json invoices = runJson({"invoices"});
  ASSERT_EQ(invoices.size(), 24u);
  EXPECT_EQ(invoices[0].dump(), R"({"id":1,"number":null,"partnernumber":null,"status":801,"statusname":"Megrendelés",)"
                                R"("issuedate":"2025-03-03","partner":"Tölgyfa Bútor Kft.","version":1})");
  EXPECT_EQ(invoices[14]["number"], "1");
  EXPECT_EQ(invoices[14]["partnernumber"], "ZN-2025/00655");
  const ProgramRun plain = run({"invoices"});
  EXPECT_EQ(plain.output.substr(0, plain.output.find('\n')),
            "1\t\t\t801\tMegrendelés\t2025-03-03\tTölgyfa Bútor Kft.\t1");
}

TEST_F(ListCommand, invoicesListsADocumentThatAnotherProgramLeftIncomplete) {
  makeEmpty();
  change("insert into t_invoice (t_invoice_id) values (9)");
  EXPECT_EQ(run({"invoices"}).output, "9\t\t\t\t\t\t\t\n");
}

}  // namespace
