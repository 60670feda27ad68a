#include "meter/function_remark.h"

#include <algorithm>
#include <array>

namespace vireon::meter {
namespace {

struct Remark {
  std::string_view code;
  std::string_view text;
};

constexpr std::string_view kSeeSubCode = "20";

constexpr std::array<Remark, 4> kBySubCode{
    {{"25", "Dty"}, {"53", "P/W"}, {"6B", "OHM or BZ"}, {"9C", "RPM"}}};

constexpr std::array<Remark, 6> kByMainCode{{{"53", "P/W"},
                                             {"56", "DCV or ACV"},
                                             {"7A", "FRQ (Hz)"},
                                             {"8C", "OHM or BZ"},
                                             {"95", "DCV"},
                                             {"96", "ACV"}}};

template <std::size_t N>
std::string_view find(const std::array<Remark, N>& table, std::string_view code, std::string_view otherwise) {
  const auto* const entry =
      std::find_if(table.begin(), table.end(), [&](const Remark& remark) { return remark.code == code; });
  return entry == table.end() ? otherwise : entry->text;
}

}  // namespace

std::string_view functionRemark(std::string_view mainCode, std::string_view subCode) {
  return mainCode == kSeeSubCode ? find(kBySubCode, subCode, "") : find(kByMainCode, mainCode, "Check!!");
}

}  // namespace vireon::meter
