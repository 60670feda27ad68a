#pragma once

namespace vireon::protocol {

// The logger's modes as positions in cmbDmod. On the wire each is one more; there 0 is the scope.
enum LoggerMode { kDataLogger, kRecordMode, kRelativeMode, kCompareMode, kTrendPlot };

}  // namespace vireon::protocol
