#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace XMLBuilder {
class Element;
}

namespace Quillane {

class Entity;
class Invoice;
class ListOfMessage;

namespace Plugin {

class PluginContainer;

/// The base of every hook object: what a module offers to one of the host's works. Its container owns it.
class QUILLANE_HOST_API PluginModule : public FX::FXObject {
  FXDECLARE_ABSTRACT(PluginModule)
 public:
  explicit PluginModule(PluginContainer* owner) : container(owner) {}

  /// Called once, after the container's init. Returns 0 when all is well.
  virtual int init();

  PluginContainer* getContainer() const { return container; }

  PluginModule(const PluginModule&) = delete;
  PluginModule& operator=(const PluginModule&) = delete;

 protected:
  PluginModule() = default;

  PluginContainer* container = nullptr;  // not owned
};

/// A hook into the host's loading, saving, exporting and printing of entities. For each of these works the host asks
/// the hooks that can handle the entity's class, the one with the lowest weight for that work first; with equal weights
/// the one registered first.
class QUILLANE_HOST_API EntityPlugin : public PluginModule {
  FXDECLARE_ABSTRACT(EntityPlugin)
 public:
  EntityPlugin(PluginContainer* owner, int load, int save, int del, int xml, int string)
      : PluginModule(owner),
        loadWeight(load),
        saveWeight(save),
        deleteWeight(del),
        xmlWeight(xml),
        stringWeight(string) {}

  /// The entity's own row was read or it was newly made: attach the module's data. The host ignores the result.
  virtual int load(Entity* entity) const = 0;

  /// The entity's own row was written, inside the document's transaction: write the module's data. The host ignores the
  /// result; a failed statement fails the transaction by itself.
  virtual int save(Entity* entity) const = 0;

  /// The entity is about to be deleted, inside a transaction. Does nothing and returns 0 by default.
  virtual int del(Entity* entity) const;

  /// Whether the hook wants entities of this class.
  virtual bool canHandle(const FX::FXMetaClass& metaClassOfEntity) const = 0;

  /// Adds the module's data under the entity's element. The host ignores the result.
  virtual int toXml(Entity* entity, XMLBuilder::Element* element) const = 0;

  /// A parser for the module's part of an entity's XML, owned by the module; null by default: it reads none.
  virtual void* getParser(const FX::FXMetaClass* metaClassOfEntity, FX::FXDict& parsers) const;

  virtual int getXmlWeight() const;

  /// The module's data as text for print; empty when there are none.
  virtual FX::FXString toString(Entity* entity) const = 0;

  virtual int getStringWeight() const;

  int getLoadWeight() const { return loadWeight; }
  int getSaveWeight() const { return saveWeight; }
  int getDeleteWeight() const { return deleteWeight; }

 protected:
  EntityPlugin() = default;

  int loadWeight = 0;
  int saveWeight = 0;
  int deleteWeight = 0;
  int xmlWeight = 0;
  int stringWeight = 0;
};

/// A hook into the check of a document.
class QUILLANE_HOST_API InvoiceCheckPlugin : public PluginModule {
  FXDECLARE_ABSTRACT(InvoiceCheckPlugin)
 public:
  explicit InvoiceCheckPlugin(PluginContainer* owner) : PluginModule(owner) {}

  /// Appends the module's findings about invoice to messages; whoever asked for the check owns them. Their events may
  /// open windows over window, which is null when nobody is there to act on them. Message keys begin with prefix.
  /// The host ignores the result.
  virtual int checkInvoice(FX::FXWindow* window, Invoice* invoice, ListOfMessage& messages, FX::FXString prefix) = 0;

 protected:
  InvoiceCheckPlugin() = default;
};

/// An entry in the context menu of a document's item table. The entry's command and update messages come to the hook as
/// ID_MENU_ITEM.
class QUILLANE_HOST_API InvoiceItemMenuPlugin : public PluginModule {
  FXDECLARE_ABSTRACT(InvoiceItemMenuPlugin)
 public:
  enum { ID_MENU_ITEM = 1, ID_LAST };

  /// position orders the entries of all modules, the lowest first; text has the parts of the toolkit's menu commands:
  /// label, accelerator and help with tabs between them.
  InvoiceItemMenuPlugin(PluginContainer* owner, int menuPosition, const FX::FXString& text)
      : PluginModule(owner), position(menuPosition), menuText(text) {}

  /// The user picked the entry; sender is the menu command. Returns 1 when it was handled.
  virtual long onCmdMenuItem(FX::FXObject* sender, FX::FXSelector selector, void* data) = 0;

  /// The entry asks whether it can be picked now: by default it always can.
  virtual long onUpdMenuItem(FX::FXObject* sender, FX::FXSelector selector, void* data);

  int getPosition() const { return position; }
  const FX::FXString& getMenuText() const { return menuText; }

 protected:
  InvoiceItemMenuPlugin() = default;

  int position = 0;
  FX::FXString menuText;
};

}  // namespace Plugin
}  // namespace Quillane
