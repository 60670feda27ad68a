#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(731, 386);
  window.show();
  return QApplication::exec();
}
