// The account: the toolkit's application with the company's database in it.
#include "plugin/contract/Tarnwell.h"

#include "host/windows/icons/host_icons.h"
#include "plugin/contract/Database.h"

using namespace FX;

namespace Quillane {

FXIMPLEMENT(Tarnwell, FXApp, nullptr, 0)

Tarnwell::Tarnwell(const FXString& name, const FXString& vendor)
    : FXApp(name, vendor),
      addIcon(new FXGIFIcon(this, host_icon_add)),
      deleteIcon(new FXGIFIcon(this, host_icon_remove)) {}

Tarnwell::~Tarnwell() {
  delete database;
  delete deleteIcon;
  delete addIcon;
}

void Tarnwell::setDB(TarnwellDatabase* opened) {
  if (opened == database) return;
  delete database;
  database = opened;
}

}  // namespace Quillane
