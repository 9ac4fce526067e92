// The account: the toolkit's application with the company's database in it.
#include "plugin/contract/Tarnwell.h"

#include "plugin/contract/Database.h"

using namespace FX;

namespace Quillane {

FXIMPLEMENT(Tarnwell, FXApp, nullptr, 0)

Tarnwell::Tarnwell(const FXString& name, const FXString& vendor) : FXApp(name, vendor) {}

Tarnwell::~Tarnwell() { delete database; }

void Tarnwell::setDB(TarnwellDatabase* opened) {
  if (opened == database) return;
  delete database;
  database = opened;
}

}  // namespace Quillane
