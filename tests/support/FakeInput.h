// A hand on the keyboard and the mouse of the display: real events, which take the road that a user's take.
#pragma once

#include <fx.h>

#include <string>

namespace TestSupport {

/// True when the window is really on the screen, mapped with everything around it.
bool isOnScreen(const FX::FXWindow& window);

/// Presses and releases keys by the names that X gives them ("Down", "Return", "a", "A", "period"), one after the
/// other, with `modifier` ("Control_L") held when it is given. The events are under way when the call returns.
void typeKey(const std::string& key, const std::string& modifier = "");
void typeText(const std::string& letters);

/// Presses a key and keeps it down, or lets it go.
void holdKey(const std::string& key, bool down);

/// Moves the pointer over the window, in its coordinates (its middle by default), and lets the application see it.
void movePointer(const FX::FXWindow& window, int x = -1, int y = -1);

/// Moves the pointer there and presses and releases the button: 1 left, 2 middle, 3 right.
void click(const FX::FXWindow& window, int button = 1, int x = -1, int y = -1);

/// Presses the button over the window, moves the pointer in steps to the other place, and releases it.
void drag(const FX::FXWindow& window, int button, int fromX, int fromY, int toX, int toY);

/// Turns the wheel over the middle of the window by one notch, away from the user or back.
void turnWheel(const FX::FXWindow& window, bool away);

}  // namespace TestSupport
