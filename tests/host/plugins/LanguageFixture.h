// Languages in a test process.
#pragma once

#include <gtest/gtest.h>
#include <libintl.h>

#include <clocale>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>

#include "host/plugins/Locale.h"

/// A test that speaks a language of its choice. What it changes of the environment is as before afterwards.
class LanguageTest : public testing::Test {
 protected:
  LanguageTest() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) {
      const char* value = std::getenv(name);
      before[name] = value ? std::optional<std::string>(value) : std::nullopt;
      unsetenv(name);
    }
  }

  ~LanguageTest() override {
    for (const auto& [name, value] : before) {
      if (value)
        setenv(name.c_str(), value->c_str(), 1);
      else
        unsetenv(name.c_str());
    }
    std::setlocale(LC_ALL, "C");
    textdomain("messages");
  }

  /// What a program does at its start, for a user with these settings: the locale and the wanted languages.
  static void start(const char* locale, const char* languages = nullptr) {
    setenv("LANG", locale, 1);
    if (languages) setenv("LANGUAGE", languages, 1);
    Quillane::Host::chooseLocale();
  }

  /// The language that was chosen.
  static std::string language() {
    const char* value = std::getenv("LANGUAGE");
    return value ? value : "";
  }

 private:
  std::map<std::string, std::optional<std::string>> before;
};
