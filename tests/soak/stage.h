#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>

#include "app/executables/session.h"
#include "tests/soak/act_log.h"
#include "tests/soak/hands.h"
#include "tests/soak/message_ledger.h"
#include "tests/soak/paint_watch.h"
#include "tests/soak/paper.h"
#include "tests/soak/simulated_link.h"
#include "tests/soak/used_controls.h"
#include "tests/soak/watched_files.h"

namespace vireon::soak {

// What the user has before him, for as long as one window lives.
struct Stage {
  std::uint64_t seed;
  ActLog& log;
  PaintWatch& paints;
  MessageLedger& messages;
  UsedControls& controls;
  WatchedFiles& files;
  Paper& paper;
  SimulatedInstrument& far;
  adapters::ModalGate& gate;
  std::filesystem::path folder;  // of the program and its saved files
  app::Session* session = nullptr;
  bool shown = false;  // the main window has been shown
  Hands hands{};

  // What is left of a longer move of the hand; one at each turn.
  std::deque<std::function<void()>> steps{};
  std::deque<std::string> wishes{};  // widgets that the user means to use next
  std::uint64_t inputs = 0;          // acts that the program may have answered

  app::Program& program() const { return session->program(); }
  adapters::MainWindow& window() const { return session->window(); }
  form::MainForm& form() const { return session->program().form; }

  // The next act begins.
  void act(const std::string& text) {
    ++inputs;
    log.act(text);
  }
};

// The viewer's window; null while there is none on the screen.
QWidget* viewerOf();

}  // namespace vireon::soak
