#include <new>

#include "tests/scope/scope_rig.h"

namespace vireon::tests {
namespace {

class WaveformMemory : public ScopeRig {};

TEST_F(WaveformMemory, ASettingThatThePanelCouldNotTakeComesWithTheNextFrame) {
  const auto dspVinf = interpreter.effects.dspVinf;
  interpreter.effects.dspVinf = [](int, int) { throw std::bad_alloc(); };
  EXPECT_THROW(take(WaveformFields{}.bytes()), std::bad_alloc);
  EXPECT_FALSE(state.uiBusy);
  interpreter.effects.dspVinf = dspVinf;
  take(WaveformFields{}.bytes());
  EXPECT_EQ(form.lblSinf[0].caption(), "A:1V");
  EXPECT_EQ(form.lblSinf[1].caption(), "B:0.5V");
}

}  // namespace
}  // namespace vireon::tests
