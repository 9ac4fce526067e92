// A module that tells the test program what the host asks of it. TEST_MODULE is its code name as a text.
#include <fx.h>
#include <libintl.h>

#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/PluginModule.h"
#include "tests/host/plugins/CallRecord.h"

using namespace FX;

namespace {

constexpr char kCodeName[] = TEST_MODULE;

/// Tells when the library is unloaded.
struct Library {
  ~Library() { recordCall(kCodeName, "unloaded"); }
} library;

class Check : public Quillane::Plugin::InvoiceCheckPlugin {
 public:
  using InvoiceCheckPlugin::InvoiceCheckPlugin;
  ~Check() override { recordCall(kCodeName, "check deleted"); }

  int init() override {
    recordCall(kCodeName, "check init");
    return 3;
  }

  int checkInvoice(FXWindow*, Quillane::Invoice*, Quillane::ListOfMessage&, FXString) override {
    recordCall(kCodeName, "checkInvoice");
    return 1;
  }
};

class Hook : public Quillane::Plugin::EntityPlugin {
 public:
  explicit Hook(Quillane::Plugin::PluginContainer* owner) : EntityPlugin(owner, 1, 1, 1, 1, 1) {}
  ~Hook() override { recordCall(kCodeName, "hook deleted"); }

  int init() override {
    recordCall(kCodeName, "hook init");
    return 0;
  }

  bool canHandle(const FXMetaClass&) const override { return true; }

  int load(Quillane::Entity*) const override {
    recordCall(kCodeName, "load");
    return 0;
  }

  int save(Quillane::Entity*) const override { return 0; }
  int toXml(Quillane::Entity*, XMLBuilder::Element*) const override { return 0; }
  FXString toString(Quillane::Entity*) const override { return kCodeName; }
};

class Container : public Quillane::Plugin::PluginContainer {
 public:
  explicit Container(Quillane::Tarnwell* owner)
      : PluginContainer(owner, kCodeName, "Próba", "1.0",
                        bind_textdomain_codeset(kCodeName, nullptr) ? "has its texts" : "has no texts") {}
  ~Container() override { recordCall(kCodeName, "deleted"); }

  int init() override {
    recordCall(kCodeName, "init");
    modules.append(new Check(this));
    modules.append(new Hook(this));
    return 0;  // the host takes no decision from it
  }

  void start() override { recordCall(kCodeName, "start"); }
};

}  // namespace

extern "C" Quillane::Plugin::PluginContainer* get_plugin(Quillane::Tarnwell* account) {
  recordCall(kCodeName, "get_plugin");
  return new Container(account);
}
