#pragma once

#include <QIcon>
#include <QString>

namespace vireon::adapters {

// The program's icon, held in the executable: in the sizes 16, 24, 32, 48, 64, 128 and 256 pixels.
QIcon programIcon();

// Tells Qt and the desktop who the running program is: `name` is that of the executable and of its desktop
// entry. Gives the program its version and, a moment later, its windows their icon. Needs a QApplication.
void setDesktopIdentity(const QString& name);

}  // namespace vireon::adapters
