#include "tests/support/ToolkitApplication.h"

#include <chrono>
#include <cstdlib>

using namespace FX;

namespace TestSupport {

namespace {

class Application : public FXApp {
 public:
  Application() : FXApp("QuillaneTest", "Quillane") {
    static char name[] = "test";
    static char* arguments[] = {name, nullptr};
    int count = 1;
    init(count, arguments, FALSE);
  }
};

}  // namespace

FXApp& toolkitApplication() {
  // Programs that work with a company have their account as application already.
  if (FXApp* application = FXApp::instance()) return *application;
  static Application application;
  return application;
}

bool openToolkitDisplay() {
  FXApp& application = toolkitApplication();
  if (application.isInitialized()) return true;
  const char* display = std::getenv("DISPLAY");
  if (!display || !application.openDisplay(display)) return false;
  application.create();
  return true;
}

namespace {

/// Ends a wait for events that do not come.
class Tick : public FXObject {
 public:
  explicit Tick(FXApp& waiting) : application(waiting) { application.addTimeout(this, 0, 5); }
  ~Tick() override { application.removeTimeout(this, 0); }
  long handle(FXObject*, FXSelector, void*) override { return 0; }

 private:
  FXApp& application;
};

}  // namespace

bool waitUntil(const std::function<bool()>& condition, int timeoutMilliseconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMilliseconds);
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    Tick tick(toolkitApplication());
    toolkitApplication().runOneEvent(true);
  }
  return true;
}

void runEvents(int milliseconds) {
  waitUntil([] { return false; }, milliseconds);
}

FXEvent keyEvent(FXint code, const FXString& text, FXint state) {
  FXEvent event{};
  event.type = SEL_KEYPRESS;
  event.code = code;
  event.text = text;
  event.state = state;
  return event;
}

long pressKey(FXWindow& widget, FXint code, const FXString& text, FXint state) {
  FXEvent event = keyEvent(code, text, state);
  return widget.handle(&toolkitApplication(), FXSEL(SEL_KEYPRESS, 0), &event);
}

}  // namespace TestSupport
