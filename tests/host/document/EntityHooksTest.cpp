#include "host/document/EntityHooks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/contract/XMLBuilder.h"
#include "tests/host/document/RecordingHook.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;

namespace Quillane::Host {
namespace {

class EntityHooksTest : public testing::Test {
 protected:
  EntityHooksTest() { item.setId(7); }

  Calls calls;
  EntityHooks hooks;
  InvoiceItem item;
  XMLBuilder::Document document{"", "r"};
};

TEST_F(EntityHooksTest, areAskedByTheWeightOfEachOperation) {
  const RecordingHook a("a", {1, 2, 3, 2, 1}, &calls);
  const RecordingHook b("b", {2, 3, 1, 1, 3}, &calls);
  const RecordingHook c("c", {3, 1, 2, -1, 2}, &calls);
  for (const RecordingHook* hook : {&c, &a, &b}) hooks.add(hook);
  hooks.load(&item);
  EXPECT_THAT(calls, ElementsAre("a load #7", "b load #7", "c load #7"));
  calls.clear();
  hooks.save(&item);
  EXPECT_THAT(calls, ElementsAre("c save #7", "a save #7", "b save #7"));
  calls.clear();
  hooks.del(&item);
  EXPECT_THAT(calls, ElementsAre("b del #7", "c del #7", "a del #7"));
  calls.clear();
  hooks.toXml(&item, document.getRoot());
  EXPECT_THAT(calls, ElementsAre("c xml #7", "b xml #7", "a xml #7"));
  calls.clear();
  hooks.toString(&item);
  EXPECT_THAT(calls, ElementsAre("a text #7", "c text #7", "b text #7"));
}

TEST_F(EntityHooksTest, ofOneWeightAreAskedInTheOrderInWhichTheyWereAdded) {
  const RecordingHook a("a", {5, 5, 5, 5, 5}, &calls);
  const RecordingHook b("b", {5, 5, 5, 5, 5}, &calls);
  const RecordingHook c("c", {4, 6, 5, 5, 5}, &calls);
  const RecordingHook d("d", {5, 5, 5, 5, 5}, &calls);
  for (const RecordingHook* hook : {&b, &a, &c, &d}) hooks.add(hook);
  hooks.load(&item);
  EXPECT_THAT(calls, ElementsAre("c load #7", "b load #7", "a load #7", "d load #7"));
  calls.clear();
  hooks.save(&item);
  EXPECT_THAT(calls, ElementsAre("b save #7", "a save #7", "d save #7", "c save #7"));
}

TEST_F(EntityHooksTest, areAskedOnlyForEntitiesThatTheyCanHandle) {
  RecordingHook forItems("items", {1, 1, 1, 1, 1}, &calls);
  RecordingHook forInvoices("invoices", {1, 1, 1, 1, 1}, &calls);
  forInvoices.wanted = &Invoice::metaClass;
  hooks.add(&forItems);
  hooks.add(&forInvoices);
  Invoice invoice;
  Entity neither;
  hooks.load(&invoice);
  hooks.load(&neither);
  hooks.save(&item);
  hooks.del(&invoice);
  hooks.toXml(&invoice, document.getRoot());
  hooks.toString(&item);
  EXPECT_THAT(calls,
              ElementsAre("invoices load #0", "items save #7", "invoices del #0", "invoices xml #0", "items text #7"));
}

TEST_F(EntityHooksTest, joinTheirTexts) {
  RecordingHook a("a", {1, 1, 1, 1, 1});
  RecordingHook b("b", {1, 1, 1, 1, 2});
  RecordingHook c("c", {1, 1, 1, 1, 3});
  for (const RecordingHook* hook : {&c, &b, &a}) hooks.add(hook);
  EXPECT_EQ(hooks.toString(&item), "");
  b.text = "kék";
  EXPECT_EQ(hooks.toString(&item), "kék");
  c.text = "nagy";
  a.text = "3 db";
  EXPECT_EQ(hooks.toString(&item), "3 db; kék; nagy");
  b.text = "";
  EXPECT_EQ(hooks.toString(&item), "3 db; nagy");
}

TEST_F(EntityHooksTest, mayBeNone) {
  hooks.load(&item);
  hooks.save(&item);
  hooks.del(&item);
  hooks.toXml(&item, document.getRoot());
  EXPECT_EQ(hooks.toString(&item), "");
  EXPECT_THAT(calls, IsEmpty());
}

}  // namespace
}  // namespace Quillane::Host
