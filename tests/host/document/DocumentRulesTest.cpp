#include "host/document/DocumentRules.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

namespace Quillane::Host {
namespace {

using Pairs = std::set<std::pair<int, int>>;

constexpr int kStatuses[] = {101, 102, 151, 152, 201, 202, 251, 252, 401, 451, 452, 801};

/// All pairs of statuses, and codes that are none, for which rule says yes.
template <class Rule>
Pairs allowed(const Rule& rule) {
  std::set<int> codes(std::begin(kStatuses), std::end(kStatuses));
  codes.insert({0, -1, 100, 1101});
  Pairs pairs;
  for (const int from : codes)
    for (const int to : codes)
      if (rule(from, to)) pairs.insert({from, to});
  return pairs;
}

TEST(DocumentRules, movesDraftsToClosedAndProFormasToDrafts) {
  EXPECT_EQ(allowed(DocumentRules::mayMove), (Pairs{{101, 151}, {102, 101}, {201, 251}, {202, 201}, {401, 451}}));
}

TEST(DocumentRules, derivesDraftsFromWhatComesBeforeThem) {
  EXPECT_EQ(allowed(DocumentRules::mayDerive),
            (Pairs{{102, 101}, {801, 101}, {401, 101}, {451, 101}, {151, 101}, {801, 401}, {202, 201}, {251, 201}}));
}

TEST(DocumentRules, cancelsClosedDocumentsOnly) {
  EXPECT_EQ(allowed(DocumentRules::mayCancel), (Pairs{{151, 152}, {251, 252}, {451, 452}}));
}

TEST(DocumentRules, knowsTheFamilyByEachOfItsMembers) {
  const int families[][3] = {{101, 151, 152}, {201, 251, 252}, {401, 451, 452}};
  for (const auto& family : families) {
    const DocumentRules::Family* found = DocumentRules::findFamilyOfDraft(family[0]);
    ASSERT_NE(found, nullptr) << family[0];
    EXPECT_EQ(found->draft, family[0]);
    EXPECT_EQ(found->closed, family[1]);
    EXPECT_EQ(found->cancelling, family[2]);
    EXPECT_EQ(DocumentRules::findFamilyOfClosed(family[1]), found);
    EXPECT_EQ(DocumentRules::findFamilyOfCancelling(family[2]), found);
  }
  for (const int status : {102, 202, 801, 0}) {
    EXPECT_EQ(DocumentRules::findFamilyOfDraft(status), nullptr) << status;
    EXPECT_EQ(DocumentRules::findFamilyOfClosed(status), nullptr) << status;
    EXPECT_EQ(DocumentRules::findFamilyOfCancelling(status), nullptr) << status;
  }
}

TEST(DocumentRules, namesTheWaysOutInAscendingOrder) {
  struct Case {
    int status;
    const char* moves;
    const char* makeable;
  };
  const Case cases[] = {{101, "151", ""},    {102, "101", "101"},   {151, "", "101, 152"}, {152, "", ""},
                        {201, "251", ""},    {202, "201", "201"},   {251, "", "201, 252"}, {252, "", ""},
                        {401, "451", "101"}, {451, "", "101, 452"}, {452, "", ""},         {801, "", "101, 401"},
                        {7, "", ""}};
  for (const Case& one : cases) {
    EXPECT_EQ(DocumentRules::listMoves(one.status), one.moves) << one.status;
    EXPECT_EQ(DocumentRules::listMakeable(one.status), one.makeable) << one.status;
  }
}

}  // namespace
}  // namespace Quillane::Host
