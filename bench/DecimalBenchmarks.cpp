// The exact decimal at the work that quantities are: read, added, compared and written, against two limits: the decimal
// of Boost.Multiprecision, which is exact as well, and bare 64-bit integers in code that knows that they count
// ten-thousandths.
#include <array>
#include <boost/multiprecision/cpp_dec_float.hpp>
#include <charconv>
#include <ios>
#include <string>
#include <type_traits>
#include <vector>

#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "fxext/FXDecimal.h"

namespace Bench {

namespace {

using FXExt::FXDecimal;

constexpr double kGoalAgainstBoost = 0.2;
constexpr double kGoalAgainstIntegers = 3;

constexpr int kQuantities = 500;
constexpr int kRounds = 40;  // of all quantities, in one timing

// What people type: mostly few whole units, some weights and lengths, now and then something returned.
std::vector<std::string> makeTexts() {
  static constexpr std::array kTexts = {"1",  "1",    "2",   "1",      "12.5", "3",    "10",   "1",       "0.75", "5",
                                        "24", "1.25", "100", "1",      "0.5",  "1200", "7",    "1",       "2.5",  "48",
                                        "-1", "16",   "1",   "1250.5", "0.1",  "20",   "1.75", "12.3456", "1",    "4"};
  std::vector<std::string> texts;
  unsigned random = 1;
  for (int i = 0; i < kQuantities; ++i) {
    random = random * 1664525 + 1013904223;
    texts.emplace_back(kTexts[(random >> 16) % kTexts.size()]);
  }
  return texts;
}

// How each of the three kinds of number does the four operations.

struct Ours {
  using Number = FXDecimal;
  using Text = FX::FXString;

  static Text toText(const std::string& text) { return text.c_str(); }
  static Number parse(const Text& text) { return FXDecimal(text, 4); }
  static Text print(const Number& number) { return number.toString(); }
};

struct Boost {
  using Number = boost::multiprecision::number<boost::multiprecision::cpp_dec_float<18>, boost::multiprecision::et_off>;
  using Text = std::string;

  static Text toText(const std::string& text) { return text; }
  static Number parse(const Text& text) { return Number(text); }
  static Text print(const Number& number) { return number.str(); }
};

struct Integers {
  using Number = long long;  // ten-thousandths
  using Text = FX::FXString;

  static Text toText(const std::string& text) { return text.c_str(); }

  static Number parse(const Text& text) {
    const char* at = text.text();
    const char* const end = at + text.length();
    const bool negative = at != end && *at == '-';
    if (negative) ++at;
    Number number = 0;
    for (; at != end && *at != '.'; ++at) number = number * 10 + (*at - '0');
    if (at != end) ++at;
    for (int decimal = 0; decimal < kDecimals; ++decimal) number = number * 10 + (at != end ? *at++ - '0' : 0);
    return negative ? -number : number;
  }

  static Text print(Number number) {
    char text[24];
    char* out = text;
    if (number < 0) *out++ = '-';
    const Number absolute = number < 0 ? -number : number;
    out = std::to_chars(out, text + sizeof text, absolute / kScale).ptr;
    if (Number rest = absolute % kScale; rest != 0) {
      *out++ = '.';
      for (; rest != 0; rest = rest * 10 % kScale) *out++ = static_cast<char>('0' + rest * 10 / kScale);
    }
    return Text(text, static_cast<FX::FXint>(out - text));
  }

  static constexpr int kDecimals = 4;
  static constexpr Number kScale = 10'000;
};

std::string toStandard(const FX::FXString& text) { return text.text(); }
std::string toStandard(const std::string& text) { return text; }

// The quantities as texts and numbers of one kind, and the work with them. Every result is used as if it were kept.
template <class Kind>
class Quantities {
 public:
  using Number = typename Kind::Number;

  Quantities() {
    for (const std::string& text : makeTexts()) {
      texts.push_back(Kind::toText(text));
      numbers.push_back(Kind::parse(texts.back()));
    }
  }

  void parse() {
    forEach([&](int i) {
      Number number = Kind::parse(texts[i]);
      benchmark::DoNotOptimize(number);
    });
  }

  void add() {
    forEach([&](int i) {
      Number sum = numbers[i] + numbers[i + 1];
      benchmark::DoNotOptimize(sum);
    });
  }

  void compare() {
    forEach([&](int i) {
      bool less = numbers[i] < numbers[i + 1];
      benchmark::DoNotOptimize(less);
    });
  }

  void print() {
    forEach([&](int i) {
      typename Kind::Text text = Kind::print(numbers[i]);
      benchmark::DoNotOptimize(text);
    });
  }

  // What is done with a quantity that somebody typed: all four.
  void use() {
    forEach([&](int i) {
      const Number number = Kind::parse(texts[i]);
      bool less = number < numbers[i + 1];
      benchmark::DoNotOptimize(less);
      typename Kind::Text text = Kind::print(number + numbers[i + 1]);
      benchmark::DoNotOptimize(text);
    });
  }

  // What the four operations give, as text.
  std::string getResults() const {
    std::string results;
    for (int i = 0; i + 1 < kQuantities; ++i) {
      results += toStandard(Kind::print(numbers[i])) + ' ' + toStandard(Kind::print(numbers[i] + numbers[i + 1])) +
                 (numbers[i] < numbers[i + 1] ? " <\n" : " >=\n");
    }
    return results;
  }

 private:
  template <class Operation>
  static void forEach(Operation operation) {
    for (int round = 0; round < kRounds; ++round) {
      for (int i = 0; i + 1 < kQuantities; ++i) operation(i);
    }
  }

  std::vector<typename Kind::Text> texts;
  std::vector<Number> numbers;
};

template <class Limit>
void addRaces(const std::string& limitName, double goal) {
  const auto add = [&](const std::string& operation, auto ourWork, auto limitWork) {
    addRace(operation + " decimals against " + limitName, [=](benchmark::State& state) {
      Quantities<Ours> ours;
      Quantities<Limit> limit;
      if (ours.getResults() != limit.getResults()) state.SkipWithError("the results differ");
      constexpr double kPieces = static_cast<double>(kRounds) * (kQuantities - 1);
      Race race(state, goal);
      for (auto _ : state) {
        race.ours([&] { (ours.*ourWork)(); }, kPieces);
        race.limit([&] { (limit.*limitWork)(); }, kPieces);
      }
    });
  };
  add("parse, compare, add and print", &Quantities<Ours>::use, &Quantities<Limit>::use);
  add("parse", &Quantities<Ours>::parse, &Quantities<Limit>::parse);
  add("add", &Quantities<Ours>::add, &Quantities<Limit>::add);
  add("compare", &Quantities<Ours>::compare, &Quantities<Limit>::compare);
  add("print", &Quantities<Ours>::print, &Quantities<Limit>::print);
}

}  // namespace

void addDecimalBenchmarks(Extent) {
  addRaces<Boost>("Boost's", kGoalAgainstBoost);
  addRaces<Integers>("bare integers", kGoalAgainstIntegers);
}

}  // namespace Bench
