#pragma once

#include <QIcon>
#include <QString>
#include <QTimer>

namespace vireon::adapters {

// The program's icon, held in the executable: in the sizes 16, 24, 32, 48, 64, 128 and 256 pixels.
QIcon programIcon();

// Tells Qt and the desktop who the running program is: `name` is that of the executable and of its desktop
// entry. Gives the program its version. Needs a running QApplication.
void setDesktopIdentity(const QString& name);

// Gives the windows the icon, a moment after the start: to read its pictures and send them to the screen
// takes longer than to paint the window, which comes first.
class WindowIcon {
 public:
  WindowIcon();

 private:
  QTimer timer_;
};

}  // namespace vireon::adapters
