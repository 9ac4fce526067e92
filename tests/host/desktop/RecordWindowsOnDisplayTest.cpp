// Partners and articles as a person at the keyboard meets them: real keys, real windows.
#include <fxkeys.h>
#include <gtest/gtest.h>

#include "host/desktop/ArticleListWindow.h"
#include "host/desktop/ArticlePicker.h"
#include "host/desktop/PartnerDialog.h"
#include "host/desktop/PartnerListWindow.h"
#include "host/desktop/PartnerPicker.h"
#include "host/document/ArticleStore.h"
#include "plugin/contract/Forms.h"
#include "tests/support/FakeInput.h"
#include "tests/support/KeyScript.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using TestSupport::KeyScript;
using TestSupport::takeScreenshot;
using TestSupport::typeKey;
using TestSupport::typeText;

namespace Quillane::Desktop {
namespace {

class RecordWindowsOnDisplay : public testing::Test {
 protected:
  void SetUp() override {
    testAccount();
    ASSERT_TRUE(TestSupport::openToolkitDisplay()) << TestSupport::kNoDisplay;
    company.fill("t_partner", {{"name", "address", "taxnumber"},
                               {"Zöldmező Kertészet Bt.", "7621 Pécs, Király utca 5.", "22334455-1-02"},
                               {"Őrségi Pálinka Kft.", "9941 Őriszentpéter, Városszer 12.", "11223344-2-18"},
                               {"Alföldi Gépbolt Zrt.", "6000 Kecskemét, Ipar körút 100.", "33445566-2-03"}});
    company.fill("t_product", {{"name", "unit", "price"},
                               {"Hordozható számítógép, 14\"", "db", "289900"},
                               {"Érlelt kecskesajt", "kg", "5890"},
                               {"Hosszabbító kábel, 3 × 1,5 mm²", "m", "689.5"}});
    company.fill("t_service", {{"name", "unit", "price"}, {"Üzembe helyezés", "óra", "12000"}});
    icons = std::make_unique<Host::IconSet>(&testAccount());
    icons->create();
    owner = new FXMainWindow(&testAccount(), "owner", nullptr, nullptr, DECOR_ALL, 0, 0, 900, 650);
    owner->create();
    owner->show();
  }

  void TearDown() override { delete owner; }

  /// The modal window, when it is a T and on the screen.
  template <class T>
  static T* modal() {
    auto* window = dynamic_cast<T*>(testAccount().getModalWindow());
    return window && TestSupport::isOnScreen(*window) ? window : nullptr;
  }

  template <class T>
  static KeyScript::Condition isShown() {
    return [] { return modal<T>() != nullptr; };
  }

  /// The same, when the keyboard is there, too.
  template <class T>
  static T* active() {
    T* window = modal<T>();
    return window && testAccount().getActiveWindow() == window ? window : nullptr;
  }

  template <class T>
  static KeyScript::Condition isActive() {
    return [] { return active<T>() != nullptr; };
  }

  static FXButton* findButton(FXWindow& window) {
    for (FXWindow* child = window.getFirst(); child; child = child->getNext()) {
      if (auto* button = dynamic_cast<FXButton*>(child)) return button;
      if (FXButton* button = findButton(*child)) return button;
    }
    return nullptr;
  }

  static void typeAll(const std::vector<std::string>& keys) {
    for (const std::string& key : keys) typeKey(key);
  }

  TestCompany company;
  std::unique_ptr<Host::IconSet> icons;
  FXMainWindow* owner = nullptr;  // owned
  KeyScript script;
};

TEST_F(RecordWindowsOnDisplay, changeAnArticleAndAddOne) {
  ArticleListWindow window(owner, *company.getDB(), *icons);
  script
      .step("the list", isActive<ArticleListWindow>(),
            [] {
              takeScreenshot("article-list");
              typeText("kecske");
            })
      .step(
          "one article", [&] { return window.getRecordList()->getNumShown() == 1; },
          [] {
            takeScreenshot("article-list-filtered");
            typeKey("Return");
          })
      .step("the dialog", isActive<ArticleDataWindow>(),
            [] {
              takeScreenshot("article-dialog");
              typeAll({"Tab", "Tab"});
              typeText("6250");
              typeKey("Return");
            })
      .step(
          "the list with the new price",
          [&] { return active<ArticleListWindow>() && company.query("select price from t_product")[1][0] == "6250"; },
          [] {
            typeKey("Escape");  // empties the field
            typeKey("s", "Alt_L");
          })
      .step(
          "the services", [&] { return window.getKind() == 2 && window.getRecordList()->getNumShown() == 1; },
          [] {
            takeScreenshot("article-list-services");
            typeKey("j", "Alt_L");
          })
      .step("the dialog for a new service", isActive<ArticleDataWindow>(),
            [] {
              typeText("futar");
              typeKey("Return");
            })
      .step(
          "the new service", [&] { return active<ArticleListWindow>() && window.getRecordList()->getCurrentId() == 2; },
          [&] {
            EXPECT_TRUE(window.getFilterField()->hasFocus()) << "not the button that was pressed";
            typeKey("Escape");
          });
  script.start();
  window.execute();
  EXPECT_TRUE(script.isDone());
  EXPECT_EQ(company.query("select name, unit, price from t_service where t_service_id=2"),
            (Grid{{"futar", "db", "0"}}));
}

TEST_F(RecordWindowsOnDisplay, pickAPartnerByAPartOfTheName) {
  PartnerPicker picker(owner, *company.getDB(), *icons);
  script
      .step("the list", isActive<PartnerPicker>(),
            [] {
              takeScreenshot("partner-picker");
              typeText("kert");
            })
      .step(
          "one partner", [&] { return picker.getRecordList()->getNumShown() == 1; }, [] { typeKey("Return"); });
  script.start();
  EXPECT_TRUE(picker.execute());
  EXPECT_TRUE(script.isDone());
  EXPECT_EQ(picker.getPartner().id, 1);
  EXPECT_EQ(picker.getPartner().taxNumber, "22334455-1-02");
}

TEST_F(RecordWindowsOnDisplay, addAPartnerOnTheSpotAfterAMistake) {
  PartnerPicker picker(owner, *company.getDB(), *icons);
  script
      .step("the list", isActive<PartnerPicker>(),
            [] {
              typeText("uj");
              typeKey("j", "Alt_L");
            })
      .step("the dialog with the name", isActive<PartnerDialog>(),
            [] {
              EXPECT_EQ(active<PartnerDialog>()->getNameField()->getText(), "uj");
              typeAll({"BackSpace", "BackSpace", "Tab"});
              typeText("Eger");
              takeScreenshot("partner-dialog");
              typeKey("Return");
            })
      .step("the message", isShown<FXMessageBox>(),
            [] {
              takeScreenshot("partner-message");
              TestSupport::click(*findButton(*modal<FXMessageBox>()));
            })
      .step("the dialog again", isShown<PartnerDialog>(),
            [] {
              EXPECT_EQ(modal<PartnerDialog>()->getAddressField()->getText(), "Eger");
              TestSupport::click(*modal<PartnerDialog>()->getNameField());
            })
      .step("the cursor in the name", isActive<PartnerDialog>(), [] {
        typeText("Ujkft.");
        typeKey("Return");
      });
  script.start();
  EXPECT_TRUE(picker.execute());
  EXPECT_TRUE(script.isDone());
  EXPECT_EQ(picker.getPartner().name, "Ujkft.");
  EXPECT_EQ(company.query("select name, address from t_partner where t_partner_id=4"), (Grid{{"Ujkft.", "Eger"}}));
}

TEST_F(RecordWindowsOnDisplay, listPartnersByAClickOnTheHeader) {
  PartnerListWindow window(owner, *company.getDB(), *icons);
  FXHeader* header = window.getRecordList()->getList()->getHeader();
  script.step("the list", isActive<PartnerListWindow>(), [&] { TestSupport::click(*header, 1, 300, 8); })
      .step(
          "another order", [&] { return window.getRecordList()->getSortColumn() == 1; },
          [&] {
            takeScreenshot("partner-list");
            EXPECT_EQ(window.getRecordList()->getShownIds(), (std::vector<int>{3, 1, 2}));
            typeKey("Down");
          })
      .step(
          "the next partner", [&] { return window.getRecordList()->getCurrentId() == 1; },
          [] { typeKey("b", "Alt_L"); });
  script.start();
  EXPECT_FALSE(window.execute());
  EXPECT_TRUE(script.isDone());
}

TEST_F(RecordWindowsOnDisplay, giveUpByEscape) {
  ArticlePicker picker(owner, *company.getDB(), *icons, 1);
  picker.setCurrentId(3);
  script.step("the list", isActive<ArticlePicker>(), [&] {
    EXPECT_EQ(picker.getRecordList()->getCurrentId(), 3);
    takeScreenshot("article-picker");
    typeKey("Escape");
  });
  script.start();
  EXPECT_FALSE(picker.execute());
  EXPECT_TRUE(script.isDone());
}

}  // namespace
}  // namespace Quillane::Desktop
