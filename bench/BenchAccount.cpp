// The application that everything in the toolkit needs.
#include "bench/BenchAccount.h"

#include <cstdlib>

#include "plugin/contract/Tarnwell.h"

namespace Bench {

Quillane::Tarnwell& account() {
  // It lives as long as the process: there cannot be a second one after it.
  static auto* application = [] {
    auto* made = new Quillane::Tarnwell("benchmarks");
    static char name[] = "benchmarks";
    static char* arguments[] = {name, nullptr};
    int count = 1;
    made->init(count, arguments, std::getenv("DISPLAY") ? TRUE : FALSE);
    return made;
  }();
  return *application;
}

}  // namespace Bench
