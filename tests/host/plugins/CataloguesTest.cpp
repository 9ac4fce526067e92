#include "host/plugins/Catalogues.h"

#include <gtest/gtest.h>
#include <libintl.h>

using namespace FX;

namespace Quillane::Host {
namespace {

TEST(Catalogues, areBoundInUtf8) {
  bindCatalogue("quillane-catalogues-test");
  EXPECT_STREQ(bindtextdomain("quillane-catalogues-test", nullptr), catalogueFolder().text());
  EXPECT_STREQ(bind_textdomain_codeset("quillane-catalogues-test", nullptr), "UTF-8");
}

TEST(Catalogues, standInAWholePath) {
  ASSERT_FALSE(catalogueFolder().empty());
  EXPECT_EQ(catalogueFolder()[0], '/');
}

TEST(Catalogues, ofNoDomainAreNotBound) {
  bindCatalogue("");
  EXPECT_STREQ(dgettext("", "szöveg"), "szöveg");
}

}  // namespace
}  // namespace Quillane::Host
