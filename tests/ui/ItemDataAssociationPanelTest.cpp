// The association panel without a display: what it reads, how it shows it, and how it is built.
#include "ui/ItemDataAssociationPanel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <ostream>

#include "fxext/FXDualList.h"
#include "icons/icons.h"
#include "plugin/contract/Forms.h"
#include "tests/plugin/TextCatalogue.h"
#include "tests/ui/AssociationFixture.h"
#include "tests/ui/DialogFixture.h"

using namespace FX;
using FXExt::FXDualList;
using testing::ElementsAre;
using testing::IsEmpty;

namespace Quillane::Plugin::ItemData::UI {
namespace {

class PanelTest : public AssociationTest {
 protected:
  PanelTest() : frame(std::make_unique<FXMainWindow>(&testAccount(), "panel")) {}

  /// Makes the panel of an article's window and has it read the database.
  ItemDataAssociationPanel& open(PanelisedWindow* dataWindow, const char* keyColumn) {
    auto* panel = new ItemDataAssociationPanel(frame.get(), dataWindow, db(), keyColumn);
    executed();
    panel->create();
    from = {panel->getIncoming()->getFromList(), panel->getOutgoing()->getFromList()};
    to = {panel->getIncoming()->getToList(), panel->getOutgoing()->getToList()};
    return *panel;
  }

  ItemDataAssociationPanel& openProduct(int id) {
    product = makeWindow<ProductDataWindow>(id);
    return open(product.get(), "t_product_1");
  }

  struct Lists {
    FXList* incoming;
    FXList* outgoing;
  };

  std::unique_ptr<ProductDataWindow> product;
  std::unique_ptr<FXMainWindow> frame;
  Lists from{nullptr, nullptr};
  Lists to{nullptr, nullptr};
};

/// The text that is sent for a direction.
std::string sql(const std::string& table, const std::string& keyColumn, const std::string& blank,
                const std::string& end) {
  return "select iv.t_itemvariable_id, " + table +
         "_id, coalesce(sid.t_itemvariable_1,0) tick, coalesce(sid.position," + blank +
         "0), %direction , %productid , iv.name, iv.mandatory, iv.type, iv.process from t_itemvariable iv left "
         "join " +
         table + " sid on sid.t_itemvariable_1=iv.t_itemvariable_id and " + keyColumn +
         "=%productid and sid.direction=%direction where iv.type>0 order by sid.position" + end;
}

TEST_F(PanelTest, readsTheAssignmentsOfAProduct) {
  openProduct(1);
  EXPECT_THAT(executed(),
              ElementsAre(call(sql("t_productitemdata", "t_product_1", "", ""), "productid='1', direction='200'"),
                          call(sql("t_productitemdata", "t_product_1", " ", ";"), "productid='1', direction='100'")));
}

TEST_F(PanelTest, readsTheAssignmentsOfASuite) {
  const auto suite = makeWindow<SuiteDataWindow>(3);
  open(suite.get(), "t_suite_1");
  EXPECT_THAT(executed(),
              ElementsAre(call(sql("t_suiteitemdata", "t_suite_1", "", ""), "productid='3', direction='200'"),
                          call(sql("t_suiteitemdata", "t_suite_1", " ", ";"), "productid='3', direction='100'")));
}

TEST_F(PanelTest, readsTheAssignmentsOfAService) {
  const auto service = makeWindow<ServiceDataWindow>(2);
  open(service.get(), "t_service_1");
  EXPECT_THAT(executed(),
              ElementsAre(call(sql("t_serviceitemdata", "t_service_1", "", ""), "productid='2', direction='200'"),
                          call(sql("t_serviceitemdata", "t_service_1", " ", ";"), "productid='2', direction='100'")));
}

TEST_F(PanelTest, knowsTheAssignmentTableOfEachKeyColumn) {
  EXPECT_EQ(ItemDataAssociationPanel::getAssignmentTable("t_product_1"), "t_productitemdata");
  EXPECT_EQ(ItemDataAssociationPanel::getAssignmentTable("t_service_1"), "t_serviceitemdata");
  EXPECT_EQ(ItemDataAssociationPanel::getAssignmentTable("t_suite_1"), "t_suiteitemdata");
  EXPECT_EQ(ItemDataAssociationPanel::getAssignmentTable("t_partner_1"), "");
  EXPECT_EQ(ItemDataAssociationPanel::getAssignmentTable(""), "");
}

TEST_F(PanelTest, readsNothingBeforeItIsCreated) {
  product = makeWindow<ProductDataWindow>(1);
  executed();
  const auto* panel = new ItemDataAssociationPanel(frame.get(), product.get(), db(), "t_product_1");
  EXPECT_THAT(executed(), IsEmpty());
  EXPECT_EQ(panel->getIncoming()->getFromList()->getNumItems(), 0);
  EXPECT_EQ(panel->getDB(), db());
  EXPECT_EQ(panel->getKeyColumn(), "t_product_1");
}

TEST_F(PanelTest, showsEveryVariableOnceInEachChooser) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {15, 11});
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {16, 12, 13});
  openProduct(1);
  EXPECT_THAT(texts(*to.incoming), ElementsAre("Lejárat", "Rendelés"));
  EXPECT_THAT(texts(*from.incoming), testing::UnorderedElementsAre("Átvéve", "Szín", "Gyári szám", "Állapot"));
  EXPECT_THAT(texts(*to.outgoing), ElementsAre("Állapot", "Átvéve", "Szín"));
  EXPECT_THAT(texts(*from.outgoing), testing::UnorderedElementsAre("Rendelés", "Gyári szám", "Lejárat"));
}

TEST_F(PanelTest, showsTheChosenOnesInTheOrderOfTheirPositions) {
  run("insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 13, 30, 100), "
      "(1, 11, 7, 100), (1, 16, 12, 100)");
  openProduct(1);
  EXPECT_THAT(texts(*to.outgoing), ElementsAre("Rendelés", "Állapot", "Szín"));
}

TEST_F(PanelTest, showsTheAssignmentsOfItsArticleOnly) {
  run("insert into t_product (t_product_id, name) values (2, 'Másik')");
  assign(InvoiceItem::ARTICLE_PRODUCT, 2, 200, {11, 12});
  assign(InvoiceItem::ARTICLE_SERVICE, 2, 200, {13});
  openProduct(1);
  EXPECT_THAT(texts(*to.incoming), IsEmpty());
  EXPECT_EQ(from.incoming->getNumItems(), 6);
}

TEST_F(PanelTest, showsNothingChosenForAnArticleThatIsNotStoredYet) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {11, 12});
  openProduct(0);
  EXPECT_THAT(texts(*to.outgoing), IsEmpty());
  EXPECT_EQ(from.outgoing->getNumItems(), 6);
}

TEST_F(PanelTest, neverShowsVariablesOfTypeZeroOrLess) {
  define({{21, "Belső", 0}, {22, "Rejtett", -5}});
  openProduct(1);
  for (const FXList* list : {from.incoming, from.outgoing}) {
    EXPECT_THAT(texts(*list), testing::Not(testing::Contains("Belső")));
    EXPECT_THAT(texts(*list), testing::Not(testing::Contains("Rejtett")));
    EXPECT_THAT(texts(*list), testing::Not(testing::Contains("Mennyiség")));
    EXPECT_EQ(list->getNumItems(), 6);
  }
}

TEST_F(PanelTest, keepsShowingVariablesOfKindsThatTheSettingsDoNotShow) {
  define({{23, "Különös", 150}});
  openProduct(1);
  const FXint index = from.incoming->findItem("Különös");
  ASSERT_GE(index, 0);
  EXPECT_EQ(from.incoming->getItemIcon(index), nullptr);
}

TEST_F(PanelTest, givesEveryItemItsVariable) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {15, 13});
  openProduct(1);
  const ItemDataVariable* chosen = variableAt(*to.incoming, 1);
  EXPECT_EQ(chosen->assignId, std::stoi(keyOf("product", 200, 13)));
  EXPECT_EQ(chosen->itemvariable, 13);
  EXPECT_EQ(chosen->productid, 1);
  EXPECT_EQ(chosen->name, "Szín");
  EXPECT_EQ(chosen->assigned, 1);
  EXPECT_EQ(chosen->type, 3);
  EXPECT_EQ(chosen->direction, 200);
  EXPECT_EQ(chosen->position, 2);
  EXPECT_EQ(chosen->mandatory, 1);

  const FXint index = from.outgoing->findItem("Lejárat");
  ASSERT_GE(index, 0);
  const ItemDataVariable* other = variableAt(*from.outgoing, index);
  EXPECT_EQ(other->assignId, 0);
  EXPECT_EQ(other->itemvariable, 15);
  EXPECT_EQ(other->productid, 1);
  EXPECT_EQ(other->assigned, 0);
  EXPECT_EQ(other->type, 2);
  EXPECT_EQ(other->direction, 100);
  EXPECT_EQ(other->position, 0);
  EXPECT_EQ(other->mandatory, 0);
}

TEST_F(PanelTest, isNotFilledAgainWhenItIsCreatedAgain) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {15});
  ItemDataAssociationPanel& panel = openProduct(1);
  choose(*panel.getIncoming(), {"Szín"});
  executed();
  panel.create();
  EXPECT_THAT(executed(), IsEmpty());
  EXPECT_THAT(texts(*to.incoming), ElementsAre("Lejárat", "Szín"));
  EXPECT_EQ(from.incoming->getNumItems(), 4);
}

TEST_F(PanelTest, showsAVariableAsOftenAsItIsAssigned) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {15, 11, 15});
  openProduct(1);
  EXPECT_THAT(texts(*to.incoming), ElementsAre("Lejárat", "Rendelés", "Lejárat"));
  EXPECT_EQ(from.incoming->getNumItems(), 4);
  EXPECT_NE(variableAt(*to.incoming, 0)->assignId, variableAt(*to.incoming, 2)->assignId);
}

TEST_F(PanelTest, showsAnAssignmentWithoutAPlaceAsTheFirst) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 100, {11});
  run("insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 13, null, 100)");
  openProduct(1);
  EXPECT_THAT(texts(*to.outgoing), ElementsAre("Szín", "Rendelés"));
  EXPECT_EQ(variableAt(*to.outgoing, 0)->position, 0);
}

TEST_F(PanelTest, showsNamesAsTheyAreStored) {
  run("update t_itemvariable set name='100% & \"egyéb\"' || char(9) || 'x' || char(10) || 'y' where "
      "t_itemvariable_id=11");
  run("update t_itemvariable set name=null, mandatory=null where t_itemvariable_id=12");
  openProduct(1);
  const Lines names = texts(*from.incoming);
  EXPECT_THAT(names, testing::Contains("100% & \"egyéb\"\tx\ny"));
  ASSERT_THAT(names, testing::Contains(""));
  EXPECT_EQ(names.size(), 6u);
  EXPECT_EQ(variableAt(*from.incoming, from.incoming->findItem(""))->mandatory, 0);
}

TEST_F(PanelTest, isEmptyForArticlesThatHaveNoAssignmentTable) {
  product = makeWindow<ProductDataWindow>(1);
  open(product.get(), "t_partner_1");
  for (const FXList* list : {from.incoming, from.outgoing, to.incoming, to.outgoing}) EXPECT_EQ(list->getNumItems(), 0);
}

TEST_F(PanelTest, isEmptyWithoutAWindow) {
  open(nullptr, "t_product_1");
  EXPECT_THAT(executed(), IsEmpty());
  EXPECT_EQ(from.incoming->getNumItems(), 0);
}

TEST_F(PanelTest, isEmptyWithoutVariables) {
  run("delete from t_itemvariable where type>0");
  openProduct(1);
  for (const FXList* list : {from.incoming, from.outgoing, to.incoming, to.outgoing}) EXPECT_EQ(list->getNumItems(), 0);
}

struct Picture {
  int type;
  int mandatory;
  const unsigned char* image;  // null for none
};

void PrintTo(const Picture& picture, std::ostream* out) {
  *out << "type " << picture.type << ", mandatory " << picture.mandatory;
}

class PictureTest : public PanelTest, public testing::WithParamInterface<Picture> {};

TEST_P(PictureTest, tellsTheKindAndWhetherAValueIsRequired) {
  const ItemDataAssociationPanel& panel = openProduct(1);
  ItemDataVariable variable;
  variable.type = GetParam().type;
  variable.mandatory = GetParam().mandatory;
  const FXIcon* icon = panel.getIcon(&variable);
  if (!GetParam().image) {
    EXPECT_EQ(icon, nullptr);
    return;
  }
  ASSERT_NE(icon, nullptr);
  const FXGIFIcon expected(&testAccount(), GetParam().image, FXRGB(192, 192, 192), 0, 1, 1);
  ASSERT_EQ(icon->getWidth(), expected.getWidth());
  ASSERT_EQ(icon->getHeight(), expected.getHeight());
  const auto pixels = static_cast<size_t>(expected.getWidth() * expected.getHeight());
  EXPECT_EQ(std::memcmp(icon->getData(), expected.getData(), pixels * sizeof(FXColor)), 0);
  EXPECT_EQ(icon->getTransparentColor(), FXRGB(192, 192, 192));
  EXPECT_EQ(panel.getIcon(&variable), icon) << "made once";
}

INSTANTIATE_TEST_SUITE_P(OfAVariable, PictureTest,
                         testing::Values(Picture{1, 1, icon_mdt_text}, Picture{1, 0, icon_opt_text},
                                         Picture{2, 1, icon_mdt_date}, Picture{2, 0, icon_opt_date},
                                         Picture{3, 1, icon_mdt_list}, Picture{3, 0, icon_opt_list},
                                         Picture{3, 2, icon_opt_list}, Picture{4, 1, nullptr}, Picture{0, 0, nullptr},
                                         Picture{-1, 1, nullptr}));

TEST_F(PanelTest, showsThePicturesBesideTheNames) {
  assign(InvoiceItem::ARTICLE_PRODUCT, 1, 200, {13});
  const ItemDataAssociationPanel& panel = openProduct(1);
  EXPECT_EQ(to.incoming->getItemIcon(0), panel.getIcon(variableAt(*to.incoming, 0)));
  ASSERT_NE(to.incoming->getItemIcon(0), nullptr);
  for (FXint i = 0; i < from.outgoing->getNumItems(); ++i) {
    EXPECT_EQ(from.outgoing->getItemIcon(i), panel.getIcon(variableAt(*from.outgoing, i)));
    EXPECT_NE(from.outgoing->getItemIcon(i), nullptr);
  }
}

/// A variable that tells of its end.
class TellingVariable : public ItemDataVariable {
 public:
  explicit TellingVariable(int& deletedCount) : deleted(deletedCount) {}
  ~TellingVariable() override { ++deleted; }

 private:
  int& deleted;
};

TEST_F(PanelTest, deletesTheVariablesOfAllFourLists) {
  const ItemDataAssociationPanel& panel = openProduct(1);
  int deleted = 0;
  for (FXDualList* chooser : {panel.getIncoming(), panel.getOutgoing()}) {
    chooser->appendFromListItem("bal", nullptr, new TellingVariable(deleted));
    chooser->appendToListItem("jobb", nullptr, new TellingVariable(deleted));
    chooser->appendToListItem("semmi", nullptr, nullptr);
  }
  delete &panel;
  EXPECT_EQ(deleted, 4);
}

TEST_F(PanelTest, hasAScrolledColumnOfTwoTitledChoosers) {
  const ItemDataAssociationPanel& panel = openProduct(1);
  EXPECT_EQ(panel.numChildren(), 1);
  const auto* scroller = dynamic_cast<FXScrollWindow*>(panel.getFirst());
  ASSERT_NE(scroller, nullptr);
  EXPECT_EQ(scroller->getLayoutHints() & LAYOUT_FILL, LAYOUT_FILL);
  const auto* column = dynamic_cast<FXVerticalFrame*>(scroller->contentWindow());
  ASSERT_NE(column, nullptr);
  EXPECT_EQ(column->getPadLeft() + column->getPadTop() + column->getPadRight() + column->getPadBottom(), 0);
  EXPECT_EQ(column->getVSpacing(), 4);

  const std::vector<FXSpring*> springs = widgetsIn<FXSpring>(panel);
  ASSERT_EQ(springs.size(), 2u);
  for (const FXSpring* spring : springs) {
    EXPECT_EQ(spring->getParent(), column);
    EXPECT_EQ(spring->getLayoutHints() & LAYOUT_FILL, LAYOUT_FILL);
    EXPECT_EQ(spring->getRelativeWidth(), 1);
    EXPECT_EQ(spring->getPadLeft(), 4);
    EXPECT_EQ(spring->getPadBottom(), 4);
    const auto* room = dynamic_cast<FXVerticalFrame*>(spring->getFirst());
    ASSERT_NE(room, nullptr);
    EXPECT_EQ(room->getPackingHints() & PACK_UNIFORM_HEIGHT, PACK_UNIFORM_HEIGHT);
  }
}

TEST_F(PanelTest, givesTheChoosersAllTheRoomBelowALine) {
  const ItemDataAssociationPanel& panel = openProduct(1);
  for (const FXDualList* chooser : {panel.getIncoming(), panel.getOutgoing()}) {
    const auto* box = dynamic_cast<FXGroupBox*>(chooser->getParent());
    ASSERT_NE(box, nullptr);
    ASSERT_EQ(box->numChildren(), 2);
    EXPECT_EQ(box->getHSpacing() + box->getVSpacing(), 0);
    const auto* line = dynamic_cast<FXHorizontalSeparator*>(box->getFirst());
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->getSeparatorStyle(), static_cast<FXuint>(SEPARATOR_GROOVE));
    EXPECT_EQ(line->getLayoutHints(), static_cast<FXuint>(LAYOUT_FILL_X));
    for (const FXWindow* part : {static_cast<const FXWindow*>(chooser), static_cast<const FXWindow*>(box),
                                 static_cast<const FXWindow*>(box->getParent())})
      EXPECT_EQ(part->getLayoutHints() & LAYOUT_FILL, LAYOUT_FILL) << part->getClassName();
  }
}

TEST_F(PanelTest, titlesTheChoosersAndTheirLists) {
  const ItemDataAssociationPanel& panel = openProduct(1);
  const std::vector<FXGroupBox*> boxes = widgetsIn<FXGroupBox>(panel);
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[0]->getText(), "Bejövő");
  EXPECT_EQ(boxes[1]->getText(), "Kimenő");
  EXPECT_EQ(boxes[0]->getLast(), panel.getIncoming());
  EXPECT_EQ(boxes[1]->getLast(), panel.getOutgoing());
  for (const FXGroupBox* box : boxes) {
    EXPECT_EQ(box->getFrameStyle(), 0u);
    EXPECT_EQ(box->getPadLeft() + box->getPadTop() + box->getPadRight() + box->getPadBottom(), 0);
    EXPECT_NE(dynamic_cast<FXHorizontalSeparator*>(box->getFirst()), nullptr);
    const std::vector<FXLabel*> labels = widgetsIn<FXLabel>(*box);
    ASSERT_EQ(labels.size(), 2u);
    EXPECT_EQ(labels[0]->getText(), "Választható mezők");
    EXPECT_EQ(labels[1]->getText(), "Kiválasztott mezők");
  }
}

TEST_F(PanelTest, translatesItsTitles) {
  const TextCatalogue catalogue("QuillanePluginItemData", {{"Bejövő", "Incoming"},
                                                           {"Kimenő", "Outgoing"},
                                                           {"Választható mezők", "Available fields"},
                                                           {"Kiválasztott mezők", "Chosen fields"}});
  const ItemDataAssociationPanel& panel = openProduct(1);
  Lines titles;
  for (const FXGroupBox* box : widgetsIn<FXGroupBox>(panel)) {
    titles.push_back(text(box->getText()));
    for (const FXLabel* label : widgetsIn<FXLabel>(*box)) titles.push_back(text(label->getText()));
  }
  EXPECT_THAT(titles, ElementsAre("Incoming", "Available fields", "Chosen fields", "Outgoing", "Available fields",
                                  "Chosen fields"));
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData::UI
