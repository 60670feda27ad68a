#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>

#include "platform/search_view.h"

namespace vireon::adapters {

// A small window that shows how the search for the instrument goes on, with a button that ends it.
class SearchWindow : public QWidget, public platform::SearchView {
  Q_OBJECT

 public:
  SearchWindow();

  // Later searches stand over this window and shield it from input; null makes them stand alone.
  void standOver(QWidget* window);

  void begin() override;
  void trying(int com, std::string_view baudRate, int step) override;
  void advise(const std::string& line, const std::string& text) override;
  void end() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void cancel();

  QLabel heading_;
  QLabel step_;
  QProgressBar progress_;
  QLabel advice_;
  QPushButton cancel_;
  QWidget* over_ = nullptr;
  int depth_ = 0;
  bool cancelled_ = false;  // the search on screen
};

}  // namespace vireon::adapters
