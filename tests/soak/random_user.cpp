#include "tests/soak/random_user.h"

#include <QApplication>
#include <algorithm>

#include "tests/soak/dialog_acts.h"
#include "tests/soak/habits.h"
#include "tests/soak/strange_files.h"
#include "tests/soak/widget_acts.h"
#include "tests/soak/window_acts.h"

namespace vireon::soak {
namespace {

constexpr int kLookingOn = 20;  // milliseconds
constexpr std::chrono::seconds kLongestWork{20};

struct Rare {
  const char* name;
  int oneIn;
};
// What would end the session, the connection or a second, if it were done as often as the rest.
constexpr Rare kRares[] = {{"cmdBttn_1", 150}, {"cmdBttn_0", 4}, {"cmdSprint", 8}, {"chkMld", 2}};

}  // namespace

QWidget* viewerOf() {
  for (QWidget* const top : QApplication::topLevelWidgets()) {
    if (top->isVisible() && top->objectName() == QLatin1String("frmCapture")) {
      return top;
    }
  }
  return nullptr;
}

// A thought may come to nothing; then there is another one for the same act.
Dice RandomUser::dice() {
  if (drawnFor_ != stage_.log.acts()) {
    drawnFor_ = stage_.log.acts();
    draws_ = 0;
  }
  return {stage_.seed, static_cast<std::uint64_t>(stage_.log.session()), stage_.log.actOfSession(), ++draws_};
}

int RandomUser::act() {
  Dice thought = dice();
  if (QWidget* const front = inFront()) {
    return answer(stage_, thought, *front);
  }
  if (!stage_.shown) {
    return kLookingOn;
  }
  if (stage_.program().longWork.running()) {
    return waitForWork(thought);
  }
  workSince_.reset();
  trouble_.look();
  return useMain(thought);
}

// Mostly looks on; cancels at times, or does what must do nothing. A download may have no end.
int RandomUser::waitForWork(Dice& dice) {
  const auto now = std::chrono::steady_clock::now();
  workSince_ = workSince_.value_or(now);
  if (dice.percent(3) || now - *workSince_ > kLongestWork) {
    if (auto* const cancel = stage_.window().findChild<QWidget*>(QStringLiteral("cmdCancel"));
        cancel != nullptr && cancel->isVisible()) {
      stage_.act("cancel the work");
      stage_.hands.click(*cancel, cancel->rect().center());
    }
  } else if (dice.percent(3)) {
    useOneOf(dice, stage_.window());
  }
  return kLookingOn;
}

int RandomUser::useMain(Dice& dice) {
  const bool connected = stage_.program().connection.connected();
  const int what = dice.below(1000);
  if (!connected && what < 400) {
    stage_.act("connect");
    if (auto* const button = stage_.window().findChild<QWidget*>(QStringLiteral("cmdBttn_0"))) {
      stage_.hands.click(*button, button->rect().center());
    }
  } else if (QWidget* const widget = wanted(stage_, usableWidgets(stage_.window()))) {
    useWidget(stage_, dice, *widget);
  } else if (what < 460) {
    takeUp(stage_, dice);
  } else if (what < 760) {
    QWidget* const viewer = viewerOf();
    useOneOf(dice, viewer != nullptr && dice.oneIn(3) ? *viewer : stage_.window());
  } else if (what < 840) {
    useKeys(stage_, dice);
  } else if (what < 870) {
    useFrame(stage_, dice);
  } else if (what < 900) {
    dropFile(stage_, dice);
  } else if (what < 930) {
    putStrangeFile(stage_, dice);
  } else if (what < 970) {
    trouble_.begin(dice);
  } else if (what < 999) {
    stage_.act("look on");
    return dice.between(50, 500);
  } else {
    stage_.act("close the window");
    stage_.window().close();
  }
  const int pace = dice.below(10);
  return pace < 7 ? dice.below(4) : dice.below(pace < 9 ? 40 : 200);
}

// The least used one of three.
void RandomUser::useOneOf(Dice& dice, QWidget& window) {
  const auto usable = usableWidgets(window);
  QWidget* best = nullptr;
  std::uint64_t bestUses = 0;
  for (int tries = 0; tries < 3; ++tries) {
    const std::uint64_t salt = dice.number();
    const auto drawn = std::max_element(usable.begin(), usable.end(), [salt](QWidget* one, QWidget* other) {
      return Dice::weight(salt, nameOf(*one)) < Dice::weight(salt, nameOf(*other));
    });
    if (drawn == usable.end()) {
      return;
    }
    const std::string name = nameOf(**drawn);
    const std::uint64_t uses = stage_.controls.uses(name);
    if (isWanted(dice, name) && (best == nullptr || uses < bestUses)) {
      best = *drawn;
      bestUses = uses;
    }
  }
  if (best != nullptr) {
    useWidget(stage_, dice, *best);
  }
}

bool RandomUser::isWanted(Dice& dice, const std::string& name) const {
  const auto* const rare = std::find_if(std::begin(kRares), std::end(kRares),
                                        [&](const Rare& entry) { return name == entry.name; });
  return rare == std::end(kRares) || dice.oneIn(rare->oneIn);
}

}  // namespace vireon::soak
