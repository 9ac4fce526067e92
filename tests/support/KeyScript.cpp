#include "tests/support/KeyScript.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace TestSupport {

namespace {

constexpr FXuint kInterval = 20;  // milliseconds
constexpr int kPatience = 250;    // intervals

}  // namespace

KeyScript::~KeyScript() { toolkitApplication().removeTimeout(this, 0); }

KeyScript& KeyScript::step(const std::string& what, Condition condition, Action action) {
  steps.push_back({what, std::move(condition), std::move(action)});
  return *this;
}

void KeyScript::start() { toolkitApplication().addTimeout(this, 0, kInterval); }

long KeyScript::handle(FXObject*, FXSelector, void*) {
  if (isDone()) return 1;
  if (waited > kPatience) {
    endModalWindow();
  } else if (steps[next].condition()) {
    waited = 0;
    steps[next++].action();
  } else if (++waited > kPatience) {
    takeScreenshot("given-up");
    ADD_FAILURE() << "never came to: " << steps[next].what;
  }
  start();
  return 1;
}

void KeyScript::endModalWindow() {
  FXApp& application = toolkitApplication();
  if (application.getModalWindow()) application.stopModal(application.getModalWindow(), 0);
}

void takeScreenshot(const std::string& name) {
  const char* folder = std::getenv("TEST_SCREENSHOTS");
  if (!folder) return;
  toolkitApplication().flush(true);
  const std::string command = "import -window root '" + std::string(folder) + "/" + name + ".png'";
  EXPECT_EQ(std::system(command.c_str()), 0);
}

}  // namespace TestSupport
