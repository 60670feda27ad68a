#pragma once

#include <optional>
#include <vector>

#include "files/list_row.h"
#include "files/progress.h"
#include "form/grid.h"
#include "link/long_work.h"

// What saving and loading the logger's list have in common, whatever the file.
namespace vireon::files {

inline constexpr int kLongFile = 5000;  // work on more rows shows its progress and can be cancelled
inline constexpr const char* kNoneData = "None Data. Please check again!! ";

// The progress of work on a list, shown once it is known to be a long one.
class ListProgress {
 public:
  // `rows` is 0 where their number is not known.
  ListProgress(link::LongWork& work, int rows) : work_(work), rows_(rows) {}

  // For a reader or writer of lists; valid as long as this object.
  Progress function() {
    return [this](int done) { return goOn(done); };
  }

 private:
  bool goOn(int done) {
    if (!scope_ && (rows_ == 0 ? done : rows_) > kLongFile) {
      scope_.emplace(work_, rows_);
    }
    return !scope_ || scope_->goOn(done);
  }

  link::LongWork& work_;
  int rows_;
  std::optional<link::LongWork::Scope> scope_;
};

// Whether the list has no record to save.
bool isEmptyList(const form::Grid& list);

// Puts the rows into the list, from the header row on, and empties all others.
void fillList(form::Grid& list, std::vector<ListRow> rows);

}  // namespace vireon::files
