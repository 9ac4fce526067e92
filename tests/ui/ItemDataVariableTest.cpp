// The assignment of an item variable to an article: the texts that go to the database, and the rows afterwards.
#include "ui/ItemDataVariable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <ostream>

#include "tests/itemdata/ItemDataFixture.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;

namespace Quillane::Plugin::ItemData::UI {
namespace {

/// Where the assignments of a kind of article stand; the article is one that the fixture's company has.
struct Place {
  const char* table;
  const char* keyColumn;
  int article;
};

void PrintTo(const Place& place, std::ostream* out) { *out << place.table; }

class ItemDataVariableTest : public ItemDataDatabaseTest, public testing::WithParamInterface<Place> {
 protected:
  ItemDataVariableTest() {
    define({{11, "Rendelés"}, {12, "Átvéve", ItemDataEntry::TYPE_DATE}});
    variable.itemvariable = 12;
    variable.productid = GetParam().article;
    variable.direction = ItemDataVariable::DIRECTION_INCOMING;
  }

  std::string table() const { return GetParam().table; }
  std::string keyColumn() const { return GetParam().keyColumn; }

  /// Stores the assignment as another one's doing, with the key 40.
  void store(int position) {
    run("insert into " + table() + " (" + table() + "_id, " + keyColumn() +
        ", t_itemvariable_1, position, direction) values (40, " + std::to_string(GetParam().article) + ", 12, " +
        std::to_string(position) + ", 200)");
    variable.assignId = 40;
    variable.position = position;
    variable.assigned = 1;
  }

  void saveAssigned(unsigned position) {
    variable.saveAssigned(db(), GetParam().table, GetParam().keyColumn, position);
  }

  /// The rows of the assignment table: article, variable, position and direction.
  Lines stored() {
    return query("select " + keyColumn() + ", t_itemvariable_1, position, direction from " + table() + " order by " +
                 table() + "_id");
  }

  std::string article() const { return std::to_string(GetParam().article); }

  ItemDataVariable variable;
};

TEST_P(ItemDataVariableTest, isInsertedAtItsPlaceWhenItIsNotStored) {
  saveAssigned(3);
  EXPECT_THAT(executed(),
              ElementsAre(call(
                  "insert into " + table() + " (" + keyColumn() + ", t_itemvariable_1, position, direction) values (%" +
                      keyColumn() + ", %t_itemvariable_1, %position, %direction)",
                  keyColumn() + "='" + article() + "', t_itemvariable_1='12', position='3', direction='200'")));
  EXPECT_THAT(stored(), ElementsAre(article() + " 12 3 200"));
}

TEST_P(ItemDataVariableTest, getsItsNewPlaceWhenItIsStored) {
  store(1);
  saveAssigned(4);
  EXPECT_THAT(executed(),
              ElementsAre(call("update " + table() + " set position=%position where " + table() + "_id = %assignId",
                               "assignId='40', position='4'")));
  EXPECT_THAT(stored(), ElementsAre(article() + " 12 4 200"));
}

TEST_P(ItemDataVariableTest, isLeftAloneWhenItStandsInItsPlace) {
  store(2);
  saveAssigned(2);
  EXPECT_THAT(executed(), IsEmpty());
}

TEST_P(ItemDataVariableTest, isInsertedAlsoWhenItsPlaceIsTheOneItHas) {
  variable.position = 2;
  saveAssigned(2);
  EXPECT_THAT(stored(), ElementsAre(article() + " 12 2 200"));
}

TEST_P(ItemDataVariableTest, isDeletedWhenItIsStored) {
  store(1);
  variable.saveNotAssigned(db(), GetParam().table);
  EXPECT_THAT(executed(), ElementsAre(call("delete from " + table() + " where " + table() + "_id=%" + table() + "_id",
                                           table() + "_id='40'")));
  EXPECT_THAT(stored(), IsEmpty());
}

TEST_P(ItemDataVariableTest, isNotDeletedWhenItIsNotStored) {
  variable.saveNotAssigned(db(), GetParam().table);
  EXPECT_THAT(executed(), IsEmpty());
}

TEST_P(ItemDataVariableTest, keepsNotKnowingWhatWasStored) {
  saveAssigned(1);
  EXPECT_EQ(variable.assignId, 0);
  EXPECT_EQ(variable.position, 0);
  EXPECT_EQ(variable.assigned, 0);
  saveAssigned(1);
  EXPECT_THAT(stored(), ElementsAre(article() + " 12 1 200", article() + " 12 1 200"));
}

TEST_P(ItemDataVariableTest, keepsItsOldPlaceAfterItGotANewOne) {
  store(1);
  saveAssigned(2);
  EXPECT_EQ(variable.position, 1);
  saveAssigned(1);
  EXPECT_THAT(stored(), ElementsAre(article() + " 12 2 200")) << "the place that it had before counts as stored";
}

INSTANTIATE_TEST_SUITE_P(OfEveryKindOfArticle, ItemDataVariableTest,
                         testing::Values(Place{"t_productitemdata", "t_product_1", 1},
                                         Place{"t_serviceitemdata", "t_service_1", 2},
                                         Place{"t_suiteitemdata", "t_suite_1", 3}),
                         [](const auto& test) { return std::string(test.param.table); });

TEST(ItemDataVariable, isAllZerosWithoutANameWhenItIsNew) {
  const ItemDataVariable variable;
  EXPECT_EQ(variable.assignId, 0);
  EXPECT_EQ(variable.itemvariable, 0);
  EXPECT_EQ(variable.productid, 0);
  EXPECT_EQ(variable.name, "");
  EXPECT_EQ(variable.assigned, 0);
  EXPECT_EQ(variable.type, 0);
  EXPECT_EQ(variable.direction, 0);
  EXPECT_EQ(variable.position, 0);
  EXPECT_EQ(variable.mandatory, 0);
  EXPECT_EQ(variable.getMetaClass(), &FXObject::metaClass);
}

TEST(ItemDataVariable, takesOverTheColumnsOfTheQuery) {
  ItemDataVariable variable;
  const char* const columns[] = {"12", "40", "12", "3", "200", "7", "Átvéve", "1", "2", "9"};
  for (int column = 0; column < static_cast<int>(std::size(columns)); ++column)
    variable.takeColumn(column, columns[column]);
  EXPECT_EQ(variable.itemvariable, 12);
  EXPECT_EQ(variable.assignId, 40);
  EXPECT_EQ(variable.assigned, 1);
  EXPECT_EQ(variable.position, 3);
  EXPECT_EQ(variable.direction, 200);
  EXPECT_EQ(variable.productid, 7);
  EXPECT_EQ(variable.name, "Átvéve");
  EXPECT_EQ(variable.mandatory, 1);
  EXPECT_EQ(variable.type, 2);
}

TEST(ItemDataVariable, isAssignedUnlessItsTickIsZero) {
  ItemDataVariable variable;
  variable.takeColumn(2, "00");
  EXPECT_EQ(variable.assigned, 1) << "the text counts, not its value";
  variable.takeColumn(2, "0");
  EXPECT_EQ(variable.assigned, 0);
  variable.takeColumn(2, "-1");
  EXPECT_EQ(variable.assigned, 1);
  variable.takeColumn(2, nullptr);
  EXPECT_EQ(variable.assigned, 0);
}

TEST(ItemDataVariable, takesNullForNothing) {
  ItemDataVariable variable;
  for (int column = 0; column < 9; ++column) variable.takeColumn(column, "1");
  for (int column = 0; column < 9; ++column) variable.takeColumn(column, nullptr);
  EXPECT_EQ(variable.itemvariable, 0);
  EXPECT_EQ(variable.assignId, 0);
  EXPECT_EQ(variable.position, 0);
  EXPECT_EQ(variable.direction, 0);
  EXPECT_EQ(variable.productid, 0);
  EXPECT_EQ(variable.name, "");
  EXPECT_EQ(variable.mandatory, 0);
  EXPECT_EQ(variable.type, 0);
}

TEST(ItemDataVariable, isReadByOneTextForIncomingDocuments) {
  EXPECT_EQ(ItemDataVariable::getIncomingSql("t_suiteitemdata", "t_suite_1"),
            "select iv.t_itemvariable_id, t_suiteitemdata_id, coalesce(sid.t_itemvariable_1,0) tick, "
            "coalesce(sid.position,0), %direction , %productid , iv.name, iv.mandatory, iv.type, iv.process from "
            "t_itemvariable iv left join t_suiteitemdata sid on sid.t_itemvariable_1=iv.t_itemvariable_id and "
            "t_suite_1=%productid and sid.direction=%direction where iv.type>0 order by sid.position");
}

TEST(ItemDataVariable, keepsABlankAndASemicolonInTheTextForOutgoingDocuments) {
  EXPECT_EQ(ItemDataVariable::getOutgoingSql("t_suiteitemdata", "t_suite_1"),
            "select iv.t_itemvariable_id, t_suiteitemdata_id, coalesce(sid.t_itemvariable_1,0) tick, "
            "coalesce(sid.position, 0), %direction , %productid , iv.name, iv.mandatory, iv.type, iv.process from "
            "t_itemvariable iv left join t_suiteitemdata sid on sid.t_itemvariable_1=iv.t_itemvariable_id and "
            "t_suite_1=%productid and sid.direction=%direction where iv.type>0 order by sid.position;");
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData::UI
