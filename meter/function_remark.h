#pragma once

#include <string_view>

namespace vireon::meter {

// The remark on a record's measuring function, by two codes of two upper-case hexadecimal digits each. Empty
// where the codes leave the remark of the record before in force.
std::string_view functionRemark(std::string_view mainCode, std::string_view subCode);

}  // namespace vireon::meter
