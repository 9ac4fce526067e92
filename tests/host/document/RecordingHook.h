#pragma once

#include <functional>
#include <string>
#include <vector>

#include "plugin/contract/Entity.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/PluginModule.h"

namespace Quillane::Host {

/// What the recording hooks of one test were asked, in order: "name load #7" for the entity with the id 7.
using Calls = std::vector<std::string>;

/// An entity hook for invoice items that writes down what it is asked, and does what the test says.
class RecordingHook : public Plugin::EntityPlugin {
 public:
  struct Weights {
    int load;
    int save;
    int del;
    int xml;
    int string;
  };

  RecordingHook(std::string hookName, Weights weights, Calls* callList = nullptr)
      : EntityPlugin(nullptr, weights.load, weights.save, weights.del, weights.xml, weights.string),
        hook(std::move(hookName)),
        calls(callList) {}

  int load(Entity* entity) const override { return record("load", entity, onLoad); }
  int save(Entity* entity) const override { return record("save", entity, onSave); }
  int del(Entity* entity) const override { return record("del", entity, onDelete); }
  int toXml(Entity* entity, XMLBuilder::Element*) const override { return record("xml", entity, {}); }

  FX::FXString toString(Entity* entity) const override {
    record("text", entity, {});
    return text;
  }

  bool canHandle(const FX::FXMetaClass& metaClassOfEntity) const override {
    return metaClassOfEntity.isSubClassOf(wanted);
  }

  const FX::FXMetaClass* wanted = &InvoiceItem::metaClass;
  FX::FXString text;
  std::function<void(Entity*)> onLoad;
  std::function<void(Entity*)> onSave;
  std::function<void(Entity*)> onDelete;

 private:
  int record(const char* what, Entity* entity, const std::function<void(Entity*)>& action) const {
    if (calls) calls->push_back(hook + " " + what + " #" + std::to_string(entity->getId()));
    if (action) action(entity);
    return 1;
  }

  std::string hook;
  Calls* calls;  // not owned
};

}  // namespace Quillane::Host
