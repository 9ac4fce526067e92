// Real key and mouse events through the XTest extension, sent over a connection of its own.
#include "tests/support/FakeInput.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/ToolkitApplication.h"

// Last, because of its macros.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace TestSupport {

namespace {

// Milliseconds. A click that follows its movement too soon is lost to a grab that is still under way.
constexpr int kPointerDelay = 20;
constexpr int kPointerTimeout = 200;  // while another window has the pointer, the one below it never hears of it

Display* connection() {
  static Display* display = XOpenDisplay(std::getenv("DISPLAY"));
  return display;
}

struct Key {
  KeyCode code;
  bool shifted;
};

Key findKey(const std::string& name) {
  const KeySym symbol = XStringToKeysym(name.c_str());
  const KeyCode code = symbol == NoSymbol ? 0 : XKeysymToKeycode(connection(), symbol);
  if (!code) {
    ADD_FAILURE() << "the keyboard has no key " << name;
    return {0, false};
  }
  int count = 0;
  KeySym* symbols = XGetKeyboardMapping(connection(), code, 1, &count);
  const bool shifted = symbols[0] != symbol && count > 1 && symbols[1] == symbol;
  XFree(symbols);
  return {code, shifted};
}

std::string keyOf(char letter) {
  switch (letter) {
    case ' ':
      return "space";
    case '#':
      return "numbersign";
    case ',':
      return "comma";
    case '.':
      return "period";
    default:
      return std::string(1, letter);
  }
}

void send(KeyCode code, bool down) {
  XTestFakeKeyEvent(connection(), code, down ? True : False, CurrentTime);
  XSync(connection(), False);
}

}  // namespace

bool isOnScreen(const FX::FXWindow& window) {
  toolkitApplication().flush(true);  // the other connection must not ask before this one was heard
  XWindowAttributes attributes;
  return window.id() && XGetWindowAttributes(connection(), window.id(), &attributes) &&
         attributes.map_state == IsViewable;
}

void typeKey(const std::string& key, const std::string& modifier) {
  const Key pressed = findKey(key);
  const KeyCode held = modifier.empty() ? 0 : findKey(modifier).code;
  const KeyCode shift = pressed.shifted ? findKey("Shift_L").code : 0;
  if (held) send(held, true);
  if (shift) send(shift, true);
  send(pressed.code, true);
  send(pressed.code, false);
  if (shift) send(shift, false);
  if (held) send(held, false);
}

void typeText(const std::string& letters) {
  for (const char letter : letters) typeKey(keyOf(letter));
}

void holdKey(const std::string& key, bool down) { send(findKey(key).code, down); }

void movePointer(const FX::FXWindow& window, int x, int y) {
  FX::FXint rootX = 0;
  FX::FXint rootY = 0;
  window.translateCoordinatesTo(rootX, rootY, window.getRoot(), x < 0 ? window.getWidth() / 2 : x,
                                y < 0 ? window.getHeight() / 2 : y);
  XTestFakeMotionEvent(connection(), DefaultScreen(connection()), rootX, rootY, CurrentTime);
  XSync(connection(), False);
  waitUntil([&] { return window.underCursor(); }, kPointerTimeout);
  runEvents(kPointerDelay);
}

void click(const FX::FXWindow& window, int button, int x, int y) {
  movePointer(window, x, y);
  XTestFakeButtonEvent(connection(), button, True, CurrentTime);
  XSync(connection(), False);
  runEvents(kPointerDelay);
  XTestFakeButtonEvent(connection(), button, False, CurrentTime);
  XSync(connection(), False);
  runEvents(kPointerDelay);
}

void drag(const FX::FXWindow& window, int button, int fromX, int fromY, int toX, int toY) {
  constexpr int kSteps = 4;
  movePointer(window, fromX, fromY);
  XTestFakeButtonEvent(connection(), button, True, CurrentTime);
  XSync(connection(), False);
  runEvents(kPointerDelay);
  for (int step = 1; step <= kSteps; ++step)
    movePointer(window, fromX + (toX - fromX) * step / kSteps, fromY + (toY - fromY) * step / kSteps);
  XTestFakeButtonEvent(connection(), button, False, CurrentTime);
  XSync(connection(), False);
  runEvents(kPointerDelay);
}

void turnWheel(const FX::FXWindow& window, bool away) {
  const unsigned button = away ? Button4 : Button5;
  movePointer(window);
  // As from a real wheel both come at once; the toolkit would take a release that comes later for another turn, by 0.
  XTestFakeButtonEvent(connection(), button, True, CurrentTime);
  XTestFakeButtonEvent(connection(), button, False, CurrentTime);
  XSync(connection(), False);
  runEvents(kPointerDelay);
}

}  // namespace TestSupport
