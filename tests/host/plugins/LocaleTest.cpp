#include "host/plugins/Locale.h"

#include <langinfo.h>

#include <cstdio>

#include "tests/host/plugins/LanguageFixture.h"

namespace Quillane::Host {
namespace {

struct Choice {
  const char* locale;
  const char* languages;  // null when LANGUAGE is not set
  const char* chosen;
};

class LocaleTest : public LanguageTest {};

class LanguageChoiceTest : public LanguageTest, public testing::WithParamInterface<Choice> {};

TEST_P(LanguageChoiceTest, isTheFirstWantedOneThatHasTexts) {
  start(GetParam().locale, GetParam().languages);
  EXPECT_EQ(language(), GetParam().chosen);
}

INSTANTIATE_TEST_SUITE_P(
    Locale, LanguageChoiceTest,
    testing::Values(Choice{"hu_HU.UTF-8", nullptr, "hu"}, Choice{"en_GB.UTF-8", nullptr, "en"},
                    Choice{"de_AT.UTF-8", nullptr, "de"}, Choice{"de@euro", nullptr, "de"},
                    // A language of which there is nothing, and one that only begins like another.
                    Choice{"fr_FR.UTF-8", nullptr, "hu"}, Choice{"den_CA.UTF-8", nullptr, "hu"},
                    // LANGUAGE comes before the locale ...
                    Choice{"hu_HU.UTF-8", "en", "en"}, Choice{"en_US.UTF-8", "hu", "hu"},
                    Choice{"C.UTF-8", "de_DE:en", "de"}, Choice{"en_US.UTF-8", "", "en"},
                    // ... in its order, and Hungarian keeps its place in it although it is no translation.
                    Choice{"hu_HU.UTF-8", "hu_HU:hu:en", "hu"}, Choice{"fr_FR.UTF-8", "fr:it:en:de", "en"},
                    Choice{"fr_FR.UTF-8", "fr:it", "hu"}, Choice{"en_US.UTF-8", ":", "hu"},
                    // In these locales nothing is translated, whatever LANGUAGE says.
                    Choice{"C", nullptr, "hu"}, Choice{"C", "en", "hu"}, Choice{"POSIX", "de", "hu"},
                    Choice{"C.UTF-8", nullptr, "hu"}));

TEST_F(LocaleTest, isInUtf8ForEveryUser) {
  for (const char* locale : {"C", "hu_HU.ISO-8859-2", "de_DE.UTF-8", "nowhere"}) {
    SCOPED_TRACE(locale);
    unsetenv("LC_ALL");
    start(locale);
    EXPECT_STREQ(nl_langinfo(CODESET), "UTF-8");
  }
}

TEST_F(LocaleTest, staysInUtf8WhenTheToolkitSetsItOnceMore) {
  start("C");
  // As FXApp::init() does.
  std::setlocale(LC_ALL, "");
  EXPECT_STREQ(nl_langinfo(CODESET), "UTF-8");
}

TEST_F(LocaleTest, prefersTheVariableForEverythingThenTheOneForMessages) {
  setenv("LC_MESSAGES", "de_DE.UTF-8", 1);
  start("en_US.UTF-8");
  EXPECT_EQ(language(), "de");

  setenv("LC_ALL", "en_US.UTF-8", 1);
  unsetenv("LANGUAGE");
  chooseLocale();
  EXPECT_EQ(language(), "en");
}

TEST_F(LocaleTest, writesNumbersWithAPoint) {
  start("hu_HU.UTF-8");
  char text[8];
  std::snprintf(text, sizeof(text), "%.1f", 0.5);
  EXPECT_STREQ(text, "0.5");
}

TEST_F(LocaleTest, ofAnotherProgramLanguageIsTheSame) {
  start("de_DE.UTF-8");
  const std::string first = language();
  chooseLocale();
  EXPECT_EQ(language(), first);
}

}  // namespace
}  // namespace Quillane::Host
