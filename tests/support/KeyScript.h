// A person at the keyboard, who waits for what he wants to see before he goes on.
#pragma once

#include <fx.h>

#include <functional>
#include <string>
#include <vector>

namespace TestSupport {

/// A list of steps, each of which is done once its condition holds: in whatever loop of events the program is by then,
/// so that modal windows can be worked in. A step that has to wait too long fails the test and ends all modal windows.
class KeyScript : public FX::FXObject {
 public:
  using Condition = std::function<bool()>;
  using Action = std::function<void()>;

  ~KeyScript() override;

  /// Adds a step; what names it when it fails.
  KeyScript& step(const std::string& what, Condition condition, Action action);

  /// Begins. The steps are done while the application runs its events.
  void start();

  /// Whether all steps are done.
  bool isDone() const { return next == steps.size(); }

  long handle(FX::FXObject* sender, FX::FXSelector selector, void* data) override;

 private:
  struct Step {
    std::string what;
    Condition condition;
    Action action;
  };

  static void endModalWindow();

  std::vector<Step> steps;
  std::size_t next = 0;
  int waited = 0;
};

/// Writes what the screen shows into a PNG file in the folder that TEST_SCREENSHOTS names; nothing without it.
void takeScreenshot(const std::string& name);

}  // namespace TestSupport
