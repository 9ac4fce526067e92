#include "tests/endtoend/OtherProgram.h"

#include <gtest/gtest.h>

#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Desktop {

OtherProgram::OtherProgram(const std::string& file) {
  FXString error;
  database.reset(TarnwellDatabase::open(file.c_str(), error));
  if (!database) ADD_FAILURE() << error.text();
}

OtherProgram::~OtherProgram() = default;

void OtherProgram::run(const std::string& sql) const {
  EXPECT_TRUE(Statement(database.get(), sql.c_str()).execute(nullptr, 1)) << database->getLastError().text();
}

void OtherProgram::beginReading() const {
  run("begin");
  run("select count(*) from t_itemvariable");
}

}  // namespace Quillane::Desktop
