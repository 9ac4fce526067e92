#pragma once

#include <fx.h>

#include "host/company/Company.h"
#include "plugin/contract/Tarnwell.h"

namespace Quillane::Desktop {

/// Which company file is open, and the change to another one. What modules made has to be gone before a change.
/// Nothing is asked and nothing is shown here: what could not be done comes back as a sentence for the user.
class CompanyFile {
 public:
  enum Content {
    EMPTY,
    SAMPLE  ///< A small company to look around in.
  };

  /// Neither is owned; both have to outlive the object.
  CompanyFile(Tarnwell& programAccount, Host::Company& programCompany)
      : account(programAccount), company(programCompany) {}

  /// Opens the company in an existing file in place of the one that is open. After a failure the earlier one is open
  /// again, if it still can be.
  bool open(const FX::FXString& wanted, FX::FXString& error);

  /// Makes a new company file and opens it in place of the one that is open. A file that exists is left alone and
  /// refused. After a failure the new file is gone and the earlier company is open again, if it still can be.
  bool make(const FX::FXString& wanted, Content content, FX::FXString& error);

  /// The file of the company that is open, as a whole path; empty when none is.
  const FX::FXString& getFile() const { return file; }

  /// The file that was open last, from the user's settings; empty when there is none.
  FX::FXString getRememberedFile() const;

  /// Where the user keeps documents: the folder for them in the home folder, or that itself.
  static FX::FXString getDocumentFolder();

  CompanyFile(const CompanyFile&) = delete;
  CompanyFile& operator=(const CompanyFile&) = delete;

 private:
  bool openExisting(const FX::FXString& path, FX::FXString& error);
  bool fillNew(const FX::FXString& path, Content content, FX::FXString& error);
  void returnTo(const FX::FXString& earlier);
  void accept(const FX::FXString& path);

  Tarnwell& account;
  Host::Company& company;
  FX::FXString file;
};

}  // namespace Quillane::Desktop
