#include "desktop/HandPointer.h"

#include <QEvent>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <utility>

namespace pescavo {

namespace {

constexpr int kDirectorySize = 6;  // reserved, type (2 for cursors), count
constexpr int kEntrySize = 16;     // the hot spot is at bytes 4 to 7 of an entry

int word(const QByteArray& bytes, int at) {
  return static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1]) << 8;
}

class HandPointer : public QObject {
 public:
  HandPointer(QWidget* control, std::function<QString()> file)
      : QObject(control), m_file(std::move(file)) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Enter) {
      if (const std::optional<QCursor> cursor = loadCursorFile(m_file()))
        static_cast<QWidget*>(watched)->setCursor(*cursor);
    }
    return false;
  }

 private:
  std::function<QString()> m_file;
};

}  // namespace

std::optional<QCursor> loadCursorFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray bytes = file.readAll();
  if (bytes.size() < kDirectorySize + kEntrySize || word(bytes, 0) != 0 || word(bytes, 2) != 2)
    return std::nullopt;
  const QImage image = QImage::fromData(bytes, "CUR");
  if (image.isNull()) return std::nullopt;
  const int x = word(bytes, kDirectorySize + 4);
  const int y = word(bytes, kDirectorySize + 6);
  return QCursor(QPixmap::fromImage(image), x, y);
}

void useHandPointer(QWidget* control, std::function<QString()> cursorFile) {
  control->installEventFilter(new HandPointer(control, std::move(cursorFile)));
}

}  // namespace pescavo
