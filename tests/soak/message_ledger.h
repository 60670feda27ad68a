#pragma once

#include <QMessageBox>
#include <QObject>
#include <cstdint>
#include <functional>
#include <string>

#include "tests/soak/act_log.h"

namespace vireon::soak {

// Sees every message box of the program: one at a time, and one for each loss of the link.
class MessageLedger : public QObject {
 public:
  explicit MessageLedger(ActLog& log);

  // The text of a box that says something was saved, for its claim to be looked at.
  std::function<void(const std::string& path)> onClaim;

  // Looks at the connection while nothing is under way on the link. `farewells` is how often the program took
  // leave of the instrument so far, `inputs` what the user did so far.
  void look(bool connected, std::uint64_t farewells, std::uint64_t inputs);
  // What comes next belongs to another window.
  void forget() { known_ = false; }

  std::uint64_t messages() const { return messages_; }
  std::uint64_t losses() const { return losses_; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  ActLog& log_;
  std::uint64_t messages_ = 0;
  std::uint64_t linkMessages_ = 0;
  std::uint64_t losses_ = 0;
  bool known_ = false;
  bool connected_ = false;
  std::uint64_t linkMessagesThen_ = 0;
  std::uint64_t farewellsThen_ = 0;
  std::uint64_t inputsThen_ = 0;
};

}  // namespace vireon::soak
