// The windows in which articles are edited, with panels of modules, without a display.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/document/ArticleStore.h"
#include "host/windows/Mnemonic.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/PanelProvider.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/Statement.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using TestSupport::ModalDriver;

namespace Quillane {
namespace {

using Events = std::vector<std::string>;
using Plugin::PluginContainer;

/// Tells what happens to it, and writes a partner named after the record that it finds.
class PanelHandler : public Plugin::PanelProvider::Handler {
 public:
  PanelHandler(Plugin::PanelProvider::Plugin* provider, PanelisedWindow* dataWindow, const char* panelName,
               const FXString& partnersTable, Events& log)
      : Handler(provider), window(dataWindow), name(panelName), table(partnersTable), events(log) {}

  // The panel is still there.
  ~PanelHandler() override {
    if (label) note(std::string("deleted with ") + label->getText().text());
  }

  void createGUI(FXComposite* parent) override { label = new FXLabel(parent, "a label"); }
  FXString getPanelName() const override { return name; }
  void onFocus() override { note("focus"); }

  long onOKButton(FXObject*, FXSelector, void*) override {
    note("OK of " + std::to_string(window->getRecordId()));
    InsertStatement statement(testAccount().getDB(), table);
    statement.setString("name", FXStringVal(window->getRecordId()));
    statement.execute(nullptr, 1);
    return 1;
  }

  long onCancelButton(FXObject*, FXSelector, void*) override {
    note("cancel");
    return 0;
  }

 private:
  void note(const std::string& event) { events.push_back(std::string(name.text()) + ": " + event); }

  PanelisedWindow* window;
  FXString name;
  FXString table;
  Events& events;
  FXLabel* label = nullptr;
};

/// Has a panel for products.
class ProductPanel : public Plugin::PanelProvider::Plugin {
 public:
  ProductPanel(PluginContainer* owner, const char* panelName, Events& log)
      : Plugin(owner), name(panelName), events(log) {}

  bool acceptWindow(PanelisedWindow* window) override { return window->isMemberOf(&ProductDataWindow::metaClass); }
  Quillane::Plugin::PanelProvider::Handler* getHandler(PanelisedWindow* window) override {
    return new PanelHandler(this, window, name, table, events);
  }

  FXString table = "t_partner";

 private:
  const char* name;
  Events& events;
};

class PanelisedWindowTest : public testing::Test {
 protected:
  PanelisedWindowTest()
      : container(&testAccount(), "CodeName", "Név", "1", ""),
        first(&container, "Első", events),
        second(&container, "Második", events),
        owner(&testAccount(), "owner") {
    company.fill("t_product", {{"t_product_id", "name", "unit", "price"}, {"5", "Szelep", "db", "1234.5"}});
  }

  std::unique_ptr<ArticleDataWindow> make(int kind, int id = 0, const char* name = "") {
    return ArticleDataWindow::make(&owner, *company.getDB(), {kind, id, name, "db", "10"}, nullptr, {&first, &second});
  }

  static void command(FXWindow& window, FXuint id) { window.handle(nullptr, FXSEL(SEL_COMMAND, id), nullptr); }

  Grid partners() { return company.query("select name from t_partner"); }

  TestCompany company;
  Events events;
  PluginContainer container;
  ProductPanel first;
  ProductPanel second;
  FXMainWindow owner;
};

TEST_F(PanelisedWindowTest, hasTheArticlesFieldsFirstAndThenATabForEveryPanel) {
  const auto window = make(InvoiceItem::ARTICLE_PRODUCT);
  ASSERT_EQ(window->getHandlers().size(), 2u);
  ASSERT_EQ(window->getTabs()->numChildren(), 6) << "a tab and its page each";
  const auto label = [&window](FXint child) {
    return std::string(static_cast<FXTabItem*>(window->getTabs()->childAtIndex(child))->getText().text());
  };
  EXPECT_EQ(label(0), "Adatok");
  EXPECT_EQ(label(2), "Első");
  EXPECT_EQ(label(4), "Második");
  EXPECT_TRUE(window->getTabs()->childAtIndex(1)->isMemberOf(&FXVerticalFrame::metaClass));
  EXPECT_EQ(window->getNameField()->getParent()->getParent(), window->getTabs()->childAtIndex(1));
}

TEST_F(PanelisedWindowTest, marksALetterOfItsOwnOnEveryPanelsTab) {
  const std::string without = Host::getUsedMnemonics(*make(InvoiceItem::ARTICLE_SERVICE));
  EXPECT_THAT(without, testing::Not(testing::AnyOf(HasSubstr("l"), HasSubstr("s"))));
  const std::string with = Host::getUsedMnemonics(*make(InvoiceItem::ARTICLE_PRODUCT));
  EXPECT_EQ(with.size(), without.size() + 2);
  EXPECT_THAT(with, AllOf(HasSubstr("l"), HasSubstr("s"))) << "Első and Második, whose first letters are taken";
}

/// Accepts every window and has a panel for none.
class UndecidedPlugin : public Plugin::PanelProvider::Plugin {
 public:
  using Plugin::Plugin;
  bool acceptWindow(PanelisedWindow*) override { return true; }
  Quillane::Plugin::PanelProvider::Handler* getHandler(PanelisedWindow*) override { return nullptr; }
};

TEST_F(PanelisedWindowTest, passesOverAProviderThatHasNoPanelAfterAll) {
  UndecidedPlugin undecided(&container);
  const auto window = ArticleDataWindow::make(&owner, *company.getDB(), {InvoiceItem::ARTICLE_PRODUCT, 0, "", "", ""},
                                              nullptr, {&undecided, &second});
  ASSERT_EQ(window->getHandlers().size(), 1u);
  EXPECT_EQ(window->getTabs()->numChildren(), 4);
  window->showTab(1);
  EXPECT_THAT(events, ElementsAre("Második: focus"));
}

/// A module with a picture.
class PicturedContainer : public PluginContainer {
 public:
  PicturedContainer() : PluginContainer(&testAccount(), "CodeName", "Név", "1", "") {}
  FXIcon* getIcon16() override { return &picture; }

 private:
  FXIcon picture{&testAccount()};
};

TEST_F(PanelisedWindowTest, showsTheModulesPictureOnTheTab) {
  PicturedContainer pictured;
  ProductPanel provider(&pictured, "Képes", events);
  const auto window = ArticleDataWindow::make(&owner, *company.getDB(), {InvoiceItem::ARTICLE_PRODUCT, 0, "", "", ""},
                                              nullptr, {&provider});
  const auto* tab = static_cast<const FXTabItem*>(window->getTabs()->childAtIndex(2));
  EXPECT_EQ(tab->getText(), "Képes");
  EXPECT_EQ(tab->getIcon(), pictured.getIcon16());
}

TEST_F(PanelisedWindowTest, asksEveryProviderWhetherItWantsTheWindow) {
  EXPECT_TRUE(make(InvoiceItem::ARTICLE_SERVICE)->getHandlers().empty());
  EXPECT_TRUE(make(InvoiceItem::ARTICLE_SUITE)->getHandlers().empty());
}

TEST_F(PanelisedWindowTest, isOfTheClassOfItsArticle) {
  EXPECT_TRUE(make(InvoiceItem::ARTICLE_PRODUCT)->isMemberOf(&ProductDataWindow::metaClass));
  EXPECT_TRUE(make(InvoiceItem::ARTICLE_SERVICE)->isMemberOf(&ServiceDataWindow::metaClass));
  EXPECT_TRUE(make(InvoiceItem::ARTICLE_SUITE)->isMemberOf(&SuiteDataWindow::metaClass));
  EXPECT_FALSE(make(InvoiceItem::ARTICLE_SUITE)->isMemberOf(&ProductDataWindow::metaClass));
  EXPECT_STREQ(ProductDataWindow::metaClass.getClassName(), "ProductDataWindow");
}

TEST_F(PanelisedWindowTest, namesTheStoredArticleInItsTitle) {
  EXPECT_EQ(make(InvoiceItem::ARTICLE_PRODUCT, 5, "Szelep")->getTitle(), "Termék módosítása – Szelep");
  EXPECT_EQ(make(InvoiceItem::ARTICLE_PRODUCT, 5, " 100%\n& más ")->getTitle(), "Termék módosítása – 100% & más");
  EXPECT_EQ(make(InvoiceItem::ARTICLE_SUITE, 5, " ")->getTitle(), "Csomag módosítása");
  EXPECT_EQ(make(InvoiceItem::ARTICLE_SERVICE, 0, "Cső")->getTitle(), "Új szolgáltatás");
}

TEST_F(PanelisedWindowTest, knowsTheRecordsId) {
  EXPECT_EQ(make(InvoiceItem::ARTICLE_PRODUCT, 5)->getRecordId(), 5);
  EXPECT_LE(make(InvoiceItem::ARTICLE_PRODUCT)->getRecordId(), 0);
}

TEST_F(PanelisedWindowTest, writesTheArticleBeforeThePanelsSoThatTheyFindItsId) {
  const auto window = make(InvoiceItem::ARTICLE_PRODUCT);
  window->getNameField()->setText("Cső");
  window->getPriceField()->setText("1 200,5");
  command(*window, FXDialogBox::ID_ACCEPT);
  EXPECT_EQ(window->getRecordId(), 6);
  EXPECT_EQ(window->getArticle().id, 6);
  EXPECT_EQ(company.query("select name, price from t_product where t_product_id=6"), (Grid{{"Cső", "1200.5"}}));
  EXPECT_THAT(events, ElementsAre("Első: OK of 6", "Második: OK of 6"));
  EXPECT_EQ(partners(), (Grid{{"6"}, {"6"}}));
}

TEST_F(PanelisedWindowTest, changesAStoredArticleOfEachKind) {
  company.fill("t_service", {{"t_service_id", "name"}, {"5", "Szerelés"}});
  company.fill("t_suite", {{"t_suite_id", "name"}, {"5", "Kosár"}});
  for (const int kind : {InvoiceItem::ARTICLE_PRODUCT, InvoiceItem::ARTICLE_SERVICE, InvoiceItem::ARTICLE_SUITE}) {
    const auto window = make(kind, 5, "Új név");
    command(*window, FXDialogBox::ID_ACCEPT);
  }
  for (const char* table : {"t_product", "t_service", "t_suite"})
    EXPECT_EQ(company.query(std::string("select name from ") + table), (Grid{{"Új név"}})) << table;
}

TEST_F(PanelisedWindowTest, writesNothingWhenAPanelCannotBeWrittenAndGoesOnWithWhatWasTyped) {
  second.table = "t_missing";
  const auto window = make(InvoiceItem::ARTICLE_PRODUCT);
  window->getNameField()->setText("Cső");
  window->show(PLACEMENT_OWNER);
  window->showTab(2);
  {
    ModalDriver driver(TestSupport::accept);
    command(*window, FXDialogBox::ID_ACCEPT);
    EXPECT_THAT(driver.titles, ElementsAre("Új termék")) << "the reason is told";
  }
  EXPECT_TRUE(window->shown());
  EXPECT_EQ(window->getTabs()->getCurrent(), 2) << "the fields are not to blame";
  EXPECT_EQ(window->getNameField()->getText(), "Cső");
  EXPECT_LE(window->getRecordId(), 0);
  EXPECT_THAT(partners(), IsEmpty());
  EXPECT_EQ(company.query("select count(*) from t_product"), (Grid{{"1"}}));
  EXPECT_FALSE(company.getDB()->isInTransaction());
  EXPECT_EQ(window->getHandlers().size(), 2u);

  // The fault has passed: the same window stores the article as a new one.

  company.run("create table t_missing (t_missing_id integer primary key, name text)");
  command(*window, FXDialogBox::ID_ACCEPT);
  EXPECT_FALSE(window->shown());
  EXPECT_EQ(company.query("select name from t_product order by t_product_id"), (Grid{{"Szelep"}, {"Cső"}}));
  EXPECT_EQ(company.query("select name from t_missing"), (Grid{{std::to_string(window->getRecordId())}}));
}

TEST_F(PanelisedWindowTest, asksNoPanelWhenTheArticleIsRefusedAndShowsTheFieldsAgain) {
  const auto window = make(InvoiceItem::ARTICLE_PRODUCT, 5, " ");
  window->showTab(2);
  events.clear();
  std::string said;
  {
    ModalDriver driver([&said](FXDialogBox& box) {
      for (FXWindow* child = box.getFirst()->getFirst()->getFirst(); child; child = child->getNext())
        if (auto* label = dynamic_cast<FXLabel*>(child)) said += label->getText().text();
      TestSupport::accept(box);
    });
    command(*window, FXDialogBox::ID_ACCEPT);
    EXPECT_THAT(driver.titles, ElementsAre("Termék módosítása"));
  }
  EXPECT_EQ(said, "Adja meg a megnevezést.");
  EXPECT_THAT(events, IsEmpty());
  EXPECT_EQ(window->getTabs()->getCurrent(), 0);
  EXPECT_EQ(window->getRecordId(), 5);
  EXPECT_EQ(company.query("select name from t_product"), (Grid{{"Szelep"}}));
}

TEST_F(PanelisedWindowTest, tellsThePanelsThatTheUserGaveUp) {
  const auto window = make(InvoiceItem::ARTICLE_PRODUCT, 5, "Más");
  command(*window, FXDialogBox::ID_CANCEL);
  EXPECT_THAT(events, ElementsAre("Első: cancel", "Második: cancel"));
  events.clear();
  window->handle(window.get(), FXSEL(SEL_CLOSE, 0), nullptr);
  EXPECT_THAT(events, ElementsAre("Első: cancel", "Második: cancel")) << "closing the window, too";
  EXPECT_EQ(company.query("select name from t_product"), (Grid{{"Szelep"}}));
}

TEST_F(PanelisedWindowTest, tellsAPanelThatItCameToTheFront) {
  const auto window = make(InvoiceItem::ARTICLE_PRODUCT);
  window->showTab(2);
  EXPECT_THAT(events, ElementsAre("Második: focus"));
  window->showTab(0);
  window->showTab(9);
  EXPECT_THAT(events, ElementsAre("Második: focus"));
}

TEST_F(PanelisedWindowTest, deletesTheHandlersWhileTheirPanelsAreThere) {
  make(InvoiceItem::ARTICLE_PRODUCT);
  EXPECT_THAT(events, ElementsAre("Első: deleted with a label", "Második: deleted with a label"));
}

}  // namespace
}  // namespace Quillane
