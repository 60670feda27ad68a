#include "files/workbook_globals_writer.h"

#include <string_view>

#include "files/shared_strings_writer.h"

namespace vireon::files {
namespace {

constexpr std::string_view kSheetName = "Logger";

constexpr unsigned kPlainWeight = 400;
constexpr unsigned kBoldWeight = 700;
constexpr unsigned kPlainFont = 0;
constexpr unsigned kBoldFont = 5;  // fonts count 0 to 3, then 5

constexpr unsigned kGeneral = 0;
constexpr unsigned kRecordNumberFormat = 164;  // the first number free for a workbook's own
constexpr unsigned kTimeFormat = 165;

constexpr int kStyles = 15;  // formats of styles, before the first one of cells

void writeStart(RecordWriter& out) {
  out.beginPart(biff::kGlobals);

  out.begin(biff::kCodePage, 2);
  out.u16(1200);  // UTF-16

  out.begin(biff::kWindow1, 18);
  for (const unsigned twips : {0U, 0U, 18000U, 12000U}) out.u16(twips);
  out.u16(0x0038);  // both scroll bars and the sheets' tabs
  out.u16(0);       // the sheet shown
  out.u16(0);       // the first tab
  out.u16(1);       // sheets selected
  out.u16(600);     // the tabs' width by 1000

  out.begin(biff::kDateMode, 2);
  out.u16(0);  // of 1900
}

void writeFont(RecordWriter& out, unsigned weight) {
  constexpr std::string_view kName = "Arial";
  out.begin(biff::kFont, 16 + kName.size());
  out.u16(200);                            // twips
  out.u16(weight >= kBoldWeight ? 1 : 0);  // bold as older programs ask for it
  out.u16(0x7FFF);                         // the window's text colour
  out.u16(weight);
  out.u16(0);
  out.u8(0);
  out.u8(2);  // sans serif
  out.u8(0);
  out.u8(0);
  out.u8(kName.size());
  out.u8(0);
  out.bytes(kName);
}

void writeFormat(RecordWriter& out, unsigned number, std::string_view code) {
  out.begin(biff::kFormat, 5 + code.size());
  out.u16(number);
  out.u16(static_cast<unsigned>(code.size()));
  out.u8(0);
  out.bytes(code);
}

enum class XfKind { kStyle, kCell };

void writeXf(RecordWriter& out, XfKind kind, unsigned font, unsigned format) {
  const bool style = kind == XfKind::kStyle;
  unsigned own = 0;  // what differs from the style
  if (format != kGeneral) own |= 0x04U;
  if (font != kPlainFont) own |= 0x08U;
  out.begin(biff::kXf, 20);
  out.u16(font);
  out.u16(format);
  out.u16(style ? 0xFFF5U : 0x0001U);
  out.u8(0x20);  // aligned as the value's kind is, at the bottom
  out.u8(0);
  out.u8(0);
  out.u8(style ? 0xF4U : own);
  out.u32(0);
  out.u32(0);
  out.u16(0x20C0);  // no pattern in the window's colours
}

void writeFormats(RecordWriter& out) {
  for (int font = 0; font < 4; ++font) writeFont(out, kPlainWeight);
  writeFont(out, kBoldWeight);
  writeFormat(out, kRecordNumberFormat, "00000");
  writeFormat(out, kTimeFormat, "hh:mm:ss");
  for (int style = 0; style < kStyles; ++style) writeXf(out, XfKind::kStyle, kPlainFont, kGeneral);
  for (const unsigned font : {kPlainFont, kBoldFont}) {
    for (const unsigned format : {kGeneral, kRecordNumberFormat, kTimeFormat}) {
      writeXf(out, XfKind::kCell, font, format);
    }
  }
  out.begin(biff::kStyle, 4);
  out.u16(0x8000);  // built in, of the first format
  out.u8(0);        // "Normal"
  out.u8(0xFF);
}

}  // namespace

std::size_t writeWorkbookGlobals(RecordWriter& out, const TextPool& texts, std::size_t uses) {
  writeStart(out);
  writeFormats(out);
  out.begin(biff::kBoundSheet, 8 + kSheetName.size());
  const std::size_t sheetPosition = out.position();
  out.u32(0);
  out.u8(0);  // visible
  out.u8(0);  // a worksheet
  out.u8(kSheetName.size());
  out.u8(0);
  out.bytes(kSheetName);
  writeSharedStrings(out, texts, uses);
  out.begin(biff::kEof);
  return sheetPosition;
}

}  // namespace vireon::files
