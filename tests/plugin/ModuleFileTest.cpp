// The built module as a file: what it exports, and that it can be loaded, used and unloaded. Nothing of the module is
// linked into this program.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "plugin/contract/Invoice.h"
#include "plugin/contract/Message.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/PluginModule.h"
#include "plugin/contract/Tarnwell.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/TestForm.h"

using namespace FX;
using testing::ElementsAre;

namespace Quillane {
namespace {

constexpr const char* kModuleFile = QUILLANE_MODULE_FILE;

using GetPlugin = Plugin::PluginContainer*(Tarnwell*);

/// The names that nm lists of the module's dynamic symbols.
std::vector<std::string> symbols(const std::string& option) {
  const std::string command = "nm -D --format=just-symbols " + option + " '" + kModuleFile + "'";
  std::FILE* output = popen(command.c_str(), "r");
  EXPECT_NE(output, nullptr);
  std::string text;
  std::array<char, 4096> part;
  while (const std::size_t length = std::fread(part.data(), 1, part.size(), output)) text.append(part.data(), length);
  EXPECT_EQ(pclose(output), 0) << command;
  std::vector<std::string> names;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) names.push_back(line);
  return names;
}

/// The module while it is loaded.
class LoadedModule {
 public:
  LoadedModule() : library(dlopen(kModuleFile, RTLD_NOW | RTLD_LOCAL)) { EXPECT_NE(library, nullptr) << dlerror(); }
  ~LoadedModule() { EXPECT_EQ(dlclose(library), 0) << dlerror(); }

  Plugin::PluginContainer* makeContainer(Tarnwell& account) const {
    auto* getPlugin = reinterpret_cast<GetPlugin*>(dlsym(library, "get_plugin"));
    return getPlugin ? getPlugin(&account) : nullptr;
  }

  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

 private:
  void* library;
};

bool isMapped() {
  void* library = dlopen(kModuleFile, RTLD_NOW | RTLD_NOLOAD);
  if (library) dlclose(library);
  return library != nullptr;
}

template <class T>
T* hookOf(const Plugin::PluginContainer& container) {
  for (FXint i = 0; i < container.getModules().no(); ++i)
    if (auto* hook = dynamic_cast<T*>(container.getModules()[i])) return hook;
  return nullptr;
}

TEST(ModuleFile, exportsItsEntryPointAlone) { EXPECT_THAT(symbols("--defined-only"), ElementsAre("get_plugin")); }

TEST(ModuleFile, needsNothingThatTheProcessDoesNotHave) {
  // RTLD_NOW has every name looked up; what may be missing all the same is weak and looked up here.
  const LoadedModule module;
  const std::vector<std::string> names = symbols("--undefined-only");
  EXPECT_GT(names.size(), 100u);
  for (std::string name : names) {
    name = name.substr(0, name.find('@'));
    const bool optional = name.rfind("_ITM_", 0) == 0 || name == "__gmon_start__";  // the compiler's own, for others
    if (!optional) {
      EXPECT_NE(dlsym(RTLD_DEFAULT, name.c_str()), nullptr) << name;
    }
  }
}

TEST(ModuleFile, registersItsMetaClassesWhileItIsLoaded) {
  const std::pair<const char*, const FXMetaClass*> classes[] = {
      {"ItemDataStringEntry", &FXObject::metaClass},
      {"ItemDataDateEntry", &FXObject::metaClass},
      {"ItemDataComboEntry", &FXObject::metaClass},
      {"ItemDataTable", &FXTable::metaClass},
      {"ItemDataDialog", &FXDialogBox::metaClass},
      {"ItemDataSettingsPanel", &FXDialogBox::metaClass},
      {"ItemDataAssociationPanel", &FXVerticalFrame::metaClass},
      {"FXExt::FXComboBox", &FXComboBox::metaClass},
      {"FXDatePickerLabel", &FXLabel::metaClass},
      {"FXDatePicker", &FXVerticalFrame::metaClass},
      {"FXDateInput", &FXPacker::metaClass},
      {"FXDualList", &FXHorizontalFrame::metaClass},
  };
  for (int turn = 1; turn <= 2; ++turn) {
    ASSERT_FALSE(isMapped());
    for (const auto& [name, base] : classes) EXPECT_EQ(FXMetaClass::getMetaClassFromName(name), nullptr) << name;
    {
      const LoadedModule module;
      ASSERT_TRUE(isMapped());
      for (const auto& [name, base] : classes) {
        const FXMetaClass* metaClass = FXMetaClass::getMetaClassFromName(name);
        ASSERT_NE(metaClass, nullptr) << name;
        EXPECT_STREQ(metaClass->getClassName(), name);
        EXPECT_EQ(metaClass->getBaseClass(), base) << name;
      }
    }
    EXPECT_FALSE(isMapped()) << "it stays in memory after it was unloaded";
  }
  for (const auto& [name, base] : classes) EXPECT_EQ(FXMetaClass::getMetaClassFromName(name), nullptr) << name;
}

/// A company in which product 1 asks for "Szín" on outgoing documents.
class ModuleInUse : public testing::Test {
 protected:
  void addCompanyData() {
    company.run("insert into t_product (t_product_id, name) values (1, 'Szék')");
    company.run(
        "insert into t_itemvariable (t_itemvariable_id, name, type, process, mandatory) values (1, 'Szín', 1, 0, 1)");
    company.run(
        "insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 1, 1, 100)");
    company.run("insert into t_invoice (t_invoice_id, t_invoicestatus_1, statusgate) values (1, 101, 1)");
    company.run(
        "insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1, articlekind, articleid) values (1, 1, 1, 1)");
    company.run(
        "insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, row, value) values (1, 1, 0, 'piros')");
  }

  void loadCheckAndSaveTheItem(const Plugin::PluginContainer& container) {
    auto* entityHook = hookOf<Plugin::EntityPlugin>(container);
    auto* checkHook = hookOf<Plugin::InvoiceCheckPlugin>(container);
    ASSERT_NE(entityHook, nullptr);
    ASSERT_NE(checkHook, nullptr);

    Invoice invoice;
    invoice.setId(1);
    invoice.setStatus(101, false);
    invoice.setStatusGate(1);
    auto* item = new InvoiceItem;
    item->setId(1);
    item->setArticle(InvoiceItem::ARTICLE_PRODUCT, 1);
    invoice.appendItem(item);

    ASSERT_TRUE(entityHook->canHandle(*item->getMetaClass()));
    EXPECT_EQ(entityHook->load(item), 0);
    EXPECT_NE(item->getMiscData("ItemData"), nullptr);
    EXPECT_EQ(entityHook->toString(item), "piros");
    ListOfMessage messages;
    EXPECT_EQ(checkHook->checkInvoice(nullptr, &invoice, messages, "T"), 1);
    EXPECT_EQ(messages.no(), 0);
    EXPECT_EQ(entityHook->save(item), 1);
  }

  TestCompany company;
};

TEST_F(ModuleInUse, livesAndIsUnloadedTwiceInOneProcess) {
  for (int turn = 1; turn <= 2; ++turn) {
    const LoadedModule module;
    const std::unique_ptr<Plugin::PluginContainer> container(module.makeContainer(testAccount()));
    ASSERT_NE(container, nullptr);
    EXPECT_EQ(container->getCodeName(), "QuillanePluginItemData");
    EXPECT_EQ(container->init(), 1);
    container->start();
    ASSERT_NE(container->getIcon16(), nullptr);
    EXPECT_EQ(container->getIcon16()->getWidth(), 16);
    if (turn == 1) addCompanyData();
    loadCheckAndSaveTheItem(*container);
  }
  EXPECT_FALSE(isMapped());
  EXPECT_EQ(company.query("select name from t_itemvariable order by 1"), (Grid{{"Mennyiség"}, {"Szín"}}));
  EXPECT_EQ(company.query("select value from t_invoiceitemdata"), (Grid{{"piros"}}));
}

TEST_F(ModuleInUse, opensItsDialogsInTheFormAndIsUnloadedAfterwards) {
  {
    const LoadedModule module;
    const std::unique_ptr<Plugin::PluginContainer> container(module.makeContainer(testAccount()));
    ASSERT_NE(container, nullptr);
    container->init();
    addCompanyData();
    TestSupport::TestForm form;
    InvoiceItem* item = form.addItem("Szék");
    hookOf<Plugin::EntityPlugin>(*container)->load(item);
    auto* menu = hookOf<Plugin::InvoiceItemMenuPlugin>(*container);
    ASSERT_NE(menu, nullptr);
    form.table->appendPluginEntry(menu);
    form.table->selectOnly(0);
    TestSupport::ModalDriver driver(TestSupport::accept);

    EXPECT_TRUE(form.table->runPluginEntry(menu));
    EXPECT_THAT(driver.titles, ElementsAre("Szék egyéb tételadatai"));
    EXPECT_EQ(form.takeChecks(), 1);

    ListOfMessage messages;
    hookOf<Plugin::InvoiceCheckPlugin>(*container)->checkInvoice(&form, form.getInvoice(), messages, "T");
    ASSERT_EQ(messages.no(), 1);
    messages[0]->getSecondEvent()->execute(messages[0], 0);
    EXPECT_EQ(driver.titles.size(), 2u);
    EXPECT_EQ(form.takeChecks(), 1);
    delete messages[0];
  }
  EXPECT_FALSE(isMapped()) << "it stays in memory after it was unloaded";
}

}  // namespace
}  // namespace Quillane
