// Reads comma-separated text with libcsv, keeping every cell as it was typed and knowing the line of every record.
#include "host/command/CsvTable.h"

#include <csv.h>
#include <libintl.h>

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

/// Feeds text to libcsv byte by byte: only so is it known on which line a record begins.
class RecordReader {
 public:
  explicit RecordReader(char separator) {
    csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI);
    csv_set_delim(&parser, static_cast<unsigned char>(separator));
    csv_set_space_func(&parser, isNoSpace);
  }
  ~RecordReader() { csv_free(&parser); }
  RecordReader(const RecordReader&) = delete;
  RecordReader& operator=(const RecordReader&) = delete;

  bool read(const FXString& text) {
    for (FXint i = 0; i < text.length(); ++i) {
      if (!readByte(text[i], i > 0 ? text[i - 1] : '\0')) return false;
    }
    return csv_fini(&parser, onCell, onRecord, this) == 0;
  }

  /// The line on which the record that is being read begins: where the trouble is after a failure.
  int getLine() const { return inRecord ? recordLine : line; }

  std::vector<CsvLine> takeRecords() { return std::move(records); }

 private:
  // libcsv would strip blanks and tabs around cells: values stay as they were typed.
  static int isNoSpace(unsigned char) { return 0; }

  bool readByte(char byte, char previous) {
    if (!inRecord && byte != '\n' && byte != '\r') {
      inRecord = true;
      recordLine = line;
    }
    if (csv_parse(&parser, &byte, 1, onCell, onRecord, this) != 1) return false;
    if (byte == '\r' || (byte == '\n' && previous != '\r')) ++line;
    return true;
  }

  static void onCell(void* bytes, size_t count, void* reader) {
    auto* self = static_cast<RecordReader*>(reader);
    self->cells.emplace_back(static_cast<const FXchar*>(bytes), static_cast<FXint>(count));
  }

  static void onRecord(int, void* reader) {
    auto* self = static_cast<RecordReader*>(reader);
    self->records.push_back({self->recordLine, std::move(self->cells)});
    self->cells.clear();
    self->inRecord = false;
  }

  csv_parser parser;
  std::vector<CsvLine> records;
  std::vector<FXString> cells;
  int line = 1;
  int recordLine = 1;
  bool inRecord = false;
};

}  // namespace

bool CsvTable::read(const FXString& text, FXString& error) {
  header = CsvLine();
  lines.clear();
  FXString content = text;
  if (content.left(3) == kByteOrderMark) content.erase(0, 3);
  if (content.find('\0') >= 0) {
    error = dgettext("quillane", "A táblázat nem UTF-8 szöveg: mentse el CSV (UTF-8) formátumban.");
    return false;
  }

  RecordReader reader(findSeparator(content));
  if (!reader.read(content)) {
    error = FXStringFormat(dgettext("quillane",
                                    "%d. sor: az idézőjelek nem párosak, vagy nem a cella szélén állnak. "
                                    "Az idézőjelet tartalmazó cellát tegye idézőjelek közé, a benne lévő "
                                    "idézőjelet pedig írja kétszer."),
                           reader.getLine());
    return false;
  }

  lines = reader.takeRecords();
  if (lines.empty()) {
    error = dgettext("quillane", "A táblázat üres: az első sorában az oszlopok nevének kell állnia.");
    return false;
  }
  header = std::move(lines.front());
  lines.erase(lines.begin());
  return true;
}

char CsvTable::findSeparator(const FXString& text) {
  bool quoted = false;
  bool begun = false;
  bool semicolon = false;
  for (FXint i = 0; i < text.length(); ++i) {
    const char byte = text[i];
    const bool lineEnd = byte == '\n' || byte == '\r';
    if (lineEnd && begun && !quoted) break;
    if (!lineEnd) begun = true;
    if (byte == '"') quoted = !quoted;
    if (quoted) continue;
    if (byte == '\t') return '\t';
    if (byte == ';') semicolon = true;
  }
  return semicolon ? ';' : ',';
}

}  // namespace Quillane::Commands
