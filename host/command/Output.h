#pragma once

#include <fx.h>

#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace Quillane::Commands {

/// What a command writes to standard output: records as plain lines, or one JSON value.
class Output {
 public:
  using Json = nlohmann::ordered_json;

  /// Writes to stream, which stays the caller's.
  explicit Output(FILE* stream, bool asJson = false) : file(stream), json(asJson) {}

  bool isJson() const { return json; }
  void setJson(bool asJson) { json = asJson; }

  /// Writes an array of flat objects: as JSON as it is, as plain text the values of each object on a line of their own.
  void writeRecords(const Json& records);

  /// Writes one flat object: as JSON as it is, as plain text its values on one line.
  void writeRecord(const Json& record);

  /// Writes value as the one JSON value.
  void writeJson(const Json& value);

  /// Writes one plain line: the fields, escaped and parted by tabs.
  void writeLine(const std::vector<FX::FXString>& fields);

  /// Writes text as it is.
  void writeText(const FX::FXString& text);

  /// Hands everything to the system; false when it could not be written (a full disk).
  bool flush();

  /// text with tabs, line ends and backslashes written as \t, \n, \r and \\.
  static FX::FXString escape(const FX::FXString& text);

  /// text as a JSON value.
  static Json toJson(const FX::FXString& text);

  /// value as JSON text on one line. Bytes that are no UTF-8 become U+FFFD.
  static std::string toJsonLine(const Json& value);

 private:
  static FX::FXString toField(const Json& value);

  FILE* file;  // not owned
  bool json;
};

}  // namespace Quillane::Commands
