#pragma once

#include <QWidget>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "form/main_form.h"

namespace vireon::soak {

// Which of the form's input controls the user has operated: its widget took the input and said so.
class UsedControls {
 public:
  // Follows the widgets of `window`, which show `form`.
  void follow(form::MainForm& form, QWidget& window);
  // The viewer's, a window of its own: its menu items by name.
  void followViewer(QWidget& viewer);

  std::uint64_t uses(const std::string& name) const;
  std::vector<std::string> unused() const;
  std::size_t known() const { return uses_.size(); }

 private:
  void followWidget(const std::string& name, QWidget& widget);

  std::map<std::string, std::uint64_t> uses_;
};

}  // namespace vireon::soak
