#pragma once

#include <cstddef>
#include <functional>

// What the mutated sources call: every mutant is in the program, and the environment says which one is
// present.
namespace mutation {

extern int present;           // the mutant's number, 0 for none
extern unsigned char seen[];  // by number: this place was come by

inline bool on(int mutant) {
  seen[mutant] = 1;
  return present == mutant;
}

template <typename Left, typename Right, typename Usual, typename First, typename Second>
auto either(int mutant, const Left& left, const Right& right, Usual usual, First first, Second second)
    -> decltype(usual(left, right)) {
  seen[mutant] = 1;
  if (present == mutant) return static_cast<decltype(usual(left, right))>(first(left, right));
  if (present == mutant + 1) return static_cast<decltype(usual(left, right))>(second(left, right));
  return usual(left, right);
}

template <typename Left, typename Right, typename Usual, typename First>
auto other(int mutant, const Left& left, const Right& right, Usual usual, First first)
    -> decltype(usual(left, right)) {
  return on(mutant) ? static_cast<decltype(usual(left, right))>(first(left, right)) : usual(left, right);
}

struct And {
  auto operator()(auto left, auto right) const { return left & right; }
};
struct Or {
  auto operator()(auto left, auto right) const { return left | right; }
};
struct ToLeft {
  auto operator()(auto left, auto right) const { return left << right; }
};
struct ToRight {
  auto operator()(auto left, auto right) const { return left >> right; }
};

using Less = std::less<>;
using LessEqual = std::less_equal<>;
using Greater = std::greater<>;
using GreaterEqual = std::greater_equal<>;
using Plus = std::plus<>;
using Minus = std::minus<>;
using Times = std::multiplies<>;
using Over = std::divides<>;
using Rest = std::modulus<>;

auto less(int m, const auto& a, const auto& b) {
  return either(m, a, b, Less(), LessEqual(), GreaterEqual());
}
auto lessEqual(int m, const auto& a, const auto& b) {
  return either(m, a, b, LessEqual(), Less(), Greater());
}
auto greater(int m, const auto& a, const auto& b) {
  return either(m, a, b, Greater(), GreaterEqual(), LessEqual());
}
auto greaterEqual(int m, const auto& a, const auto& b) {
  return either(m, a, b, GreaterEqual(), Greater(), Less());
}
bool equal(int m, const auto& a, const auto& b) {
  return on(m) != static_cast<bool>(a == b);
}
bool unequal(int m, const auto& a, const auto& b) {
  return on(m) == static_cast<bool>(a == b);
}
auto plus(int m, const auto& a, const auto& b) {
  return other(m, a, b, Plus(), Minus());
}
auto minus(int m, const auto& a, const auto& b) {
  return other(m, a, b, Minus(), Plus());
}
auto times(int m, const auto& a, const auto& b) {
  return other(m, a, b, Times(), Over());
}
auto over(int m, const auto& a, const auto& b) {
  return other(m, a, b, Over(), Times());
}
auto rest(int m, const auto& a, const auto& b) {
  return other(m, a, b, Rest(), Times());
}
auto both(int m, const auto& a, const auto& b) {
  return other(m, a, b, And(), Or());
}
auto any(int m, const auto& a, const auto& b) {
  return other(m, a, b, Or(), And());
}
auto toLeft(int m, const auto& a, const auto& b) {
  return other(m, a, b, ToLeft(), ToRight());
}
auto toRight(int m, const auto& a, const auto& b) {
  return other(m, a, b, ToRight(), ToLeft());
}

auto& add(int m, auto& a, const auto& b) {
  return on(m) ? a -= b : a += b;
}
auto& subtract(int m, auto& a, const auto& b) {
  return on(m) ? a += b : a -= b;
}
auto& up(int m, auto& a) {
  return on(m) ? --a : ++a;
}
auto& down(int m, auto& a) {
  return on(m) ? ++a : --a;
}
auto upAfter(int m, auto& a) {
  return on(m) ? a-- : a++;
}
auto downAfter(int m, auto& a) {
  return on(m) ? a++ : a--;
}

// Whole numbers: one more, one less.
template <typename Number>
Number number(int mutant, Number value) {
  seen[mutant] = 1;
  if (present == mutant) return static_cast<Number>(value + 1);
  if (present == mutant + 1) return static_cast<Number>(value - 1);
  return value;
}
// Floating ones: one more.
template <typename Number>
Number fraction(int mutant, Number value) {
  return on(mutant) ? value + 1 : value;
}
inline bool truth(int mutant, bool value) {
  return value != on(mutant);
}
inline char character(int mutant, char value) {
  return on(mutant) ? static_cast<char>(value ^ 1) : value;
}
// A text with the character in its middle changed.
template <int kMutant, std::size_t kSize>
const char (&text(const char (&value)[kSize]))[kSize] {
  if (!on(kMutant)) return value;
  static char changed[kSize];
  for (std::size_t index = 0; index < kSize; ++index) changed[index] = value[index];
  changed[(kSize - 1) / 2] = static_cast<char>(changed[(kSize - 1) / 2] ^ 1);
  return changed;
}

}  // namespace mutation
