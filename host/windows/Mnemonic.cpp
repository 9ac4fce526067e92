// Letters to be pressed with Alt, for texts that come from elsewhere.
#include "host/windows/Mnemonic.h"

using namespace FX;

namespace Quillane::Host {

namespace {

FXHotKey makeHotKey(FXchar letter) { return parseHotKey(FXString("&") + letter); }

}  // namespace

FXString markMnemonic(const FXString& name, std::string& used) {
  for (FXint i = 0; i < name.length(); ++i) {
    const FXchar letter = Ascii::toLower(name[i]);
    if (letter < 'a' || letter > 'z' || used.find(letter) != std::string::npos) continue;
    used += letter;
    return name.left(i) + "&" + name.mid(i, name.length() - i);
  }
  return name;
}

std::string getMnemonics(const FXString& text) {
  std::string marked;
  for (FXchar letter = 'a'; letter <= 'z'; ++letter)
    if (parseHotKey(text) == makeHotKey(letter)) marked += letter;
  return marked;
}

std::string getUsedMnemonics(const FXTopWindow& window) {
  std::string used;
  for (FXchar letter = 'a'; letter <= 'z'; ++letter)
    if (window.getAccelTable()->hasAccel(makeHotKey(letter))) used += letter;
  return used;
}

}  // namespace Quillane::Host
