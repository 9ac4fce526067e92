#include "host/document/DocumentItem.h"

#include <gtest/gtest.h>

using namespace FX;

namespace Quillane::Host {
namespace {

TEST(DocumentItem, keepsItsQuantityAsItIsStoredAndReadsTheNumber) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "0"},
      {"5", "5"},
      {"2.50", "2.5"},
      {"0.3", "0.3"},
      {"1 234,5", "1234.5"},
      {"-2", "-2"},
      {"0.00005", "0.00005"},
      {"sok", "0"},
      {"12a34", "0"},
      {"1e3", "0"},
  };
  for (const auto& [stored, number] : cases) {
    SCOPED_TRACE(stored);
    DocumentItem item;
    item.setQuantityText(stored);
    EXPECT_EQ(item.getQuantityText(), stored);
    EXPECT_EQ(item.getQuantity().toString(), number);
  }
}

TEST(DocumentItem, readsItsQuantityWithFourDecimals) {
  DocumentItem item;
  item.setQuantityText("2");
  EXPECT_EQ(item.getQuantity().precision, 4);
}

TEST(DocumentItem, takesANewQuantityInsteadOfTheOldOne) {
  DocumentItem item;
  item.setQuantityText("2");
  item.setQuantityText("3");
  EXPECT_EQ(item.getQuantity().toString(), "3");
}

TEST(DocumentItem, holdsPositionAndPrice) {
  DocumentItem item;
  EXPECT_EQ(item.getPosition(), 0);
  EXPECT_EQ(item.getPriceText(), "");
  item.setPosition(3);
  item.setPriceText("689.5");
  EXPECT_EQ(item.getPosition(), 3);
  EXPECT_EQ(item.getPriceText(), "689.5");
}

}  // namespace
}  // namespace Quillane::Host
