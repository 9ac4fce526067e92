// The plain model of deleting rows, and lists to try it on.
#include "tests/itemdata/RowModel.h"

#include <algorithm>
#include <sstream>

namespace Quillane::Plugin::ItemData {

RowModel::RowModel(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) append(line);
}

void RowModel::append(const std::string& line) {
  Entry entry{appended++, line == "null", 0, "", "", 0, false};
  if (!entry.null) {
    std::istringstream words(line);
    words >> entry.row >> entry.variable >> entry.value;
    for (std::string word; words >> word;) {
      if (word == "marked")
        entry.marked = true;
      else
        entry.key = std::stoi(word.substr(1));
    }
    lastRow = entry.row;
  }
  entries.push_back(entry);
}

void RowModel::markRowForDelete(int row) {
  for (int i = static_cast<int>(entries.size()) - 1; i >= 0; --i) {
    Entry& entry = entries[static_cast<size_t>(i)];
    if (entry.null || entry.row != row) continue;
    if (lastRow == row) lastRow = row - 1;
    if (entry.key == 0) {
      entries.erase(entries.begin() + i);
    } else if (!entry.marked) {
      entry.value = "''";
      entry.marked = true;
    }
  }
}

void RowModel::markRowsOfMarkedEntries() {
  // Entries that leave the list on the way are not visited any more.
  for (int number = 0; number < appended; ++number) {
    const Entry* entry = find(number);
    if (entry && !entry->null && entry->marked) markRowForDelete(entry->row);
  }
}

std::vector<std::string> RowModel::lines() const {
  std::vector<std::string> result;
  for (const Entry& entry : entries) {
    if (entry.null) {
      result.emplace_back("null");
      continue;
    }
    std::string line = std::to_string(entry.row) + " " + entry.variable + " " + entry.value;
    if (entry.key) line += " #" + std::to_string(entry.key);
    if (entry.marked) line += " marked";
    result.push_back(line);
  }
  return result;
}

const RowModel::Entry* RowModel::find(int number) const {
  const auto found =
      std::find_if(entries.begin(), entries.end(), [number](const Entry& entry) { return entry.number == number; });
  return found == entries.end() ? nullptr : &*found;
}

std::vector<std::string> randomEntries(std::mt19937& random) {
  const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
  const int count = below(14);
  const bool ascending = below(2);
  const bool withNulls = below(3) == 0;
  std::vector<int> rows;
  for (int i = 0; i < count; ++i) rows.push_back(below(6));
  if (ascending) std::sort(rows.begin(), rows.end());

  std::vector<std::string> lines;
  for (int i = 0; i < count; ++i) {
    if (withNulls && below(4) == 0) lines.emplace_back("null");
    std::string line = std::to_string(rows[static_cast<size_t>(i)]) + " 13 'v" + std::to_string(i) + "'";
    if (below(2)) line += " #" + std::to_string(i + 1);
    if (below(4) == 0) line += " marked";
    lines.push_back(line);
  }
  return lines;
}

}  // namespace Quillane::Plugin::ItemData
