// Spare key codes of the display, mapped to letters for a while.
#include "tests/ui/ExtraKeys.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/ToolkitApplication.h"

// Last, because of its macros.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace {

Display* of(void* display) { return static_cast<Display*>(display); }

bool isSpare(Display* display, int code) {
  int width = 0;
  KeySym* symbols = XGetKeyboardMapping(display, static_cast<KeyCode>(code), 1, &width);
  bool spare = true;
  for (int i = 0; i < width; ++i) spare = spare && symbols[i] == NoSymbol;
  XFree(symbols);
  return spare;
}

}  // namespace

ExtraKeys::ExtraKeys(const std::vector<std::string>& names) : display(XOpenDisplay(std::getenv("DISPLAY"))) {
  int code = 0;
  int last = 0;
  XDisplayKeycodes(of(display), &code, &last);
  for (const std::string& name : names) {
    while (code <= last && !isSpare(of(display), code)) ++code;
    if (code > last) {
      ADD_FAILURE() << "the keyboard has no place for " << name;
      return;
    }
    places[name] = {static_cast<unsigned char>(code++), XStringToKeysym(name.c_str())};
    map(places[name], places[name].symbol);
  }
  TestSupport::runEvents(50);  // the application hears of the new keys
}

ExtraKeys::~ExtraKeys() {
  for (const auto& [name, place] : places) map(place, NoSymbol);
  XCloseDisplay(of(display));
}

void ExtraKeys::type(const std::string& name) const {
  for (const Bool down : {True, False}) {
    XTestFakeKeyEvent(of(display), places.at(name).code, down, CurrentTime);
    XSync(of(display), False);
  }
}

void ExtraKeys::map(const Place& place, unsigned long symbol) const {
  KeySym symbols[] = {symbol, symbol};
  XChangeKeyboardMapping(of(display), place.code, 2, symbols, 1);
  XSync(of(display), False);
}
