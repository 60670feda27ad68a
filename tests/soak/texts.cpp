#include "tests/soak/texts.h"

#include <array>

namespace vireon::soak {
namespace {

constexpr std::array<const char*, 12> kTimes{"0.001", "0.005", "0.01", "0.02", "0.05", "0.1",
                                             "0.5",   "2",     "0",    "abc",  "-1",   "1e9"};
constexpr std::array<const char*, 16> kNames{"one",   "two", "three",   "Four",   "five", "six",
                                             "été",   "a b", "x.y",     "CON",    "",     "File Name",
                                             "../up", "a/b", "back\\s", ".hidden"};
constexpr std::array<const char*, 16> kValues{"00:00:05",
                                              "00:00:01",
                                              "1",
                                              "10",
                                              "0.5",
                                              "-1.234mV",
                                              "+010.0mV",
                                              "12:34:56",
                                              "99",
                                              "1,2;GTL",
                                              "",
                                              "00000",
                                              "1e308",
                                              "0x10",
                                              "\xC2\xB1"
                                              "5",
                                              "23:59:59"};
constexpr const char* kLetters = "abcXYZ 0123456789.,;:-+*#'\"()[]{}<>|!?%&=~^_äöüßéñΩµ±√한글😀";

}  // namespace

QString nonsense(Dice& dice, int longest) {
  static const QString letters = QString::fromUtf8(kLetters);
  QString text;
  for (int left = dice.below(longest + 1); left > 0; --left) {
    text += letters[dice.below(static_cast<int>(letters.size()))];
  }
  return text;
}

QString typedText(Dice& dice, const std::string& box) {
  if (dice.percent(10)) {
    return nonsense(dice, dice.oneIn(10) ? 300 : 12);
  }
  if (box == "txtSTime") {
    return QString::fromUtf8(dice.pick(kTimes));
  }
  if (box.starts_with("txtFn")) {
    return QString::fromUtf8(dice.pick(kNames));
  }
  return QString::fromUtf8(dice.pick(kValues));
}

}  // namespace vireon::soak
