#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

class TarnwellDatabase;

namespace Quillane {

/// The account: the application that the user works in, with the company that is open in it. There is one in a process.
/// Modules pass it wherever the toolkit wants its application.
class QUILLANE_HOST_API Tarnwell : public FX::FXApp {
  FXDECLARE(Tarnwell)
 public:
  explicit Tarnwell(const FX::FXString& name = "quillane", const FX::FXString& vendor = "quillane");
  ~Tarnwell() override;

  /// The company's database, or null while none is open.
  TarnwellDatabase* getDB() const { return database; }

  /// Takes ownership of the database of the company that is open from now on; the earlier one is closed.
  void setDB(TarnwellDatabase* opened);

  /// The pictures of commands that add and delete something, 16 pixels in size; owned by the account.
  FX::FXIcon* getAddIcon() const { return addIcon; }
  FX::FXIcon* getDeleteIcon() const { return deleteIcon; }

  Tarnwell(const Tarnwell&) = delete;
  Tarnwell& operator=(const Tarnwell&) = delete;

 private:
  TarnwellDatabase* database = nullptr;  // owned
  FX::FXIcon* addIcon = nullptr;         // owned
  FX::FXIcon* deleteIcon = nullptr;      // owned
};

}  // namespace Quillane
