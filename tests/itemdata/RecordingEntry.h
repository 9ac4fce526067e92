#pragma once

#include <fx.h>

#include <string>
#include <vector>

#include "itemdata/ItemDataEntry.h"

namespace Quillane::Plugin::ItemData {

/// An entry that writes down what is done with it: "setStatus 101", "save", "load", "check 3 Prefix", "marked 1",
/// "deleted", each with the entry's name before it ("A: save"). It does nothing else, but for the mark.
class RecordingEntry : public ItemDataEntry {
 public:
  static constexpr int kType = 50;

  RecordingEntry(std::vector<std::string>& record, const char* entryName, Entity* entity = nullptr)
      : ItemDataEntry(entity), events(&record) {
    name = entryName;
    type = kType;
  }

  ~RecordingEntry() override { note("deleted"); }

  RecordingEntry* clone(Entity* newOwner) const override {
    auto* copy = new RecordingEntry(*events, name.text(), newOwner);
    copy->itemvariable = itemvariable;
    copy->type = type;
    copy->value = value;
    copy->row = row;
    copy->pk = pk;  // a kind that forgets to leave the key behind
    return copy;
  }

  int save(TarnwellDatabase*) override {
    note("save");
    return 0;
  }

  int load(TarnwellDatabase*) override {
    note("load");
    return 0;
  }

  void markForDelete(FX::FXuchar flag) override {
    note("marked " + std::to_string(flag));
    ItemDataEntry::markForDelete(flag);
  }

  void setStatus(unsigned status) override { note("setStatus " + std::to_string(status)); }

  void check(int itemNumber, ListOfMessage&, FX::FXString prefix) override {
    note("check " + std::to_string(itemNumber) + " " + prefix.text());
    prefix = "spoiled";  // it is this entry's own copy
  }

  bool canHandleType(int variableType) const override { return variableType == kType; }

  void addWidget(FX::FXComposite*, MemoryGuard<FX::FXDataTarget>&) override { note("addWidget"); }

 private:
  void note(const std::string& event) { events->push_back(name.text() + (": " + event)); }

  std::vector<std::string>* events;  // not owned
};

}  // namespace Quillane::Plugin::ItemData
