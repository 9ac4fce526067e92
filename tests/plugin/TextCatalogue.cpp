#include "tests/plugin/TextCatalogue.h"

#include <libintl.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace {

// A language that no catalogue of the system has.
constexpr const char* kLanguage = "xx";

void putNumber(std::string& bytes, std::uint32_t number) {
  bytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
}

std::string compile(const std::map<std::string, std::string>& translations) {
  constexpr std::uint32_t kMagic = 0x950412de;
  constexpr std::uint32_t kHeaderSize = 28;
  const auto count = static_cast<std::uint32_t>(translations.size());
  const std::uint32_t tableSize = 8 * count;

  std::string originals, translated, texts;
  const std::uint32_t textsBegin = kHeaderSize + 2 * tableSize;
  const auto place = [&](std::string& table, const std::string& text) {
    putNumber(table, static_cast<std::uint32_t>(text.size()));
    putNumber(table, textsBegin + static_cast<std::uint32_t>(texts.size()));
    texts += text + '\0';
  };
  for (const auto& pair : translations) {
    place(originals, pair.first);
    place(translated, pair.second);
  }

  std::string bytes;
  for (const std::uint32_t number : {kMagic, 0u, count, kHeaderSize, kHeaderSize + tableSize, 0u, textsBegin})
    putNumber(bytes, number);
  return bytes + originals + translated + texts;
}

}  // namespace

TextCatalogue::TextCatalogue(const std::string& domain, const std::map<std::string, std::string>& translations) {
  std::string name = (std::filesystem::temp_directory_path() / "catalogue.XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
  folder = name;
  const std::filesystem::path messages = std::filesystem::path(folder) / kLanguage / "LC_MESSAGES";
  std::filesystem::create_directories(messages);

  std::map<std::string, std::string> all = translations;
  all[""] = "Content-Type: text/plain; charset=UTF-8\n";
  std::ofstream(messages / (domain + ".mo"), std::ios::binary) << compile(all);

  setenv("LANGUAGE", kLanguage, 1);
  if (!setlocale(LC_ALL, "C.UTF-8")) throw std::runtime_error("no locale C.UTF-8");
  bindtextdomain(domain.c_str(), folder.c_str());
  bind_textdomain_codeset(domain.c_str(), "UTF-8");
}

TextCatalogue::~TextCatalogue() {
  unsetenv("LANGUAGE");
  setlocale(LC_ALL, "C");
  std::filesystem::remove_all(folder);
}
