#pragma once

#include <fx.h>

#include <vector>

#include "host/document/DocumentLife.h"
#include "host/document/DocumentStore.h"
#include "host/plugins/PluginLoader.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Tarnwell.h"

namespace Quillane::Host {

/// The company that a program works on: its database, which is open in the account, and the modules that were loaded
/// for it. Everything that modules made (documents with attached data, messages, windows) has to be gone before it is
/// closed. Nothing is asked and nothing is shown here: what could not be done comes back as a sentence for the user.
class Company {
 public:
  /// Why a company was not opened, for programs that know a way out.
  enum Refusal {
    NONE,            ///< It was opened.
    NO_FILE,         ///< There is no such file.
    NO_COMPANY,      ///< It is a database of something else.
    INCOMPLETE,      ///< Tables are missing, which openUpToDate would make.
    MODULE_MISSING,  ///< The item data module cannot be loaded.
    FAILED,          ///< Anything else.
  };

  /// The account is not owned and has to outlive the company; the caller has initialised it, with a display or without.
  /// Modules are searched in moduleFolders, the first one first.
  explicit Company(Tarnwell& programAccount,
                   const std::vector<FX::FXString>& moduleFolders = PluginLoader::getDefaultFolders());
  /// Closes the company.
  ~Company();

  /// Who sees every statement from the next opening on; stays the caller's and must outlive the company. Null for
  /// nobody.
  void setObserver(StatementObserver* statementObserver) { observer = statementObserver; }

  /// Opens the company file, brings the host's tables up to date and loads the modules; a company that was open is
  /// closed before. Refuses a company that lacks tables even then. After a refusal no company is open.
  bool open(const FX::FXString& file, FX::FXString& error);

  /// Opens the company file, made when there is none, loads the modules and brings all tables up to date. Refuses a
  /// database that is something else than a company, and a company whose item data would have no module.
  bool openUpToDate(const FX::FXString& file, FX::FXString& error);

  /// Opens an empty company that is gone when it is closed, and loads the modules.
  bool openInMemory(FX::FXString& error);

  /// Why the last opening was refused.
  Refusal getRefusal() const { return refusal; }

  /// Refuses when the item data module is not at work. Without it recorded values would be overlooked or lost.
  bool requireItemDataModule(FX::FXString& error) const;

  /// Unloads the modules and closes the database.
  void close();

  bool isOpen() const { return account.getDB() != nullptr; }

  /// Only while a company is open.
  TarnwellDatabase& getDatabase() const { return *account.getDB(); }
  const PluginLoader& getPlugins() const { return plugins; }
  const EntityHooks& getHooks() const { return hooks; }

  /// Loads and saves documents with the modules' hooks.
  DocumentStore getDocuments() const { return DocumentStore(getDatabase(), hooks); }

  /// Moves, derives and deletes documents. The modules' check hooks are added to check, which stays the caller's and
  /// has to outlive what is returned.
  DocumentLife getDocumentLife(DocumentCheck& check) const;

  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

 private:
  bool refuse(Refusal reason);
  bool openDatabase(const FX::FXString& file, FX::FXString& error);
  bool syncTables(FX::FXString& error);
  void loadModules();
  bool hasDocuments() const;
  bool hasItemData() const;

  Tarnwell& account;
  StatementObserver* observer = nullptr;  // not owned
  std::vector<FX::FXString> folders;
  PluginLoader plugins;
  EntityHooks hooks;
  Refusal refusal = NONE;
};

}  // namespace Quillane::Host
