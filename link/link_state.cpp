#include "link/link_state.h"

namespace vireon::link {

int answerTimeOut(const std::string& baudRate) {
  if (baudRate == "1200") {
    return 3200;
  }
  if (baudRate == "2400") {
    return 2400;
  }
  if (baudRate == "4800") {
    return 1600;
  }
  return baudRate == "9600" ? 800 : 0;
}

}  // namespace vireon::link
