#include "host/document/StatusCatalogue.h"

#include <gtest/gtest.h>

#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Host {
namespace {

TEST(StatusCatalogue, listsTheStatusesOfTheCompany) {
  const TestCompany company;
  std::vector<Status> statuses;
  FXString error;
  ASSERT_TRUE(StatusCatalogue::read(*company.getDB(), statuses, error)) << error.text();
  ASSERT_EQ(statuses.size(), 12u);
  EXPECT_EQ(statuses.front().code, 101);
  EXPECT_EQ(statuses.front().name, "Kimenő számla (piszkozat)");
  EXPECT_FALSE(statuses.front().closed);
  EXPECT_EQ(statuses.front().direction, 100);
  const Status* incoming = StatusCatalogue::find(statuses, 251);
  ASSERT_NE(incoming, nullptr);
  EXPECT_TRUE(incoming->closed);
  EXPECT_EQ(incoming->direction, 200);
  EXPECT_EQ(StatusCatalogue::find(statuses, 999), nullptr);
}

TEST(StatusCatalogue, saysWhyItCannotBeRead) {
  const TestCompany company;
  company.run("alter table t_invoicestatus rename to t_gone");
  std::vector<Status> statuses;
  FXString error;
  EXPECT_FALSE(StatusCatalogue::read(*company.getDB(), statuses, error));
  EXPECT_NE(error, "");
}

}  // namespace
}  // namespace Quillane::Host
