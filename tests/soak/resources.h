#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/soak/act_log.h"

namespace vireon::soak {

// What the process holds at a moment.
struct Resources {
  double acts = 0;      // of the user so far
  double heap = 0;      // KiB in use
  double resident = 0;  // KiB
  double files = 0;     // open descriptors
  double threads = 0;
  double objects = 0;  // of the toolkit, alive
  double widgets = 0;
  double windows = 0;

  static Resources now(std::uint64_t acts);
  std::string text() const;
};

// Empties what the toolkit keeps for the next use: the clipboard, pixmaps, and where `fonts` says so fonts
// and their glyphs, after which every window is laid out anew.
void emptyCaches(bool fonts);

// From now on objects of the toolkit are counted; before the first one is made.
void countObjects();

// Whether the program is built with the sanitizers.
bool isSanitized();

// Samples from one and the same state of rest, and whether they grow.
class Growth {
 public:
  // `objects` and `widgets` may come in addition to the first half's, where some are made at first use.
  explicit Growth(std::string where, double objects, double widgets)
      : where_(std::move(where)), objects_(objects), widgets_(widgets) {}

  void add(const Resources& sample) { samples_.push_back(sample); }
  const std::vector<Resources>& samples() const { return samples_; }

  // The median of the last quarter against that of the second quarter, which is after the warming up. Memory
  // has to have grown from each quarter to the next: what is lost again and again does, while a buffer that
  // keeps its largest size, or a font at its first letter, is one step. Nothing is judged with fewer than
  // kFewest samples.
  static constexpr std::size_t kFewest = 8;
  void judge(ActLog& log) const;
  // Second, third and last quarter, medians.
  Resources early() const { return median(samples_.size() / 4, samples_.size() / 2); }
  Resources middle() const { return median(samples_.size() / 2, samples_.size() * 3 / 4); }
  Resources late() const { return median(samples_.size() * 3 / 4, samples_.size()); }

 private:
  Resources median(std::size_t from, std::size_t to) const;

  std::string where_;
  double objects_;
  double widgets_;
  std::vector<Resources> samples_;
};

}  // namespace vireon::soak
