#pragma once

#include <random>
#include <string>
#include <vector>

namespace Quillane::Plugin::ItemData {

/// What deleting rows does to a list, written down as plainly as it can be, to compare the list with.
class RowModel {
 public:
  /// Takes lines of the fixture.
  explicit RowModel(const std::vector<std::string>& lines);

  void append(const std::string& line);

  /// From the last entry to the first: entries of the row that were never stored leave the list, stored ones are
  /// emptied and marked, and the last row goes down when it is this one.
  void markRowForDelete(int row);

  /// Marks the row of every marked entry, in list order.
  void markRowsOfMarkedEntries();

  std::vector<std::string> lines() const;

  int lastRow = 0;

 private:
  struct Entry {
    int number;  // tells the entries apart
    bool null;
    int row;
    std::string variable;
    std::string value;
    int key;
    bool marked;
  };

  const Entry* find(int number) const;

  std::vector<Entry> entries;
  int appended = 0;
};

/// Entries of a few rows: in ascending order or in any, stored or not, marked or not, with null places or without.
std::vector<std::string> randomEntries(std::mt19937& random);

}  // namespace Quillane::Plugin::ItemData
