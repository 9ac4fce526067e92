// Writes what a command found, for people and scripts: plain lines or JSON.
#include "host/command/Output.h"

#include <string>

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr int kIndentation = 2;

std::string dump(const Output::Json& value, int indentation) {
  return value.dump(indentation, ' ', false, Output::Json::error_handler_t::replace);
}

}  // namespace

void Output::writeRecords(const Json& records) {
  if (json) return writeJson(records);
  for (const Json& record : records) writeRecord(record);
}

void Output::writeRecord(const Json& record) {
  if (json) return writeJson(record);
  std::vector<FXString> fields;
  for (const Json& value : record) fields.push_back(toField(value));
  writeLine(fields);
}

void Output::writeJson(const Json& value) {
  const std::string text = dump(value, kIndentation);
  std::fwrite(text.data(), 1, text.size(), file);
  std::fputc('\n', file);
}

void Output::writeLine(const std::vector<FXString>& fields) {
  for (size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) std::fputc('\t', file);
    writeText(escape(fields[i]));
  }
  std::fputc('\n', file);
}

void Output::writeText(const FXString& text) { std::fwrite(text.text(), 1, text.length(), file); }

bool Output::flush() { return std::fflush(file) == 0 && !std::ferror(file); }

FXString Output::escape(const FXString& text) {
  std::string escaped;  // unlike FXString it grows in leaps
  escaped.reserve(text.length());
  for (FXint i = 0; i < text.length(); ++i) {
    switch (text[i]) {
      case '\t':
        escaped += "\\t";
        break;
      case '\n':
        escaped += "\\n";
        break;
      case '\r':
        escaped += "\\r";
        break;
      case '\\':
        escaped += "\\\\";
        break;
      default:
        escaped += text[i];
    }
  }
  return FXString(escaped.data(), static_cast<FXint>(escaped.size()));
}

Output::Json Output::toJson(const FXString& text) { return std::string(text.text(), text.length()); }

std::string Output::toJsonLine(const Json& value) { return dump(value, -1); }

FXString Output::toField(const Json& value) {
  if (value.is_null()) return FXString();
  if (value.is_string()) {
    const std::string& text = value.get_ref<const std::string&>();
    return FXString(text.data(), static_cast<FXint>(text.size()));
  }
  return FXString(toJsonLine(value).c_str());
}

}  // namespace Quillane::Commands
