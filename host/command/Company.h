#pragma once

#include <fx.h>

#include <vector>

#include "host/command/Outcome.h"
#include "host/document/DocumentLife.h"
#include "host/document/DocumentStore.h"
#include "host/plugins/PluginLoader.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Tarnwell.h"

namespace Quillane::Commands {

/// The company that a command works on: its database, and the modules that were loaded for it. Works without a display.
/// There is one in a process, and it is opened once.
class Company {
 public:
  /// Modules are searched in moduleFolders, the first one first.
  explicit Company(const std::vector<FX::FXString>& moduleFolders = Host::PluginLoader::getDefaultFolders());
  /// Closes the company.
  ~Company();

  /// Who sees every statement from the opening on; stays the caller's and must outlive the company. Null for nobody.
  void setObserver(StatementObserver* statementObserver) { observer = statementObserver; }

  /// Opens the company file, brings the host's tables up to date and loads the modules. Refuses a company that lacks
  /// tables even then.
  Outcome open(const FX::FXString& file);

  /// Opens the company file, made when there is none, loads the modules and brings all tables up to date. Refuses a
  /// database that is something else than a company, and a company whose item data would have no module.
  Outcome openUpToDate(const FX::FXString& file);

  /// Opens an empty company that is gone when the program ends, and loads the modules.
  Outcome openInMemory();

  /// Refuses when the item data module is not at work. Without it recorded values would be overlooked or lost.
  Outcome requireItemDataModule() const;

  /// Unloads the modules and closes the database.
  void close();

  TarnwellDatabase& getDatabase() const { return *account.getDB(); }
  const Host::PluginLoader& getPlugins() const { return plugins; }
  const Host::EntityHooks& getHooks() const { return hooks; }

  /// Loads and saves documents with the modules' hooks.
  Host::DocumentStore getDocuments() const { return Host::DocumentStore(getDatabase(), hooks); }

  /// Moves, derives and deletes documents. The modules' check hooks are added to check, which stays the caller's and
  /// has to outlive what is returned.
  Host::DocumentLife getDocumentLife(Host::DocumentCheck& check) const;

  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

 private:
  bool openDatabase(const FX::FXString& file, FX::FXString& error);
  void loadModules();
  bool hasDocuments() const;
  bool hasItemData() const;

  Tarnwell account;
  StatementObserver* observer = nullptr;  // not owned
  std::vector<FX::FXString> folders;
  Host::PluginLoader plugins;
  Host::EntityHooks hooks;
};

}  // namespace Quillane::Commands
