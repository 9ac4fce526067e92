// The languages that the program speaks.
#include "tests/host/command/ProgramFixture.h"

namespace {

constexpr const char* kHungarian = "quillanectl: Nincs ilyen parancs: „fly”. Segítség: quillanectl --help\n";
constexpr const char* kEnglish = "quillanectl: There is no such command: “fly”. Help: quillanectl --help\n";
constexpr const char* kGerman = "quillanectl: Diesen Befehl gibt es nicht: „fly“. Hilfe: quillanectl --help\n";

class LanguageTest : public ProgramFixture {
 protected:
  /// What the program says about a command that it does not know.
  std::string complain() const { return runBare({"fly"}).errors; }
};

TEST_F(LanguageTest, isHungarianByDefault) {
  EXPECT_EQ(complain(), kHungarian);
  setVariable("LANG", "C");
  EXPECT_EQ(complain(), kHungarian);
  setVariable("LANG", "fr_FR.UTF-8");
  EXPECT_EQ(complain(), kHungarian);
}

TEST_F(LanguageTest, isEnglishOrGermanByTheLocale) {
  // Whether the system has these locales makes no difference.
  setVariable("LANG", "en_GB.UTF-8");
  EXPECT_EQ(complain(), kEnglish);
  setVariable("LANG", "de_DE.UTF-8");
  EXPECT_EQ(complain(), kGerman);
  setVariable("LANGUAGE", "en");
  EXPECT_EQ(complain(), kEnglish);
}

TEST_F(LanguageTest, isTheUsersForWhatTheModuleSays) {
  makeSample();
  setVariable("LANGUAGE", "de");
  EXPECT_EQ(runJson({"plugins"}).at(0).at("name"), "Weitere Positionsdaten");
  // Messages of the check come from the module and stand in the host's catalogue.
  EXPECT_NE(run({"check", "7"}).output.find("Zu Position 1 müssen noch weitere Daten erfasst werden!"),
            std::string::npos);
}

TEST_F(LanguageTest, doesNotChangeWhatIsStored) {
  setVariable("LANGUAGE", "de");
  makeSample();
  const std::string german = dump();
  setVariable("LANGUAGE", "hu");
  company = path("other.db");
  makeSample();
  EXPECT_EQ(dump(), german);
}

}  // namespace
