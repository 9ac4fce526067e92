// The association panel on a window of the host: what OK sends to the database, and the rows afterwards.
#include "ui/ItemDataAssociationPanelHandler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "fxext/FXDualList.h"
#include "plugin/contract/Forms.h"
#include "tests/plugin/TextCatalogue.h"
#include "tests/ui/AssociationFixture.h"
#include "ui/ItemDataAssociationPanel.h"

using namespace FX;
using FXExt::FXDualList;
using testing::ElementsAre;
using testing::IsEmpty;

namespace Quillane::Plugin::ItemData {
namespace {

using ItemDataAssociationPanel::Handler;

/// A panel on the window of an article. The statements of reading it are not in the log.
class HandlerTest : public AssociationTest {
 protected:
  template <class Window>
  void open(int article) {
    window = makeWindow<Window>(article);
    handler.reset(provider.getHandler(window.get()));
    place = std::make_unique<FXMainWindow>(&testAccount(), "place");
    handler->createGUI(place.get());
    place->create();
    panel = dynamic_cast<UI::ItemDataAssociationPanel*>(place->getFirst());
    ASSERT_NE(panel, nullptr);
    executed();
  }

  ~HandlerTest() override { handler.reset(); }

  FXDualList& incoming() const { return *panel->getIncoming(); }
  FXDualList& outgoing() const { return *panel->getOutgoing(); }

  long pressOK() { return handler->onOKButton(nullptr, FXSEL(SEL_COMMAND, 1), nullptr); }

  std::unique_ptr<PanelisedWindow> window;
  std::unique_ptr<FXMainWindow> place;
  std::unique_ptr<PanelProvider::Handler> handler;
  UI::ItemDataAssociationPanel* panel = nullptr;  // a child of the place
};

const char* const kInsertSql =
    "insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (%t_product_1, "
    "%t_itemvariable_1, %position, %direction)";
const char* const kUpdateSql = "update t_productitemdata set position=%position where t_productitemdata_id = %assignId";
const char* const kDeleteSql = "delete from t_productitemdata where t_productitemdata_id=%t_productitemdata_id";

TEST_F(HandlerTest, isNamedForItsPanelAndLooksLikeItsModule) {
  open<ProductDataWindow>(1);
  EXPECT_EQ(handler->getPanelName(), "Tételadatok");
  EXPECT_EQ(handler->getIcon16(), container.getIcon16());
  EXPECT_EQ(handler->getCodeName(), "CodeName");
  EXPECT_EQ(handler->getMetaClass(), &PanelProvider::Handler::metaClass);
}

TEST_F(HandlerTest, translatesItsName) {
  const TextCatalogue catalogue("QuillanePluginItemData", {{"Tételadatok", "Item data"}});
  open<ProductDataWindow>(1);
  EXPECT_EQ(handler->getPanelName(), "Item data");
}

TEST_F(HandlerTest, keepsItsPanelToItself) {
  open<ProductDataWindow>(1);
  EXPECT_EQ(handler->getPanel(), nullptr) << "the host finds it where it was made";
}

TEST_F(HandlerTest, makesOnePanelInTheGivenPlace) {
  open<SuiteDataWindow>(3);
  EXPECT_EQ(place->numChildren(), 1);
  EXPECT_EQ(panel->getKeyColumn(), "t_suite_1");
  EXPECT_EQ(panel->getDB(), db());
}

TEST_F(HandlerTest, insertsWhatWasChosenWithItsPlaceAndDirection) {
  open<ProductDataWindow>(1);
  choose(incoming(), {"Szín"});
  choose(incoming(), {"Rendelés"});
  choose(outgoing(), {"Lejárat"});
  EXPECT_EQ(pressOK(), 1);
  EXPECT_THAT(executed(),
              ElementsAre(call(kInsertSql, "t_product_1='1', t_itemvariable_1='13', position='1', direction='200'"),
                          call(kInsertSql, "t_product_1='1', t_itemvariable_1='11', position='2', direction='200'"),
                          call(kInsertSql, "t_product_1='1', t_itemvariable_1='15', position='1', direction='100'")));
  EXPECT_THAT(assignments("product"), ElementsAre("1 13 1 200", "1 11 2 200", "1 15 1 100"));
}

TEST_F(HandlerTest, storesTheAssignmentsOfASuite) {
  open<SuiteDataWindow>(3);
  choose(incoming(), {"Szín"});
  choose(outgoing(), {"Rendelés", "Állapot"});
  pressOK();
  EXPECT_THAT(assignments("suite"), ElementsAre("3 13 1 200", "3 11 1 100", "3 16 2 100"));
}

TEST_F(HandlerTest, storesTheAssignmentsOfAService) {
  open<ServiceDataWindow>(2);
  choose(incoming(), {"Átvéve"});
  choose(outgoing(), {"Gyári szám"});
  pressOK();
  EXPECT_THAT(assignments("service"), ElementsAre("2 12 1 200", "2 14 1 100"));
}

TEST_F(HandlerTest, updatesOnlyTheRowsWhosePlaceChanged) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {11, 12, 13, 14});
  open<ProductDataWindow>(1);
  moveUp(outgoing(), "Szín");
  EXPECT_EQ(pressOK(), 1);
  EXPECT_THAT(executed(), ElementsAre(call(kUpdateSql, "assignId='" + keyOf("product", 100, 13) + "', position='2'"),
                                      call(kUpdateSql, "assignId='" + keyOf("product", 100, 12) + "', position='3'")));
  EXPECT_THAT(assignments("product"), ElementsAre("1 11 1 100", "1 13 2 100", "1 12 3 100", "1 14 4 100"));
}

TEST_F(HandlerTest, deletesTheRowOfWhatWasMovedBack) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {11, 12});
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {11, 12});
  open<ProductDataWindow>(1);
  const std::string key = keyOf("product", 200, 12);
  giveUp(incoming(), {"Átvéve"});
  EXPECT_EQ(pressOK(), 1);
  EXPECT_THAT(executed(), ElementsAre(call(kDeleteSql, "t_productitemdata_id='" + key + "'")));
  EXPECT_THAT(assignments("product"), ElementsAre("1 11 1 200", "1 11 1 100", "1 12 2 100"));
}

TEST_F(HandlerTest, deletesWhatIsNotChosenBeforeItStoresWhatIs) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {11, 12});
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {13});
  open<ProductDataWindow>(1);
  const std::string deleted = keyOf("product", 200, 11);
  const std::string moved = keyOf("product", 200, 12);
  const std::string deletedOutgoing = keyOf("product", 100, 13);
  giveUp(incoming(), {"Rendelés"});
  choose(incoming(), {"Állapot"});
  giveUp(outgoing(), {"Szín"});
  EXPECT_EQ(pressOK(), 1);
  EXPECT_THAT(executed(),
              ElementsAre(call(kDeleteSql, "t_productitemdata_id='" + deleted + "'"),
                          call(kUpdateSql, "assignId='" + moved + "', position='1'"),
                          call(kInsertSql, "t_product_1='1', t_itemvariable_1='16', position='2', direction='200'"),
                          call(kDeleteSql, "t_productitemdata_id='" + deletedOutgoing + "'")));
  EXPECT_THAT(assignments("product"), ElementsAre("1 12 1 200", "1 16 2 200"));
}

TEST_F(HandlerTest, sendsNothingWhenNothingWasChanged) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {13, 11});
  open<ProductDataWindow>(1);
  EXPECT_EQ(pressOK(), 1);
  EXPECT_THAT(executed(), IsEmpty());
}

TEST_F(HandlerTest, sendsNothingForAVariableThatWasChosenAndMovedBack) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {13, 11});
  open<ProductDataWindow>(1);
  choose(incoming(), {"Állapot"});
  giveUp(incoming(), {"Állapot"});
  giveUp(incoming(), {"Rendelés"});
  choose(incoming(), {"Rendelés"});
  pressOK();
  EXPECT_THAT(executed(), IsEmpty());
}

TEST_F(HandlerTest, putsGappedPlacesInOrder) {
  run("insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 13, 30, 100), "
      "(1, 11, 1, 100)");
  open<ProductDataWindow>(1);
  pressOK();
  EXPECT_THAT(assignments("product"), ElementsAre("1 11 1 100", "1 13 2 100"));
}

TEST_F(HandlerTest, givesAPlaceToWhatWasStoredWithoutOne) {
  run("insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 13, null, 100)");
  open<ProductDataWindow>(1);
  pressOK();
  EXPECT_THAT(assignments("product"), ElementsAre("1 13 1 100"));
}

TEST_F(HandlerTest, storesEachAssignmentOfAVariableByItself) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {11, 13, 11});
  open<ProductDataWindow>(1);
  outgoing().getToList()->killSelection();
  outgoing().getToList()->selectItem(0);
  outgoing().handle(nullptr, FXSEL(SEL_COMMAND, FXDualList::ID_MAKEUNSELECTED), nullptr);
  pressOK();
  EXPECT_THAT(assignments("product"), ElementsAre("1 13 1 100", "1 11 2 100"));
}

TEST_F(HandlerTest, canTakeEverythingAway) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {11, 12});
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {13});
  open<ProductDataWindow>(1);
  giveUp(incoming(), {"Rendelés", "Átvéve"});
  giveUp(outgoing(), {"Szín"});
  pressOK();
  EXPECT_THAT(assignments("product"), IsEmpty());
}

TEST_F(HandlerTest, storesNothingOfACompanyWithoutVariables) {
  run("delete from t_itemvariable where type>0");
  open<ProductDataWindow>(1);
  EXPECT_EQ(pressOK(), 1);
  EXPECT_THAT(executed(), IsEmpty());
}

TEST_F(HandlerTest, leavesOtherArticlesAlone) {
  run("insert into t_product (t_product_id, name) values (4, 'Másik')");
  assign(InvoiceItem::ARTICLE_PRODUCT, 4, 200, {11, 12});
  open<ProductDataWindow>(1);
  choose(incoming(), {"Átvéve", "Rendelés"});
  moveUp(incoming(), "Átvéve");
  pressOK();
  EXPECT_THAT(assignments("product"), ElementsAre("1 12 1 200", "1 11 2 200", "4 11 1 200", "4 12 2 200"));
}

TEST_F(HandlerTest, storesUnderTheKeyThatANewArticleGot) {
  open<ProductDataWindow>(0);
  auto& stored = dynamic_cast<WindowOfRecord<ProductDataWindow>&>(*window);
  choose(outgoing(), {"Rendelés"});
  run("insert into t_product (t_product_id, name) values (8, 'Új')");
  stored.setRecordId(8);
  pressOK();
  EXPECT_THAT(assignments("product"), ElementsAre("8 11 1 100"));
}

TEST_F(HandlerTest, passesItemsOverThatStandForNoVariable) {
  open<ProductDataWindow>(1);
  incoming().appendFromListItem("semmi", nullptr, nullptr);
  incoming().appendToListItem("semmi", nullptr, nullptr);
  choose(incoming(), {"Rendelés"});
  EXPECT_EQ(pressOK(), 1);
  EXPECT_THAT(assignments("product"), ElementsAre("1 11 2 200")) << "the place in the list counts";
}

TEST_F(HandlerTest, keepsAnsweringOneWhenTheDatabaseRefuses) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {11});
  open<ProductDataWindow>(1);
  choose(incoming(), {"Szín"});
  run("delete from t_itemvariable where t_itemvariable_id=13");
  ASSERT_TRUE(db()->begin());
  EXPECT_EQ(pressOK(), 1);
  EXPECT_FALSE(db()->commit()) << "the transaction knows";
  EXPECT_THAT(assignments("product"), ElementsAre("1 11 1 200"));
}

TEST_F(HandlerTest, goesOnWithoutAVariableThatAnotherProgramDeleted) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {11, 12, 13});
  open<ProductDataWindow>(1);
  run("delete from t_itemvariable where t_itemvariable_id=11");
  ASSERT_TRUE(db()->begin());
  pressOK();
  EXPECT_TRUE(db()->commit()) << "its place is as it was stored, so nothing is sent";
  moveUp(incoming(), "Átvéve");
  ASSERT_TRUE(db()->begin());
  pressOK();
  EXPECT_FALSE(db()->commit()) << "the row to be moved is gone";
  giveUp(incoming(), {"Rendelés"});
  ASSERT_TRUE(db()->begin());
  pressOK();
  EXPECT_TRUE(db()->commit());
  EXPECT_THAT(assignments("product"), ElementsAre("1 12 1 200", "1 13 2 200"));
}

TEST_F(HandlerTest, keepsEverythingToBeStoredAgainAfterATransactionThatCameToNothing) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {11, 12});
  open<ProductDataWindow>(1);
  giveUp(incoming(), {"Rendelés"});
  choose(incoming(), {"Szín"});
  ASSERT_TRUE(db()->begin());
  pressOK();
  db()->rollback();
  EXPECT_THAT(assignments("product"), ElementsAre("1 11 1 200", "1 12 2 200"));
  pressOK();
  EXPECT_THAT(assignments("product"), ElementsAre("1 12 1 200", "1 13 2 200"));
}

TEST_F(HandlerTest, keepsInsertingAnewWhenItIsAcceptedTwice) {
  open<ProductDataWindow>(1);
  choose(incoming(), {"Szín"});
  pressOK();
  pressOK();
  EXPECT_THAT(assignments("product"), ElementsAre("1 13 1 200", "1 13 1 200"));
}

TEST_F(HandlerTest, doesNothingToTheDatabaseWhenTheWindowIsGivenUp) {
  open<ProductDataWindow>(1);
  choose(incoming(), {"Szín"});
  EXPECT_EQ(handler->onCancelButton(nullptr, FXSEL(SEL_COMMAND, 1), nullptr), 0);
  handler->onFocus();
  EXPECT_THAT(executed(), IsEmpty());
}

TEST_F(HandlerTest, hasNothingToStoreBeforeItsPanelWasMade) {
  window = makeWindow<ProductDataWindow>(1);
  handler.reset(provider.getHandler(window.get()));
  executed();
  EXPECT_EQ(pressOK(), 1);
  EXPECT_THAT(executed(), IsEmpty());
}

TEST_F(HandlerTest, storesWhatItemsOfTheArticleAskForFromThenOn) {
  open<ProductDataWindow>(1);
  choose(outgoing(), {"Szín"});
  choose(outgoing(), {"Rendelés"});
  choose(outgoing(), {"Gyári szám"});
  choose(incoming(), {"Lejárat"});
  pressOK();

  InvoiceItem* item = newItem();
  ItemDataList settings;
  settings.loadSettings(db(), 101, item);
  EXPECT_THAT(names(settings), ElementsAre("Szín", "Rendelés", "Mennyiség", "Gyári szám"));
  ItemDataList incomingSettings;
  incomingSettings.loadSettings(db(), 201, item);
  EXPECT_THAT(names(incomingSettings), ElementsAre("Mennyiség", "Lejárat"));
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
