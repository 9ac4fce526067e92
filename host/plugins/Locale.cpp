// The locale that every program of the host works in.
#include "host/plugins/Locale.h"

#include <fx.h>
#include <langinfo.h>
#include <libintl.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "host/plugins/Catalogues.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr const char* kSourceLanguage = "hu";  // of the texts as they stand in the code
constexpr const char* kTranslations[] = {"en", "de"};

/// The value of an environment variable; empty when it is not set.
FXString readVariable(const char* name) {
  const char* value = std::getenv(name);
  return value ? FXString(value) : FXString();
}

/// The name of the locale that the user wants messages in.
FXString getMessageLocale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const FXString value = readVariable(name);
    if (!value.empty()) return value;
  }
  return "C";
}

/// The languages that the user wants, the most wanted one first, parted by colons.
FXString getWantedLanguages() {
  const FXString locale = getMessageLocale();
  if (locale == "C" || locale == "POSIX") return FXString();
  const FXString languages = readVariable("LANGUAGE");
  return languages.empty() ? locale : languages;
}

/// The first of these languages that there are texts in. A language may be written as a locale: "de_AT.UTF-8".
FXString pickLanguage(const FXString& wanted) {
  for (FXint i = 0; i <= wanted.contains(':'); ++i) {
    const FXString language = wanted.section(':', i).section("_.@", 0);
    if (language == kSourceLanguage) return language;
    for (const char* translated : kTranslations) {
      if (language == translated) return language;
    }
  }
  return kSourceLanguage;
}

}  // namespace

void chooseLocale() {
  // One language and no second choice: the texts in the code, being no translation, would come after every catalogue.
  setenv("LANGUAGE", pickLanguage(getWantedLanguages()).text(), 1);
  if (!std::setlocale(LC_ALL, "") || std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) {
    // In the environment as well: the toolkit sets the locale from there once more.
    setenv("LC_ALL", "C.UTF-8", 1);
    std::setlocale(LC_ALL, "");
  }
  std::setlocale(LC_NUMERIC, "C");
}

void useTextDomain(const char* domain) {
  bindCatalogue(domain);
  textdomain(domain);
}

}  // namespace Quillane::Host
