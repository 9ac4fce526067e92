#pragma once

#include <map>
#include <string>

/// A message catalogue of a text domain, in force while the object lives. Written by the test itself: the file has the
/// texts in byte order, each with its length and place, the translations likewise.
class TextCatalogue {
 public:
  TextCatalogue(const std::string& domain, const std::map<std::string, std::string>& translations);
  ~TextCatalogue();

  TextCatalogue(const TextCatalogue&) = delete;
  TextCatalogue& operator=(const TextCatalogue&) = delete;

 private:
  std::string folder;
};
