// Lists and dialogs of partners and articles without a display.
#include "host/desktop/RecordWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "host/desktop/ArticleListWindow.h"
#include "host/desktop/ArticlePicker.h"
#include "host/desktop/PartnerDialog.h"
#include "host/desktop/PartnerListWindow.h"
#include "host/desktop/PartnerPicker.h"
#include "host/document/ArticleStore.h"
#include "plugin/contract/Forms.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using TestSupport::ModalDriver;

namespace Quillane::Desktop {
namespace {

using Dialogs = std::vector<std::string>;

constexpr char kPartnersSql[] = "select name, address, taxnumber from t_partner order by t_partner_id";

/// Sends a dialog a command outside of a driver's answer, so that the driver is there for what comes up then.
class LaterCommand : public FXObject {
 public:
  ~LaterCommand() override { testAccount().removeTimeout(this, 0); }

  void command(FXDialogBox& dialog, FXuint id) {
    target = &dialog;
    message = id;
    testAccount().addTimeout(this, 0, 0);
  }

  long handle(FXObject*, FXSelector, void*) override {
    return target->handle(nullptr, FXSEL(SEL_COMMAND, message), nullptr);
  }

  bool isUnderWay() const { return target != nullptr; }

 private:
  FXDialogBox* target = nullptr;  // not owned
  FXuint message = 0;
};

class RecordWindowTest : public testing::Test {
 protected:
  RecordWindowTest() : owner(&testAccount(), "owner"), icons(&testAccount()) {
    company.fill("t_partner", {{"name", "address", "taxnumber"}, {"Zöld Bt.", "Pécs", "1-2"}, {"alma Kft.", "", ""}});
    company.fill("t_product", {{"name", "unit", "price"}, {"Szelep", "db", "1234.5"}, {"Cső", "m", "10"}});
    company.fill("t_service", {{"name", "unit", "price"}, {"Szerelés", "óra", "12000"}});
  }

  TarnwellDatabase& database() { return *company.getDB(); }

  static void command(FXWindow& window, FXuint id) { window.handle(nullptr, FXSEL(SEL_COMMAND, id), nullptr); }

  static void type(RecordWindow& window, const char* text) {
    window.getFilterField()->setText(text);
    window.handle(window.getFilterField(), FXSEL(SEL_CHANGED, RecordWindow::ID_FILTER), const_cast<char*>(text));
  }

  /// Whether a button with this message would be enabled.
  static bool isEnabled(RecordWindow& window, FXuint id) {
    FXButton button(&window, "test");
    window.handle(&button, FXSEL(SEL_UPDATE, id), nullptr);
    return button.isEnabled();
  }

  /// Fills the fields of the dialog that comes up and accepts it.
  static ModalDriver::Answer enterPartner(const char* name, const char* address) {
    return [=](FXDialogBox& dialog) {
      auto& asked = dynamic_cast<PartnerDialog&>(dialog);
      asked.getNameField()->setText(name);
      asked.getAddressField()->setText(address);
      TestSupport::accept(dialog);
    };
  }

  static ModalDriver::Answer enterArticle(const char* name, const char* price) {
    return [=](FXDialogBox& dialog) {
      auto& asked = dynamic_cast<ArticleDataWindow&>(dialog);
      asked.getNameField()->setText(name);
      asked.getPriceField()->setText(price);
      TestSupport::accept(dialog);
    };
  }

  TestCompany company;
  FXMainWindow owner;
  Host::IconSet icons;
};

TEST_F(RecordWindowTest, listsPartners) {
  PartnerListWindow window(&owner, database(), icons);
  EXPECT_TRUE(window.reload());
  EXPECT_THAT(window.getRecordList()->getShownIds(), ElementsAre(2, 1));
  EXPECT_EQ(window.getCountText(), "2 partner");
  EXPECT_EQ(window.getRecordList()->getCurrentId(), 2);
}

TEST_F(RecordWindowTest, countsWhatTheFilterLetsThrough) {
  PartnerListWindow window(&owner, database(), icons);
  window.reload();
  type(window, "ZÖLD");
  EXPECT_THAT(window.getRecordList()->getShownIds(), ElementsAre(1));
  EXPECT_EQ(window.getCountText(), "1 partner a(z) 2 közül");
  EXPECT_TRUE(isEnabled(window, RecordWindow::ID_CHANGE));
  type(window, "xyz");
  EXPECT_EQ(window.getCountText(), "0 partner a(z) 2 közül");
  EXPECT_FALSE(isEnabled(window, RecordWindow::ID_CHANGE));
  EXPECT_FALSE(isEnabled(window, FXDialogBox::ID_ACCEPT));
}

TEST_F(RecordWindowTest, changesThePickedPartner) {
  PartnerListWindow window(&owner, database(), icons);
  window.reload();
  type(window, "zöld");
  ModalDriver driver(enterPartner("Kék Bt.", "Győr"));
  command(window, RecordWindow::ID_LIST);
  EXPECT_EQ(driver.titles, Dialogs{"Partner módosítása"});
  EXPECT_EQ(company.query(kPartnersSql), (Grid{{"Kék Bt.", "Győr", "1-2"}, {"alma Kft.", "", ""}}));
  EXPECT_EQ(window.getRecordList()->getNumRows(), 2);
}

TEST_F(RecordWindowTest, addsAPartnerAndShowsIt) {
  PartnerListWindow window(&owner, database(), icons);
  window.reload();
  type(window, "xyz");
  ModalDriver driver(enterPartner("Új Kft.", ""));
  command(window, RecordWindow::ID_NEW);
  EXPECT_EQ(driver.titles, Dialogs{"Új partner"});
  EXPECT_EQ(window.getRecordList()->getCurrentId(), 3);
  EXPECT_EQ(window.getFilterField()->getText(), "");
  EXPECT_EQ(window.getCountText(), "3 partner");
}

TEST_F(RecordWindowTest, leavesAllAsItWasWhenTheDialogIsGivenUp) {
  PartnerListWindow window(&owner, database(), icons);
  window.reload();
  type(window, "zöld");
  ModalDriver driver([](FXDialogBox& dialog) {
    dynamic_cast<PartnerDialog&>(dialog).getNameField()->setText("Kék Bt.");
    TestSupport::cancel(dialog);
  });
  command(window, RecordWindow::ID_NEW);
  command(window, RecordWindow::ID_CHANGE);
  EXPECT_EQ(driver.titles, (Dialogs{"Új partner", "Partner módosítása"}));
  EXPECT_EQ(company.query("select name from t_partner"), (Grid{{"Zöld Bt."}, {"alma Kft."}}));
  EXPECT_EQ(window.getFilterField()->getText(), "zöld");
}

TEST_F(RecordWindowTest, tellsWhatCannotBeRead) {
  company.run("alter table t_partner rename to t_gone");
  PartnerListWindow window(&owner, database(), icons);
  ModalDriver driver(TestSupport::cancel);
  EXPECT_FALSE(window.reload());
  EXPECT_EQ(driver.titles, Dialogs{"Partnerek"});
}

TEST_F(RecordWindowTest, tellsOfAPartnerThatIsGone) {
  PartnerListWindow window(&owner, database(), icons);
  window.reload();
  company.run("delete from t_partner");
  ModalDriver driver(TestSupport::cancel);
  command(window, RecordWindow::ID_CHANGE);
  EXPECT_EQ(driver.titles, Dialogs{"Partner"});
}

TEST_F(RecordWindowTest, listsTheArticlesOfOneKind) {
  ArticleListWindow window(&owner, database(), icons);
  window.reload();
  EXPECT_EQ(window.getKind(), 1);
  EXPECT_EQ(window.getCountText(), "2 cikk");
  type(window, "1 234,5");
  EXPECT_THAT(window.getRecordList()->getShownIds(), ElementsAre(1));
  type(window, "");
  window.setKind(2);
  EXPECT_EQ(window.getKind(), 2);
  EXPECT_EQ(window.getCountText(), "1 cikk");
  window.setKind(3);
  EXPECT_EQ(window.getCountText(), "0 cikk");
  window.setKind(9);
  EXPECT_EQ(window.getKind(), 3);
}

TEST_F(RecordWindowTest, addsAnArticleOfTheKindThatIsShown) {
  ArticleListWindow window(&owner, database(), icons);
  window.reload();
  window.setKind(3);
  ModalDriver driver(enterArticle("Ajándékkosár", "18 900"));
  command(window, RecordWindow::ID_NEW);
  EXPECT_EQ(driver.titles, Dialogs{"Új csomag"});
  EXPECT_EQ(company.query("select name, unit, price from t_suite"), (Grid{{"Ajándékkosár", "db", "18900"}}));
}

TEST_F(RecordWindowTest, picksAPartner) {
  PartnerPicker picker(&owner, database(), icons);
  ModalDriver driver([](FXDialogBox& dialog) {
    type(dynamic_cast<RecordWindow&>(dialog), "zöl");
    command(dialog, RecordWindow::ID_LIST);
  });
  EXPECT_TRUE(picker.execute());
  EXPECT_EQ(picker.getPartner().id, 1);
  EXPECT_EQ(picker.getPartner().address, "Pécs");
}

TEST_F(RecordWindowTest, picksNothingWhenNothingIsFound) {
  PartnerPicker picker(&owner, database(), icons);
  ModalDriver driver([](FXDialogBox& dialog) {
    type(dynamic_cast<RecordWindow&>(dialog), "xyz");
    TestSupport::accept(dialog);
    EXPECT_TRUE(dialog.getApp()->isModal(&dialog));
    TestSupport::cancel(dialog);
  });
  EXPECT_FALSE(picker.execute());
  EXPECT_EQ(picker.getPartner().id, 0);
}

TEST_F(RecordWindowTest, picksThePartnerThatIsAddedOnTheSpot) {
  PartnerPicker picker(&owner, database(), icons);
  LaterCommand later;
  ModalDriver driver([&later](FXDialogBox& dialog) {
    if (later.isUnderWay() && !dynamic_cast<PartnerDialog*>(&dialog)) return;
    if (dynamic_cast<PartnerDialog*>(&dialog)) {
      EXPECT_EQ(dynamic_cast<PartnerDialog&>(dialog).getNameField()->getText(), "Új Kft.");
      return TestSupport::accept(dialog);
    }
    type(dynamic_cast<RecordWindow&>(dialog), "Új Kft.");
    later.command(dialog, RecordWindow::ID_NEW);
  });
  EXPECT_TRUE(picker.execute());
  EXPECT_EQ(picker.getPartner().id, 3);
}

TEST_F(RecordWindowTest, beginsWithTheRecordThatIsAskedFor) {
  ArticlePicker picker(&owner, database(), icons, 1);
  picker.setCurrentId(1);
  ModalDriver driver(TestSupport::accept);
  EXPECT_TRUE(picker.execute());
  EXPECT_EQ(picker.getArticle().name, "Szelep");
  EXPECT_EQ(picker.getArticle().price, "1234.5");
  EXPECT_EQ(driver.titles, Dialogs{"Termék kiválasztása"});
}

TEST_F(RecordWindowTest, givesUpTheChoice) {
  ArticlePicker picker(&owner, database(), icons, 2);
  ModalDriver driver(TestSupport::cancel);
  EXPECT_FALSE(picker.execute());
  EXPECT_EQ(picker.getArticle().id, 0);
}

TEST_F(RecordWindowTest, readsAnewWheneverItIsShown) {
  PartnerListWindow window(&owner, database(), icons);
  window.show();
  company.run("delete from t_partner where t_partner_id=1");
  window.show(PLACEMENT_OWNER);
  EXPECT_EQ(window.getRecordList()->getNumRows(), 1);
}

/// Answers the message box that the dialog shows, and then the dialog.
class RecordDialogTest : public RecordWindowTest {
 protected:
  /// Accepts the dialog, which has to refuse with one message, and gives it up then.
  template <class Dialog>
  void expectRefusal(Dialog& dialog, const std::string& title) {
    LaterCommand later;
    ModalDriver driver([&later](FXDialogBox& shown) {
      if (later.isUnderWay()) return TestSupport::cancel(shown);  // the message, then the dialog
      later.command(shown, FXDialogBox::ID_ACCEPT);
    });
    EXPECT_FALSE(dialog.execute());
    EXPECT_EQ(driver.titles.size(), 3u);
    EXPECT_EQ(driver.titles[1], title);
  }
};

TEST_F(RecordDialogTest, keepsWhatWasTypedWhenThePartnerHasNoName) {
  PartnerDialog dialog(&owner, database(), icons, Host::Partner{1, "Zöld Bt.", "Pécs", "1-2"});
  dialog.getNameField()->setText("  ");
  dialog.getAddressField()->setText("Győr");
  expectRefusal(dialog, "Partner módosítása");
  EXPECT_EQ(dialog.getAddressField()->getText(), "Győr");
  EXPECT_EQ(dialog.getPartner().address, "Pécs");
  EXPECT_EQ(company.query("select address from t_partner where t_partner_id=1"), (Grid{{"Pécs"}}));
}

TEST_F(RecordDialogTest, keepsWhatWasTypedWhenThePriceIsNoNumber) {
  ServiceDataWindow dialog(&owner, database(), Host::Article{2, 1, "Szerelés", "óra", "12000"});
  EXPECT_EQ(dialog.getPriceField()->getText(),
            "12\xC2\xA0"
            "000");
  dialog.getPriceField()->setText("sok");
  expectRefusal(dialog, "Szolgáltatás módosítása – Szerelés");
  EXPECT_EQ(dialog.getPriceField()->getText(), "sok");
  EXPECT_EQ(company.query("select price from t_service"), (Grid{{"12000"}}));
}

TEST_F(RecordDialogTest, keepsWhatWasTypedWhenTheDatabaseRefuses) {
  PartnerDialog dialog(&owner, database(), icons, Host::Partner{});
  dialog.getNameField()->setText("Új Kft.");
  company.run("alter table t_partner rename to t_gone");
  expectRefusal(dialog, "Új partner");
  EXPECT_EQ(dialog.getNameField()->getText(), "Új Kft.");
}

TEST_F(RecordDialogTest, storesThePriceThatItShows) {
  ProductDataWindow dialog(&owner, database(), Host::Article{1, 1, "Szelep", "db", "1234.5"});
  ModalDriver driver(TestSupport::accept);
  EXPECT_TRUE(dialog.execute());
  EXPECT_EQ(company.query("select price from t_product where t_product_id=1"), (Grid{{"1234.5"}}));
}

}  // namespace
}  // namespace Quillane::Desktop
