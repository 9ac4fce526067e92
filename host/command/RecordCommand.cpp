// Item data from a table file.
#include "host/command/RecordCommand.h"

#include <libintl.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "host/command/ArgumentText.h"
#include "host/command/CsvTable.h"
#include "host/command/ItemDataRecorder.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr char kStandardInput[] = "-";

bool readAll(FILE* stream, FXString& text) {
  FXchar buffer[65536];
  size_t count = 0;
  while ((count = std::fread(buffer, 1, sizeof(buffer), stream)) > 0) text.append(buffer, static_cast<FXint>(count));
  return !std::ferror(stream);
}

Outcome readFile(const FXString& file, FXString& text) {
  const bool standardInput = file == kStandardInput;
  FILE* stream = standardInput ? stdin : std::fopen(file.text(), "rb");
  const bool complete = stream && readAll(stream, text);
  const int reason = errno;
  if (stream && !standardInput) std::fclose(stream);
  if (complete) return Outcome::success();
  return Outcome::refused(
      FXStringFormat(dgettext("quillane", "A táblázat nem olvasható: %s (%s)"), file.text(), std::strerror(reason)));
}

}  // namespace

const char* RecordCommand::getDescription() const {
  return dgettext("quillane", "Egy tétel rögzített adatait egy CSV-táblázat adataira cseréli");
}

void RecordCommand::declareOptions(OptionSet& options) {
  options.addArgument("ID", id, dgettext("quillane", "a bizonylat azonosítója"));
  options.addArgument("N", place, dgettext("quillane", "a tétel sorszáma, az első az 1"));
  options.addArgument("FILE", file,
                      dgettext("quillane",
                               "a táblázat: fejlécében a mezők neve, soraiban az egységek adatai; - a "
                               "szabványos bemenet"));
}

Outcome RecordCommand::run(CommandContext& context) {
  int documentId = 0;
  int itemPlace = 0;
  FXString text;
  Outcome outcome = readNumber("ID", id, documentId);
  if (outcome.succeeded()) outcome = readNumber("N", place, itemPlace);
  if (outcome.succeeded()) outcome = readFile(file, text);
  if (!outcome.succeeded()) return outcome;

  FXString error;
  CsvTable table;
  ItemDataRecorder recorder(context.company.getDatabase());
  outcome = table.read(text, error) ? recorder.record(documentId, itemPlace, table) : Outcome::refused(error);
  if (!outcome.succeeded()) return outcome;
  context.output.writeRecord({{"rows", recorder.getRowCount()}, {"values", recorder.getValueCount()}});
  return outcome;
}

}  // namespace Quillane::Commands
