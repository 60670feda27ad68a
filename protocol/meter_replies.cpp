#include "protocol/logger_mode.h"
#include "protocol/reply_interpreter.h"
#include "protocol/reply_text.h"

namespace vireon::protocol {
namespace {

// Character positions of a field within an item, counted from 1.
struct Field {
  std::size_t first;
  std::size_t last;
};

// Fields of "drp" for the labels lblYdg 0 to 4, by the logger mode from kRecordMode on.
constexpr Field kResultFields[3][5] = {
    {{5, 21}, {22, 38}, {39, 55}, {56, 61}, {62, 69}},
    {{5, 12}, {13, 20}, {21, 27}, {28, 34}, {35, 42}},
    {{5, 12}, {13, 20}, {21, 28}, {29, 34}, {35, 42}},
};

constexpr std::size_t kTrendSpans = 12;  // codes with a label

std::string text(std::string_view item, Field field) {
  return std::string(slice(item, field.first, field.last));
}

}  // namespace

void ReplyInterpreter::drm(std::string_view item, int /*byte*/) {
  if (form_.SSTab1.tab() == 0) {
    form_.lblDmm.setCaption(text(item, {5, 13}));
  } else if (form_.SSTab1.tab() == 1) {
    form_.dmmMrdg.setCaption(text(item, {5, 10}));
    form_.dmmMrge.setCaption(text(item, {11, 14}));
  }
}

void ReplyInterpreter::dps(std::string_view item, int /*byte*/) {
  switch (form_.cmbDmod.listIndex()) {
    case kDataLogger:
      form_.optLog[decimalValue(slice(item, 5, 5))].setValue(true);
      form_.txtLog[0].setText(text(item, {7, 11}));
      form_.txtLog[1].setText(text(item, {13, 17}));
      form_.txtLog[2].setText(text(item, {19, 23}));
      break;
    case kRelativeMode:
      if (form_.picSet.visible()) {
        form_.txtSet[0].setText(text(item, {5, 12}));
      }
      break;
    case kCompareMode:
      if (form_.picSwin[0].visible() || form_.picSet.visible()) {
        form_.txtSet[0].setText(text(item, {5, 12}));
        form_.txtSet[1].setText(text(item, {14, 21}));
      }
      break;
    case kTrendPlot:
      trendParameters(item);
      break;
    default:
      break;
  }
}

void ReplyInterpreter::trendParameters(std::string_view item) {
  form_.optLog[decimalValue(slice(item, 5, 5))].setValue(true);
  form_.txtLog[0].setText(std::string(trimmed(slice(item, 7, 14))));
  form_.vdtrd[7].setCaption(form_.txtLog[0].text());
  form_.txtLog[1].setText(std::string(trimmed(slice(item, 16, 23))));
  form_.vdtrd[1].setCaption(form_.txtLog[1].text());
  form_.vdtrd[2].setCaption(form_.txtLog[1].text());
  const auto span = static_cast<std::size_t>(hexValue(slice(item, 25, 25)));
  if (span < state_.labels.trdSpanLbl.size()) {
    form_.lblStm.setCaption(state_.labels.trdSpanLbl[span]);
    form_.vdtrd[3].setCaption(form_.lblStm.caption());
  }
  if (span < kTrendSpans) {
    state_.labels.trdSpan = static_cast<int>(span);
  }
}

void ReplyInterpreter::drp(std::string_view item, int /*byte*/) {
  const int mode = form_.cmbDmod.listIndex();
  if (form_.SSTab1.tab() != 1 || mode < kRecordMode || mode > kCompareMode) {
    return;
  }
  for (int label = 0; label < form_.lblYdg.size(); ++label) {
    form_.lblYdg[label].setCaption(text(item, kResultFields[mode - kRecordMode][label]));
  }
}

void ReplyInterpreter::drg(std::string_view /*item*/, int byte) {
  if (form_.SSTab1.tab() == 1) {
    showToggle(form_.chkDmAt, (byte & 8) != 0);
  }
}

void ReplyInterpreter::sts(std::string_view /*item*/, int byte) {
  if (form_.SSTab1.tab() == 0) {
    showToggle(form_.chkMhld, (byte & 1) != 0);
    form_.chkSgl.setValue((byte & 2) != 0 ? 1 : 0);
    return;
  }
  const int mode = form_.cmbDmod.listIndex();
  if (mode == kRecordMode || mode == kRelativeMode) {
    showToggle(form_.chkHold, (byte & 1) != 0);
    form_.chkSub.setValue((byte & 8) != 0 ? 1 : 0);
  } else if (mode == kDataLogger || mode == kTrendPlot) {
    loggingStatus(byte);
  }
}

}  // namespace vireon::protocol
