#include "link/long_work.h"

#include <algorithm>

namespace vireon::link {

LongWork::LongWork(form::MainForm& form, protocol::InstrumentState& state, Operations& operations,
                   platform::MessagePump& pump)
    : form_(form), state_(state), operations_(operations), pump_(pump) {
  form_.cmdCancel.onClick = [this] { cancel(); };
}

LongWork::Scope::Scope(LongWork& work, int total, std::initializer_list<const form::Control*> open)
    : work_(work), operation_(work.operations_) {
  // First what may fail.
  std::vector<const form::Control*> all(open);
  all.insert(all.end(), {&work.form_.cmdCancel, &work.form_.cmdBttn[1]});
  work_.cancelled_ = false;
  try {
    begin(total, all);
  } catch (...) {
    end();
    throw;
  }
}

LongWork::Scope::~Scope() {
  end();
}

void LongWork::Scope::begin(int total, const std::vector<const form::Control*>& open) {
  work_.state_.logTransfer = true;
  form::MainForm& form = work_.form_;
  form.barWork.setRange(0, std::max(0, total));
  form.barWork.setValue(0);
  form.barWork.setVisible(true);
  form.cmdCancel.setVisible(true);
  form.raiseShield(open);
}

void LongWork::Scope::end() {
  work_.form_.lowerShield();
  work_.form_.barWork.setVisible(false);
  work_.form_.cmdCancel.setVisible(false);
  work_.state_.logTransfer = false;
}

bool LongWork::Scope::goOn(int done) {
  form::ProgressBar& bar = work_.form_.barWork;
  bar.setValue(std::clamp(done, bar.minimum(), bar.maximum()));
  work_.pump_.pump();
  return !work_.cancelled_;
}

}  // namespace vireon::link
