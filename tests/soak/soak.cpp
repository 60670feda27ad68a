#include "tests/soak/soak.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <fstream>

#include "adapters/posix/posix_file_store.h"
#include "adapters/qt/painting_files.h"
#include "adapters/qt/painting_hid.h"
#include "tests/soak/random_user.h"
#include "tests/soak/rest.h"
#include "tests/soak/strange_files.h"

namespace vireon::soak {

using simulator::Model;

struct SessionPlan {
  Model model;
  bool usb;
  bool firstRun;
  int com;
  int baud;
  std::uint64_t acts;

  std::string text() const {
    return std::string(simulator::identity(model)) + (usb ? " USB" : " COM" + std::to_string(com)) + " " +
           std::to_string(baud) + (firstRun ? " first run, " : ", ") + std::to_string(acts) + " acts";
  }
};

namespace {

constexpr std::uint64_t kActsToRest = 120;
constexpr int kPainting = 2;  // milliseconds until the next look while the window only paints
constexpr int kLeaving = 10;
constexpr std::chrono::seconds kBusy{60};

// Every fifth session is long, so that what grows within one is seen.
SessionPlan planFor(std::uint64_t seed, int session) {
  constexpr Model kModels[] = {Model::kK7310, Model::kK7310, Model::kK7310,
                               Model::kK7210, Model::kK7201, Model::kK7900};
  constexpr int kBauds[] = {9600, 9600, 4800, 2400};
  Dice dice{seed, static_cast<std::uint64_t>(session)};
  const bool longOne = session % 5 == 1;
  SessionPlan plan{
      dice.pick(kModels), dice.percent(75),
      dice.percent(25),   dice.between(1, 4),
      dice.pick(kBauds),  static_cast<std::uint64_t>(longOne ? 12 : dice.between(1, 4)) * kActsToRest};
  if (longOne) {
    plan.model = Model::kK7310;
    plan.usb = true;
    plan.firstRun = false;
  }
  return plan;
}

void writeSettings(const std::filesystem::path& path, const SessionPlan& plan) {
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  if (plan.firstRun) {
    return;
  }
  const bool two = plan.model == Model::kK7310;
  std::ofstream(path, std::ios::binary)
      << "[Caption]\r\nCaption=Vireon\r\n[System ID]\r\nSystem ID=" << simulator::identity(plan.model)
      << "\r\n[ProductId]\r\nProductId=" << static_cast<std::int16_t>(simulator::usbProductId(plan.model))
      << "\r\n[Tabs]\r\nTabs=" << (two ? 2 : 1) << "\r\n[ComPort]\r\nComPort=" << (plan.usb ? 0 : plan.com)
      << "\r\n[BaudRate]\r\nBaudRate=" << plan.baud << "\r\n";
}

}  // namespace

// One life of the window, from its start to its end.
class Soak::Session {
 public:
  Session(Soak& soak, const SessionPlan& plan)
      : soak_(soak),
        plan_(plan),
        far_(plan.model, plan.usb ? 0 : plan.com, plan.baud),
        growth_("within session " + std::to_string(soak.log.session()), 60, 30),
        stage_{soak.order_.seed, soak.log,   soak.paints, soak.messages, soak.controls,
               soak.files,       soak.paper, far_,        gate_,         soak.order_.folder} {
    if (!plan.usb) {
      far_.usb.unplug();
    }
    soak.files.go(&way_);
    hand_.setSingleShot(true);
    hand_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&hand_, &QTimer::timeout, &hand_, [this] { turn(); });
  }

  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session() { soak_.files.go(nullptr); }

  void run() {
    stage_.session = &session_;
    hand_.start(0);
    if (session_.show()) {
      stage_.shown = true;
      soak_.controls.follow(stage_.form(), stage_.window());
      soak_.paints.watch(stage_.window());
      while (stage_.window().isVisible()) {
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
      }
      soak_.paints.stop();
    }
    hand_.stop();
    trouble_.heal();
    soak_.messages.forget();
    growth_.judge(soak_.log);
    if (far_.openHandles != 0) {
      soak_.log.finding("the window went and left the device open");
    }
    soak_.faults += trouble_.begun();
    soak_.commands += far_.instrument.commandCount();
  }

 private:
  enum class Doing { kUsing, kResting, kLeaving };

  // The next turn is asked for first: what this one does may wait for what the next one does.
  void turn() {
    hand_.start(gate_.paintingOnly() ? 0 : kPainting);  // a user comes before ticks that are behind
    soak_.hangs_.alive();  // while a slow device is waited for, too: the window paints
    if (gate_.paintingOnly()) {
      notTooLong();
      return;
    }
    if (stage_.shown && !stage_.window().isVisible() && !gate_.closed()) {
      return;  // a window that has gone is not used; a message that it leaves is answered
    }
    if (stage_.shown) {
      lookAround();
    }
    const int pause = proceed();
    if (!stage_.shown || stage_.window().isVisible()) {
      hand_.start(pause);
    }
  }

  void lookAround() {
    QWidget* const viewer = viewerOf();
    if (viewer != nullptr && viewer != viewer_) {
      soak_.controls.followViewer(*viewer);
    }
    viewer_ = viewer;
    if (!stage_.program().connection.operations().running() && !gate_.closed()) {
      idleSince_ = std::chrono::steady_clock::now();
      soak_.messages.look(stage_.program().connection.connected(), far_.farewells, stage_.inputs);
    } else {
      notTooLong();
    }
  }

  void notTooLong() {
    if (std::chrono::steady_clock::now() - idleSince_ > kBusy) {
      soak_.log.finding("the link has been busy, or a message open, for too long");
      idleSince_ = std::chrono::steady_clock::now();
    }
  }

  int proceed() {
    if (!stage_.steps.empty()) {
      const auto step = std::move(stage_.steps.front());
      stage_.steps.pop_front();
      step();
      return 0;
    }
    switch (doing_) {
      case Doing::kUsing:
        if (stage_.shown && stage_.inputs >= nextRest_) {
          doing_ = Doing::kResting;
          rest_.begin();
          return 0;
        }
        return user_.act();
      case Doing::kResting:
        return restOn();
      case Doing::kLeaving:
        break;
    }
    if (!stage_.gate.closed()) {
      stage_.log.act("exit");
      if (auto* const exit = stage_.window().findChild<QWidget*>(QStringLiteral("cmdBttn_1"))) {
        stage_.hands.click(*exit, exit->rect().center());
      }
      return kLeaving;
    }
    return user_.act();
  }

  int restOn() {
    const int pause = rest_.turn();
    if (pause != Rest::kReached) {
      return pause;
    }
    ++soak_.rests;
    {
      const PaintWatch::OwnWork own(soak_.paints);
      soak_.last = Resources::now(soak_.log.acts());
    }
    if (soak_.rests == 1) {
      soak_.first = soak_.last;
    }
    soak_.log.note("at rest: " + soak_.last.text());
    growth_.add(soak_.last);
    nextRest_ = stage_.inputs + kActsToRest;
    doing_ = stage_.inputs >= plan_.acts || soak_.timeIsUp() ? Doing::kLeaving : Doing::kUsing;
    return 0;
  }

  Soak& soak_;
  SessionPlan plan_;
  SimulatedInstrument far_;
  UsbCable cable_{far_};
  adapters::ModalGate gate_;
  adapters::PaintingHid hid_{cable_, gate_};
  adapters::PosixFileStore disk_;
  adapters::PaintingFiles way_{disk_, gate_};
  SerialCable serial_{far_};
  Growth growth_;
  Stage stage_;
  app::Session session_{{hid_, serial_, soak_.files, &soak_.paper}, soak_.order_.folder.string(), gate_};
  Trouble trouble_{stage_};
  RandomUser user_{stage_, trouble_};
  Rest rest_{stage_, trouble_};
  QPointer<QWidget> viewer_;
  QTimer hand_;
  Doing doing_ = Doing::kUsing;
  std::chrono::steady_clock::time_point idleSince_ = std::chrono::steady_clock::now();
  std::uint64_t nextRest_ = kActsToRest;
};

Soak::Soak(const Order& order, ActLog& acts) : log(acts), files(order.folder, acts, paints), order_(order) {
  messages.onClaim = [this](const std::string& path) {
    if (!files.saved(path)) {
      log.finding("said to be saved, and is not: " + path);
    }
  };
}

void Soak::run() {
  end_ = std::chrono::steady_clock::now() +
         std::chrono::milliseconds(static_cast<std::int64_t>(order_.minutes * 60'000));
  for (int number = order_.from; !timeIsUp(); ++number) {
    const SessionPlan plan = planFor(order_.seed, number);
    writeSettings(order_.folder / "vireon.ini", plan);
    files.forgetAll();
    clearFolder(order_.folder);
    log.beginSession(number, plan.text());
    Session(*this, plan).run();
    ++sessions;
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    emptyCaches(true);
    between.add(Resources::now(log.acts()));
    log.note("between sessions: " + between.samples().back().text());
  }
  between.judge(log);
}

}  // namespace vireon::soak
