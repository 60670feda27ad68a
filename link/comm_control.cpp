#include "link/comm_control.h"

#include <array>
#include <charconv>
#include <optional>

#include "form/fault.h"

namespace vireon::link {
namespace {

using form::Fault;
using form::FaultKind;

std::optional<int> wholeNumber(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

// "baud,parity,data,stop"
std::optional<platform::SerialSettings> parse(std::string_view text) {
  std::array<std::string_view, 4> fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::size_t comma = text.find(',');
    if ((comma == std::string_view::npos) != (i + 1 == fields.size())) {
      return std::nullopt;
    }
    fields[i] = text.substr(0, comma);
    text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
  }
  const auto baud = wholeNumber(fields[0]);
  const auto data = wholeNumber(fields[2]);
  const auto stop = wholeNumber(fields[3]);
  const bool parityKnown = fields[1] == "N" || fields[1] == "E" || fields[1] == "O";
  if (!baud || *baud < 1 || !parityKnown || !data || *data < 5 || *data > 8 || !stop || *stop < 1 ||
      *stop > 2) {
    return std::nullopt;
  }
  return platform::SerialSettings{*baud, fields[1].front(), *data, *stop};
}

}  // namespace

CommControl::CommControl(platform::SerialPort& port) : port_(port) {
  port_.onArrival = [this] {
    commEvent_ = kEventReceive;
    if (OnComm) {
      OnComm();
    }
  };
  port_.onLost = [this] {
    if (onLost) {
      onLost();
    }
  };
}

CommControl::~CommControl() {
  port_.onArrival = nullptr;
  port_.onLost = nullptr;
  port_.close();
}

void CommControl::CommPort(int number) {
  if (number < 1 || number > kMostPorts || PortOpen()) {
    throw Fault(FaultKind::kPropertyValue);
  }
  commPort_ = number;
}

void CommControl::Settings(std::string_view text) {
  const auto parsed = parse(text);
  if (!parsed) {
    throw Fault(FaultKind::kPropertyValue);
  }
  parsed_ = *parsed;
  settings_ = text;
}

void CommControl::PortOpen(bool open) {
  if (!open) {
    port_.close();
    return;
  }
  openResult_ = port_.open(commPort_, parsed_);
  if (openResult_.error != platform::SerialOpenError::kNone) {
    throw Fault(FaultKind::kPropertyValue);
  }
}

void CommControl::InputLen(int bytes) {
  if (bytes < 0) {
    throw Fault(FaultKind::kPropertyValue);
  }
  inputLen_ = bytes;
}

void CommControl::InputMode(int mode) {
  if (mode != kInputModeBinary) {
    throw Fault(FaultKind::kPropertyValue);
  }
  inputMode_ = mode;
}

std::size_t CommControl::InBufferCount() const {
  return port_.isOpen() ? port_.available() : 0;
}

std::vector<std::uint8_t> CommControl::Input() {
  const std::size_t waiting = InBufferCount();
  return waiting == 0 ? std::vector<std::uint8_t>{}
                      : port_.read(inputLen_ == 0 ? waiting : static_cast<std::size_t>(inputLen_));
}

bool CommControl::Output(std::span<const std::uint8_t> bytes) {
  return port_.isOpen() && port_.write(bytes);
}

}  // namespace vireon::link
