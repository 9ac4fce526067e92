#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "itemdata/ItemDataPluginList.h"
#include "tests/support/StatementLog.h"
#include "tests/support/TestCompany.h"

namespace Quillane::Plugin::ItemData {

/// Tests of the module's front door, on a company that knows nothing of the module yet. Ends with an empty registry of
/// field kinds, since a container leaves its pointers there.
class PluginTest : public testing::Test {
 protected:
  ~PluginTest() override { plugins.clear(); }

  TarnwellDatabase& db() const { return *company.getDB(); }

  /// The statements that are executed while action runs, as StatementLog tells them.
  std::vector<std::string> watch(const std::function<void()>& action) const {
    StatementLog log;
    db().setObserver(&log);
    action();
    db().setObserver(nullptr);
    return log.take();
  }

  TestCompany company;
};

}  // namespace Quillane::Plugin::ItemData
