#include "meter/function_remark.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace vireon::meter {
namespace {

using Remarks = std::map<std::string, std::string>;

const Remarks kBySubCode{{"25", "Dty"}, {"53", "P/W"}, {"6B", "OHM or BZ"}, {"9C", "RPM"}};
const Remarks kByMainCode{{"53", "P/W"},       {"56", "DCV or ACV"}, {"7A", "FRQ (Hz)"},
                          {"8C", "OHM or BZ"}, {"95", "DCV"},        {"96", "ACV"}};

std::string hex(int byte) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  return {kDigits[byte / 16], kDigits[byte % 16]};
}

std::string entry(const Remarks& table, const std::string& code, const std::string& otherwise) {
  const auto found = table.find(code);
  return found == table.end() ? otherwise : found->second;
}

TEST(FunctionRemark, OfEveryPairOfCodesIsTheTables) {
  for (int main = 0; main < 256; ++main) {
    for (int sub = 0; sub < 256; ++sub) {
      const std::string expected =
          main == 0x20 ? entry(kBySubCode, hex(sub), "") : entry(kByMainCode, hex(main), "Check!!");
      ASSERT_EQ(functionRemark(hex(main), hex(sub)), expected) << hex(main) << hex(sub);
    }
  }
}

TEST(FunctionRemark, OfCodesInLowerCaseCutShortOrShiftedIsNoneOfTheTable) {
  EXPECT_EQ(functionRemark("8c", "00"), "Check!!");
  EXPECT_EQ(functionRemark("20", "6b"), "");
  EXPECT_EQ(functionRemark("", ""), "Check!!");
  EXPECT_EQ(functionRemark("9", ""), "Check!!");
  EXPECT_EQ(functionRemark("20", ""), "");
  EXPECT_EQ(functionRemark("2", "25"), "Check!!");
}

}  // namespace
}  // namespace vireon::meter
