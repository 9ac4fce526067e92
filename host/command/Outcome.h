#pragma once

#include <fx.h>

namespace Quillane::Commands {

/// How a command ended: the exit status of the program and, when a person has to be told something, the sentence.
struct Outcome {
  enum Status {
    SUCCESS = 0,
    REFUSED = 1,     ///< The data said no: no such document, closed, locked, not allowed.
    WRONG_CALL = 2,  ///< The command line itself was wrong.
  };

  int status = SUCCESS;
  FX::FXString sentence;  // for standard error; empty when there is nothing to say

  bool succeeded() const { return status == SUCCESS; }

  static Outcome success() { return {}; }
  static Outcome refused(const FX::FXString& sentence) { return {REFUSED, sentence}; }
  static Outcome wrongCall(const FX::FXString& sentence) { return {WRONG_CALL, sentence}; }
};

}  // namespace Quillane::Commands
