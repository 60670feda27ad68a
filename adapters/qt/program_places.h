#pragma once

#include <QString>
#include <QStringList>
#include <string>

namespace vireon::adapters {

// The folder in which the program keeps its files: the executable's own where this account may write there,
// otherwise `userData`, which is made where it is missing. A folder named "bin" belongs to many programs and
// is never chosen, not even for an account that may write everywhere. UTF-8.
std::string programFolder(const QString& executableFolder, const QString& userData);

// The same for the running program.
std::string programFolder();

// The device that is COM port `com`, from 1 on: what a link of that name ("COM1") in `folder` points to if
// there is one, else the com-th of `listed`. Empty when there is none.
QString comDevice(int com, const std::string& folder, const QStringList& listed);

// The serial devices that the system lists, USB adapters first, otherwise in the system's order.
QStringList serialDevices();

}  // namespace vireon::adapters
