#pragma once

#include <QCursor>
#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace pescavo {

// The pointer in a .cur file with its hot spot; nothing when the file is missing or unreadable.
std::optional<QCursor> loadCursorFile(const QString& path);

// The control shows the pointer of the file cursorFile names while the mouse is over it. The
// file is read each time the mouse comes in; one that cannot be read leaves the pointer as it is.
void useHandPointer(QWidget* control, std::function<QString()> cursorFile);

// The same while when(clicked) holds, asked at every move over the control (clicked: the control
// has been pressed since it was set up); the default pointer otherwise.
void useHandPointerWhile(QWidget* control, std::function<QString()> cursorFile,
                         std::function<bool(bool clicked)> when);

}  // namespace pescavo
