// Checking, printing and exporting recorded values that are in memory, against plain code that gets the same findings,
// the same text and the same XML tree out of a plain vector.
#include <libintl.h>

#include <cstdio>
#include <pugixml.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "bench/RecordedValues.h"
#include "itemdata/ItemDataEntry.h"
#include "plugin/contract/Message.h"
#include "plugin/contract/XMLBuilder.h"

namespace Bench {

namespace {

using Quillane::ListOfMessage;
using Quillane::Message;
using Quillane::Plugin::ItemData::ItemDataEntry;

constexpr double kGoal = 2;

constexpr int kValuesOfRow = 4;  // as recordRows records them
constexpr int kItemNumber = 1;
constexpr const char* kPrefix = "TETEL";
constexpr const char* kUnit = "db";

using Values = std::vector<RecordedValue>;

// ---- check

// A list of findings that owns them.
struct Findings {
  ~Findings() {
    for (FX::FXint i = 0; i < list.no(); ++i) delete list[i];
  }

  ListOfMessage list;
};

// What a check finds, as text.
template <class Check>
std::string textOf(Check check) {
  Findings findings;
  check(findings);
  std::string text;
  for (FX::FXint i = 0; i < findings.list.no(); ++i) {
    const Message& message = *findings.list[i];
    for (const FX::FXString& part : {message.getKey(), message.getText(), message.getLocation()})
      text.append(part.text()).append("|");
    text += std::to_string(message.getSeverity()) + '\n';
  }
  return text;
}

// A whole quantity.
long long toQuantity(const std::string& text) {
  long long quantity = 0;
  for (const char digit : text) quantity = quantity * 10 + (digit - '0');
  return quantity;
}

// For an item whose quantity is 0.
void checkPlainly(const Values& values, const Quillane::Invoice& invoice, ListOfMessage& messages) {
  const FX::FXString location =
      FX::FXStringFormat(gettext("Számla: Tételek listája\n[%s]\n"), invoice.getDisplayText().text());
  const auto report = [&](const FX::FXString& key, const char* text) {
    messages.append(new Message(key, Message::ERROR, text, location, nullptr, nullptr, nullptr));
  };

  long long sum = 0;
  for (const RecordedValue& value : values)
    if (value.type == ItemDataEntry::TYPE_QUANTITY) sum += toQuantity(value.value);
  char text[200];
  if (sum > 0) {
    std::snprintf(text, sizeof text,
                  gettext("Egyéb tételadatok: Az összmennyiség (%s) több, mint a tétellistában megadott (%s)."),
                  std::to_string(sum).c_str(), "0");
    report(FX::FXString(kPrefix) + "_ITEMDATAQUANTITYMORETHAN", text);
  }

  const FX::FXString key = FX::FXString(kPrefix) + "_ITEMDATAWANTED";
  const char* wanted = gettext("A(z) %d. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:%s");
  for (const RecordedValue& value : values) {
    if (!value.value.empty()) continue;
    std::snprintf(text, sizeof text, wanted, kItemNumber, value.name.c_str());
    report(key, text);
  }
}

void check(benchmark::State& state, const Values& values) {
  ItemWithData ours(values);
  const auto checkOurs = [&](Findings& findings) { ours.getList().check(kItemNumber, findings.list, kPrefix); };
  const auto checkLimit = [&](Findings& findings) { checkPlainly(values, ours.getInvoice(), findings.list); };
  if (textOf(checkOurs) != textOf(checkLimit)) state.SkipWithError("the findings differ");
  Race race(state, kGoal);
  for (auto _ : state) {
    {
      Findings findings;
      race.ours([&] { checkOurs(findings); });
    }
    Findings findings;
    race.limit([&] { checkLimit(findings); });
  }
}

// ---- printable text

// An empty text for a quantity that is not printed.
void appendPrintable(std::string& line, const RecordedValue& value) {
  line += value.value;
  if (value.type != ItemDataEntry::TYPE_QUANTITY) return;
  line += ' ';
  line += kUnit;
}

bool isPrinted(const RecordedValue& value) {
  if (value.value.empty()) return false;
  return value.type != ItemDataEntry::TYPE_QUANTITY || (value.value != "0" && value.value != "1");
}

std::string printRowsPlainly(const Values& values) {
  std::string line;
  int row = 0;
  bool afterQuantity = false;
  for (const RecordedValue& value : values) {
    if (!isPrinted(value)) continue;
    if (!line.empty()) line += value.row == 0 || value.row != row ? "; " : afterQuantity ? " " : ", ";
    appendPrintable(line, value);
    row = value.row;
    afterQuantity = value.type == ItemDataEntry::TYPE_QUANTITY;
  }
  return line;
}

std::string printCountsPlainly(const Values& values) {
  std::vector<std::pair<std::string_view, int>> counts;
  std::unordered_map<std::string_view, std::size_t> placeOfText;
  std::size_t total = 0;
  for (const RecordedValue& value : values) {
    if (value.value.empty()) continue;
    ++total;
    const auto [known, isNew] = placeOfText.emplace(value.value, counts.size());
    if (isNew)
      counts.emplace_back(value.value, 1);
    else
      ++counts[known->second].second;
  }
  std::string line;
  for (const auto& [text, count] : counts) {
    if (!line.empty()) line += ", ";
    line += text;
    if (total > counts.size()) line.append(" (").append(std::to_string(count)).append(" ").append(kUnit).append(")");
  }
  return line;
}

void print(benchmark::State& state, const Values& values, std::string (*printPlainly)(const Values&)) {
  ItemWithData ours(values);
  Race race(state, kGoal);
  for (auto _ : state) {
    FX::FXString text;
    race.ours([&] { text = ours.getList().getPrintableText(); });
    std::string plainText;
    race.limit([&] { plainText = printPlainly(values); });
    if (text.text() != plainText) state.SkipWithError("the texts differ");
  }
}

// ---- XML

void buildPlainTree(pugi::xml_document& tree, const Values& values) {
  pugi::xml_node root = tree.append_child("invoice");
  root.append_attribute("xmlns").set_value("urn:quillane:invoice");
  root.append_attribute("xmlns:itemdata").set_value("urn:quillane:plugin:itemdata");
  pugi::xml_node list = root.append_child("itemdata:itemdata");
  for (const RecordedValue& value : values) {
    pugi::xml_node element = list.append_child("itemdata:itemdata");
    element.append_attribute("row").set_value(value.row);
    element.append_attribute("name").set_value(value.name.c_str());
    element.append_child(pugi::node_pcdata).set_value(value.value.c_str());
  }
}

struct StringWriter : pugi::xml_writer {
  void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }

  std::string text;
};

std::string writePlainly(const pugi::xml_document& tree) {
  StringWriter writer;
  writer.text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  tree.save(writer, "  ", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
  return std::move(writer.text);
}

void makeXml(benchmark::State& state, const Values& values) {
  ItemWithData ours(values);
  Race race(state, kGoal);
  for (auto _ : state) {
    race.ours([&] {
      XMLBuilder::Document document("urn:quillane:invoice", "invoice");
      ours.getList().toXml(document.getRoot());
    });
    race.limit([&] {
      pugi::xml_document tree;
      buildPlainTree(tree, values);
    });
  }
}

void writeXml(benchmark::State& state, const Values& values) {
  ItemWithData ours(values);
  XMLBuilder::Document document("urn:quillane:invoice", "invoice");
  ours.getList().toXml(document.getRoot());
  pugi::xml_document tree;
  buildPlainTree(tree, values);
  Race race(state, kGoal);
  for (auto _ : state) {
    FX::FXString text;
    race.ours([&] { text = document.toText(); });
    std::string plainText;
    race.limit([&] { plainText = writePlainly(tree); });
    if (text.text() != plainText) state.SkipWithError("the texts differ");
  }
}

}  // namespace

void addOutputBenchmarks(Extent extent) {
  for (const auto& [entries, number] :
       {std::pair(4000, std::string("4,000")), std::pair(40000, std::string("40,000"))}) {
    const int rows = entries / kValuesOfRow;
    addRace("check " + number + " recorded entries", [=](auto& state) { check(state, recordRows(rows)); });
    addRace("check " + number + " empty entries", [=](auto& state) { check(state, leaveRowsEmpty(rows)); });
    addRace("print the unit rows of " + number + " entries",
            [=](auto& state) { print(state, recordRows(rows), printRowsPlainly); });
    addRace("print " + number + " distinct texts",
            [=](auto& state) { print(state, recordDistinctTexts(entries), printCountsPlainly); });
    addRace("print " + number + " equal texts",
            [=](auto& state) { print(state, recordEqualTexts(entries), printCountsPlainly); });
    addRace("make the XML tree of " + number + " entries", [=](auto& state) { makeXml(state, recordRows(rows)); });
    addRace("write the XML of " + number + " entries", [=](auto& state) { writeXml(state, recordRows(rows)); });
    if (extent == Extent::SMALLEST) return;
  }
}

}  // namespace Bench
