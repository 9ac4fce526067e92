// Matches a table with the fields of an item. What stands in the table is kept as it was typed: quantities and dates
// are the module's to read, and its check says what is wrong with them.
#include "host/command/ItemDataSheet.h"

#include <libintl.h>

#include "host/command/Wording.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

const FXString kNeverStored = "0";

FXString trimmed(const FXString& text) {
  FXString copy = text;
  return copy.trim();
}

/// The choice of a list that text names, without the blanks around it. False when there is no such choice; the empty
/// text chooses nothing.
bool findChoice(const FXString& choices, const FXString& text, FXString& choice) {
  choice = trimmed(text);
  if (choice.empty()) return true;
  for (FXint i = 0; i <= choices.contains(','); ++i) {
    if (trimmed(choices.section(',', i)) == choice) return true;
  }
  return false;
}

FXString listChoices(const FXString& choices) {
  FXString list;
  for (FXint i = 0; i <= choices.contains(','); ++i) {
    const FXString choice = trimmed(choices.section(',', i));
    if (choice.empty()) continue;
    if (!list.empty()) list += ", ";
    list += choice;
  }
  return list;
}

}  // namespace

bool ItemDataSheet::read(const CsvTable& table, FXString& error) {
  values.clear();
  rowCount = 0;
  if (!matchColumns(table.getHeader(), error) || !checkLines(table, error)) return false;

  bool readable = readItemFields(table, error);
  if (hasUnitRows()) {
    for (const CsvLine& line : table.getLines()) readable = readable && readUnitRow(line, ++rowCount, error);
  }
  if (!readable) {
    values.clear();
    rowCount = 0;
  }
  return readable;
}

bool ItemDataSheet::hasUnitRows() const {
  for (const AssignedVariable& variable : variables) {
    if (variable.perUnit) return true;
  }
  return false;
}

bool ItemDataSheet::isQuantityName(const FXString& name) const {
  for (const FXString& quantityName : quantityNames) {
    if (trimmed(quantityName) == name) return true;
  }
  return false;
}

bool ItemDataSheet::matchColumns(const CsvLine& header, FXString& error) {
  quantityColumn = NOT_IN_TABLE;
  columns.assign(variables.size(), NOT_IN_TABLE);
  for (size_t column = 0; column < header.cells.size(); ++column) {
    if (!matchColumn(header, static_cast<int>(column), error)) return false;
  }
  return true;
}

bool ItemDataSheet::matchColumn(const CsvLine& header, int column, FXString& error) {
  const FXString name = trimmed(header.cells[column]);
  std::vector<int*> targets;
  if (hasUnitRows() && isQuantityName(name)) targets.push_back(&quantityColumn);
  for (size_t i = 0; i < variables.size(); ++i) {
    if (trimmed(variables[i].name) == name) targets.push_back(&columns[i]);
  }

  if (targets.empty()) {
    error = FXStringFormat(dgettext("quillane", "%d. sor: a tételnek nincs „%s” nevű mezője. A mezői: %s."),
                           header.number, quoteText(name).text(), listFields().text());
    return false;
  }
  if (targets.size() > 1) {
    error = FXStringFormat(dgettext("quillane",
                                    "%d. sor: a tételnek több „%s” nevű mezője is van, így nem dönthető "
                                    "el, melyikbe kerüljön az oszlop. Nevezze át az egyiket."),
                           header.number, quoteText(name).text());
    return false;
  }
  if (*targets.front() != NOT_IN_TABLE) {
    error = FXStringFormat(dgettext("quillane", "%d. sor: a(z) „%s” oszlop többször szerepel."), header.number,
                           quoteText(name).text());
    return false;
  }
  *targets.front() = column;
  return true;
}

bool ItemDataSheet::checkLines(const CsvTable& table, FXString& error) const {
  const size_t columnCount = table.getHeader().cells.size();
  for (const CsvLine& line : table.getLines()) {
    if (line.cells.size() <= columnCount) continue;
    error = FXStringFormat(dgettext("quillane", "%d. sor: több cella van benne (%d), mint oszlop a fejlécben (%d)."),
                           line.number, static_cast<int>(line.cells.size()), static_cast<int>(columnCount));
    return false;
  }
  if (hasUnitRows()) return true;

  if (table.getLines().empty()) {
    error = FXStringFormat(dgettext("quillane", "%d. sor: a fejléc után nincs sor a tétel adataival."),
                           table.getHeader().number);
    return false;
  }
  if (table.getLines().size() > 1) {
    error = FXStringFormat(dgettext("quillane",
                                    "%d. sor: a tételnek nincsenek egységenként rögzített mezői, ezért csak "
                                    "egy sor adata lehet."),
                           table.getLines()[1].number);
    return false;
  }
  return true;
}

bool ItemDataSheet::readItemFields(const CsvTable& table, FXString& error) {
  // On purpose: what further lines have in these columns does not count, and may repeat the first line or be empty.
  const CsvLine* line = table.getLines().empty() ? nullptr : &table.getLines().front();
  for (size_t i = 0; i < variables.size(); ++i) {
    if (!variables[i].perUnit && !readField(i, line, 0, error)) return false;
  }
  return true;
}

bool ItemDataSheet::readUnitRow(const CsvLine& line, int row, FXString& error) {
  const bool counted = quantityColumn != NOT_IN_TABLE;
  const bool written = counted && quantityColumn < static_cast<int>(line.cells.size());
  addValue(row, QUANTITY_VARIABLE, counted ? (written ? line.cells[quantityColumn] : FXString()) : FXString("1"));
  for (size_t i = 0; i < variables.size(); ++i) {
    if (variables[i].perUnit && !readField(i, &line, row, error)) return false;
  }
  return true;
}

bool ItemDataSheet::readField(size_t variable, const CsvLine* line, int row, FXString& error) {
  const AssignedVariable& field = variables[variable];
  const int column = columns[variable];
  FXString value;
  if (line && column != NOT_IN_TABLE && column < static_cast<int>(line->cells.size())) value = line->cells[column];
  if (field.type == LIST_TYPE) {
    FXString choice;
    if (!findChoice(field.parameter, value, choice)) {
      error = FXStringFormat(
          dgettext("quillane", "%d. sor: a(z) „%s” mezőben nem választható ez: „%s”. Választható: %s."), line->number,
          quoteText(field.name).text(), quoteText(value).text(), listChoices(field.parameter).text());
      return false;
    }
    value = choice;
  }
  addValue(row, field.id, value);
  return true;
}

void ItemDataSheet::addValue(int row, int variable, const FXString& value) {
  if (value != kNeverStored) values.push_back({row, variable, value});
}

FXString ItemDataSheet::listFields() const {
  FXString list;
  if (hasUnitRows()) list = quantityNames.front();
  for (const AssignedVariable& variable : variables) {
    if (!list.empty()) list += ", ";
    list += quoteText(variable.name);
  }
  return list;
}

}  // namespace Quillane::Commands
