#pragma once

#include <map>
#include <string>
#include <vector>

/// Keys that the keyboard of the display does not have, on spare places of it as long as the object lives.
class ExtraKeys {
 public:
  /// The names that X gives them ("odoubleacute").
  explicit ExtraKeys(const std::vector<std::string>& names);
  ~ExtraKeys();

  /// Presses and releases one of them.
  void type(const std::string& name) const;

  ExtraKeys(const ExtraKeys&) = delete;
  ExtraKeys& operator=(const ExtraKeys&) = delete;

 private:
  struct Place {
    unsigned char code;
    unsigned long symbol;
  };

  void map(const Place& place, unsigned long symbol) const;

  void* display;  // a connection of its own
  std::map<std::string, Place> places;
};
