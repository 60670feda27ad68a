#include "adapters/qt/painting_patience.h"

#include <thread>

#include "adapters/qt/painting_turn.h"

namespace vireon::adapters {
namespace {

constexpr int kSlices = 4;  // of a pause; a paint takes two turns of the event loop

}  // namespace

NodePatience paintingPatience(ModalGate& gate) {
  NodePatience patience;
  patience.pause = [&gate] {
    for (int slice = 0; slice < kSlices; ++slice) {
      paintingTurn(gate);
      std::this_thread::sleep_for(NodePatience::kPause / kSlices);
    }
  };
  return patience;
}

}  // namespace vireon::adapters
