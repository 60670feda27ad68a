#include <QApplication>
#include <QWidget>
#include <optional>

#include "app/executables/until_shown.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  std::optional<vireon::app::EndWhenShown> end;
  if (QApplication::arguments().contains(QStringLiteral("--until-shown"))) {
    end.emplace(window);
  }
  window.resize(731, 386);
  window.show();
  return QApplication::exec();
}
