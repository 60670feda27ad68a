#pragma once

#include "meter/sampling.h"
#include "tests/meter/meter_fixture.h"

namespace vireon::tests {

// A connected main window whose sampling controls work.
class SamplingFixture : public MeterFixture {
 protected:
  SamplingFixture() { sampling.connectEvents(); }

  void expectLive() {
    EXPECT_EQ(form.cmdStart.caption(), "Stop");
    EXPECT_EQ(form.cmdStart.backColor(), form::Color{0x80FF80});
    EXPECT_TRUE(form.tmrInt.enabled());
  }

  meter::Sampling sampling{form, state, link, connection};
};

}  // namespace vireon::tests
