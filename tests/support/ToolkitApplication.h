// The one toolkit application of a test process, and what drives its windows.
#pragma once

#include <fx.h>

#include <functional>

namespace TestSupport {

/// The toolkit's application object, of which a process can have only one: the account of a test company when that was
/// asked for first. Otherwise made by the first call, without a display.
FX::FXApp& toolkitApplication();

/// Connects the application to the display that DISPLAY names, once for the process. False when there is none.
bool openToolkitDisplay();

/// What a test of windows says when openToolkitDisplay() failed.
inline constexpr const char* kNoDisplay =
    "these tests need a display that DISPLAY names, for example xvfb-run -a -s '-screen 0 1280x1024x24' PROGRAM";

/// Runs the application's events until the condition holds; false when it does not within the timeout.
bool waitUntil(const std::function<bool()>& condition, int timeoutMilliseconds = 5000);

/// Runs the application's events for a while.
void runEvents(int milliseconds);

/// A key event as the toolkit makes it from the keyboard.
FX::FXEvent keyEvent(FX::FXint code, const FX::FXString& text = FX::FXString::null, FX::FXint state = 0);

/// Sends the widget a key that is pressed; returns what it answers.
long pressKey(FX::FXWindow& widget, FX::FXint code, const FX::FXString& text = FX::FXString::null, FX::FXint state = 0);

}  // namespace TestSupport
