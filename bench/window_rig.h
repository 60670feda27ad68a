#pragma once

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <string>

#include "app/executables/session.h"
#include "bench/bench_rig.h"

namespace vireon::bench {

// The program with its window, connected and sampling.
struct WindowRig : Bench {
  NoSerialPort serialPort;
  app::MemoryFileStore files;
  adapters::ModalGate gate;
  app::Session session{{hid, serialPort, files}, "", gate};

  WindowRig() {
    session.show();
    form().cmdBttn[0].click();
    form().tmrInt.setInterval(0);
    form().tmrInt.setEnabled(true);
    program().sampling.tmrInt_Timer();
    paint();
  }

  app::Program& program() { return session.program(); }
  form::MainForm& form() { return program().form; }

  void receive(const std::string& text) {
    program().state.rxBuf[0] = 2;
    std::copy(text.begin(), text.end(), program().state.rxBuf.begin() + 1);
    program().state.rxLen = static_cast<int>(text.size());
    program().dispatcher.dspRcv();
  }

  void paint() {
    session.window().binder().flush();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
  }
};

}  // namespace vireon::bench
