#pragma once

#include <fx.h>

#include <vector>

namespace Quillane::Commands {

/// One record of a table that was read from text.
struct CsvLine {
  int number = 0;                   // the line of the text on which the record begins; 1 is the first
  std::vector<FX::FXString> cells;  // exactly as written, without the quotes around them
};

/// A table read from text: a header line of column names and data lines, parted by commas, semicolons or tabs.
/// A cell in double quotes may hold separators, line ends and doubled quotes. Empty lines do not count. A UTF-8 byte
/// order mark at the beginning is passed over.
class CsvTable {
 public:
  /// Reads text. Returns false with a sentence for the user in error when it is no table; the table is empty then.
  bool read(const FX::FXString& text, FX::FXString& error);

  /// The header's cells; at least one after a successful read.
  const CsvLine& getHeader() const { return header; }

  /// The lines after the header. They may have more or fewer cells than the header.
  const std::vector<CsvLine>& getLines() const { return lines; }

  /// The separator that the header of text uses: the tab when it occurs outside quotes, else the semicolon, else the
  /// comma. In this order, because names and decimal numbers hold commas more often than semicolons or tabs.
  static char findSeparator(const FX::FXString& text);

 private:
  CsvLine header;
  std::vector<CsvLine> lines;
};

}  // namespace Quillane::Commands
