// The compiled catalogues, as the programs and the module find them.
#include "host/plugins/Catalogues.h"
#include "tests/host/plugins/LanguageFixture.h"

namespace Quillane::Host {
namespace {

constexpr const char* kModuleDomain = "QuillanePluginItemData";

class CatalogueTextsTest : public LanguageTest {
 protected:
  CatalogueTextsTest() {
    useTextDomain("quillane");
    bindCatalogue(kModuleDomain);
  }
};

TEST_F(CatalogueTextsTest, areEnglishAndGermanByTheLocale) {
  start("en_US.UTF-8", "en");
  EXPECT_STREQ(dgettext("quillane", "Megrendelés"), "Order");
  EXPECT_STREQ(dgettext(kModuleDomain, "Egyéb tételadatok"), "Other item data");
  start("de_DE.UTF-8", "de");
  EXPECT_STREQ(dgettext("quillane", "Megrendelés"), "Bestellung");
  EXPECT_STREQ(dgettext(kModuleDomain, "Egyéb tételadatok"), "Weitere Positionsdaten");
}

TEST_F(CatalogueTextsTest, areHungarianForEverybodyElse) {
  for (const char* locale : {"hu_HU.UTF-8", "C", "C.UTF-8", "fr_FR.UTF-8"}) {
    unsetenv("LANGUAGE");
    start(locale);
    EXPECT_STREQ(dgettext("quillane", "Megrendelés"), "Megrendelés") << locale;
    EXPECT_STREQ(dgettext(kModuleDomain, "Egyéb tételadatok"), "Egyéb tételadatok") << locale;
  }
}

TEST_F(CatalogueTextsTest, ofTheCheckStandInTheHostsDomain) {
  // The module asks the default domain for them, which is the host's.
  constexpr const char* message = "A(z) %d. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:%s";
  start("en_US.UTF-8", "en");
  EXPECT_STREQ(gettext(message), "Some other data must be recorded for item %d!\nName of the field: %s");
  EXPECT_STREQ(dgettext(kModuleDomain, message), message);
}

}  // namespace
}  // namespace Quillane::Host
