#include "meter/record_listing.h"

#include <cmath>

#include "form/text_encoding.h"
#include "meter/function_remark.h"
#include "protocol/record_list.h"
#include "protocol/reply_text.h"
#include "scope/scale_tables.h"

namespace vireon::meter {
namespace {

constexpr int kFirstByte = 5;  // of the first record within rxBuf
constexpr std::size_t kRecordLength = 24;

// Positions of the function code's two bytes in the first record's hex form, counted from 1.
constexpr std::size_t kSubCode = 43;
constexpr std::size_t kMainCode = 45;

std::string recordText(const protocol::InstrumentState& state) {
  if (state.rxLen >= protocol::InstrumentState::kBufferSize) {
    throw form::Fault(form::FaultKind::kBounds);
  }
  const auto first = state.rxBuf.begin() + kFirstByte;
  return state.rxLen < kFirstByte ? std::string() : std::string(first, state.rxBuf.begin() + state.rxLen + 1);
}

// A byte below 16 is one digit, so it shifts the codes of the records behind it.
std::string hexForm(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string hex;
  hex.reserve(2 * text.size());
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= 16) {
      hex += kDigits[byte / 16U];
    }
    hex += kDigits[byte % 16U];
  }
  return hex;
}

// Halves are rounded to even: a record begun counts from 12 characters on, after an even number of whole
// ones.
int lastRecord(std::size_t characters) {
  return static_cast<int>(
      std::nearbyint(static_cast<double>(characters) / static_cast<double>(kRecordLength) - 1));
}

}  // namespace

void RecordListing::prepare() {
  form::Grid& list = form_.grdLog;
  list.setRows(protocol::kListRows);
  list.clear();
  list.setTopRow(1);
  scope::writeGridHeader(list);
  state_.logRow = 1;
  state_.logEnd = false;
  records_ = 0;
}

void RecordListing::dspLog() {
  const std::string text = recordText(state_);
  const std::string hex = hexForm(text);
  const auto code = [&](std::size_t first) { return protocol::slice(hex, first, first + 1); };
  std::string remark = text.empty() ? "" : form::utf8From1252(text.substr(text.size() - 1));
  const int last = lastRecord(text.size());
  for (int k = 0; k <= last; ++k) {
    const std::size_t start = kRecordLength * static_cast<std::size_t>(k);
    writeRecord(std::string_view(text).substr(start, kRecordLength));
    const auto found = functionRemark(code(2 * start + kMainCode), code(2 * start + kSubCode));
    if (!found.empty()) {
      remark = found;
    }
    if (protocol::trimmed(form_.grdLog.text(state_.logRow, protocol::kTimeColumn)) == protocol::kEndOfData) {
      endOfData();
    } else {
      ++records_;
    }
    writeRemark(remark);
    ++state_.logRow;
  }
}

void RecordListing::writeRecord(std::string_view record) {
  form::Grid& list = form_.grdLog;
  protocol::makeRoom(list, state_.logRow);
  const auto write = [&](int column, std::size_t first, std::size_t end) {
    list.setText(state_.logRow, column, form::utf8From1252(protocol::slice(record, first, end)));
  };
  write(protocol::kRecordColumn, 1, 5);
  write(protocol::kTimeColumn, 7, 14);
  write(protocol::kReadingColumn, 16, 23);
}

void RecordListing::endOfData() {
  state_.logEnd = true;
  form_.cmdLoad[1].setEnabled(true);
  ++state_.logRow;
  form_.chkLog0.setValue(0);
  beeper_.beep();
}

void RecordListing::writeRemark(const std::string& remark) {
  form::Grid& list = form_.grdLog;
  protocol::makeRoom(list, state_.logRow);
  list.setText(state_.logRow, protocol::kRemarkColumn, remark);
  if (state_.logRow > protocol::kLastFixedRow) {
    list.setRows(state_.logRow + 3);
    list.refresh();
  }
  protocol::followRecord(list, state_.logRow);
}

}  // namespace vireon::meter
